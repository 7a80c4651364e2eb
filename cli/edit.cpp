#include "commands.hpp"

#include "deliver.hpp"
#include "paths.hpp"

#include <atomic>

namespace tool {
namespace {

/// The edits of a request, for a document with that default namespace.
class Edits {
  public:
    Edits(const Request &request, std::string_view defaultNamespace) {
        const Bindings bindings = bindingsOf(request, defaultNamespace);
        for (const EditRequest &edit : request.edits) {
            paths.push_back(compile(edit.path, bindings));
            list.push_back({edit.action, paths.back(), utf8Of(edit.name), utf8Of(edit.text)});
        }
    }

    const XML_EDIT *data() const { return list.data(); }
    int64_t size() const { return static_cast<int64_t>(list.size()); }

  private:
    static XML_UTF8 utf8Of(const std::string &text) {
        return {text.data(), static_cast<int64_t>(text.size())};
    }

    std::vector<Ref<XML_PATH>> paths;
    std::vector<XML_EDIT> list;
};

/// How an edit is written on the command line.
std::string nameOf(const EditRequest &edit) {
    static constexpr const char *names[] = {"--set",          "--set-xml",    "--set-attribute",
                                            "--delete",       "--rename",     "--insert-before",
                                            "--insert-after", "--insert-into"};
    return std::string(names[edit.action]) + " " + shown(std::string_view(edit.path));
}

Status statusOf(XML_EDIT_ERROR_CODE code) {
    switch (code) {
    case XML_EDIT_ERROR_CODE_ARGUMENT:
        return wrongUsage;
    case XML_EDIT_ERROR_CODE_CHARSET:
        return charsetTooSmall;
    default:
        return refused;
    }
}

/// Tells why a document is not edited. A place in what would come of it is of no use to anybody.
Status refuseEdit(const Request &request, const Input &input, const XML_EDIT_ERROR &error) {
    Ref message(error.message);
    const Status status = statusOf(error.code);
    if (request.quiet) return status;
    std::string text = take(voMessageText(message));
    if (error.edit >= 0)
        text = nameOf(request.edits[static_cast<size_t>(error.edit)]) + ": " + text;
    const bool isInInput = error.code != XML_EDIT_ERROR_CODE_RESULT;
    const auto place = isInInput ? placeOf(Ref(voMessageLocation(message))) : std::nullopt;
    Ref source = textOf(input);
    report({input.name, place, text, {}, {}}, chars(source));
    return status;
}

/// Finds mistakes in the command line before any document is read.
void checkUsage(const Request &request, const Inputs &inputs) {
    if (request.edits.empty()) throw Mistake{"an edit is required, such as --set or --delete"};
    if (request.import)
        throw Mistake{"--import: what is imported has other bytes; use 'voxml import' first"};
    if (const std::string why = whyNoOutput(request, inputs.files); !why.empty())
        throw Mistake{why};
    // Arguments that no document can take are found on an empty one.
    const Edits edits(request, "");
    static constexpr std::string_view empty = "<?xml version='1.0'?>";
    Ref bytes(voBufferCreateFromBytesCopy(empty.data(), static_cast<int64_t>(empty.size())));
    XML_EDIT_ERROR error{};
    Ref result(xmlDocumentTryEdit(bytes, edits.data(), edits.size(), 1, nullptr, &error));
    if (result) return;
    Ref message(error.message);
    if (error.code == XML_EDIT_ERROR_CODE_ARGUMENT)
        throw Mistake{nameOf(request.edits[static_cast<size_t>(error.edit)]) + ": " +
                      take(voMessageText(message))};
}

} // namespace

Status edit(const Request &given) {
    Request request = given;
    request.namespaces = true;
    const Inputs inputs = inputsOf(request);
    try {
        checkUsage(request, inputs);
    } catch (const Mistake &mistake) {
        reportUsage("voxml edit", mistake.text);
        return wrongUsage;
    }
    std::atomic<int64_t> found = 0;
    const Status status =
        forEachDecoded(request, inputs, [&](const Input &input, Decoded &decoded) {
            const Edits edits(request, defaultNamespaceOf(decoded.document));
            decoded = {}; // Editing decodes once more.
            XML_EDIT_ERROR error{};
            int64_t selected = 0;
            Ref result(
                xmlDocumentTryEdit(input.bytes, edits.data(), edits.size(), 1, &selected, &error));
            found += selected;
            if (!result) return refuseEdit(request, input, error);
            return request.inPlace && selected == 0 ? fine : deliver(request, input, result);
        });
    return status == fine && found == 0 ? nothingSelected : status;
}

} // namespace tool
