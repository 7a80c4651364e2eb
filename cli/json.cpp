#include "json.hpp"

#include "charset.hpp"
#include "commands.hpp"
#include "cursor.hpp"
#include "deliver.hpp"
#include "json_text.hpp"
#include "misfit.hpp"

namespace tool {
namespace {

std::string_view bytesIn(voBuffer *bytes) {
    return {reinterpret_cast<const char *>(voBufferBacking(bytes)),
            static_cast<size_t>(voBufferLength(bytes))};
}

/// Whether a text is written as it is when only "<" and "&" are escaped.
bool isUsual(std::string_view escaped, std::string_view plain) {
    if (escaped.find('&') == escaped.npos) return true;
    std::string usual;
    for (const char ch : plain)
        if (ch == '<')
            usual += "&lt;";
        else if (ch == '&')
            usual += "&amp;";
        else
            usual += ch;
    return usual == escaped;
}

class Writer {
  public:
    explicit Writer(XML_DOCUMENT *document) : cursor(xmlCursorCreate(document)) {
        out = "{\"version\":" + jsonString(take(xmlDocumentVersion(document))) +
              ",\"encoding\":" + jsonString(charsetName(xmlDocumentCharset(document)));
        if (xmlDocumentStandalone(document)) out += ",\"standalone\":true";
        walkThrough([this] { enter(); }, [this] { leave(); }, cursor);
        out += isBegun ? "}" : "]}";
    }

    std::string out;

  private:
    void enter() {
        out += isBegun ? ",\"content\":[" : ",";
        item();
        isBegun = true;
    }

    void leave() {
        if (xmlCursorType(cursor) == XML_ITEM_TYPE_ELEMENT) out += isBegun ? "}" : "]}";
        isBegun = false;
    }

    void item() {
        static constexpr ByItemType<const char *> keys = {"element", "instruction", "comment", "",
                                                          "cdata"};
        const XML_ITEM_TYPE type = xmlCursorType(cursor);
        if (type == XML_ITEM_TYPE_TEXT) return escapable();
        const bool isElement = type == XML_ITEM_TYPE_ELEMENT;
        out.append("{\"").append(of(keys, type)).append("\":");
        appendJson(out, view(isElement ? xmlCursorName(cursor) : xmlCursorValue(cursor)));
        if (isElement)
            attributes();
        else
            out += '}';
    }

    void attributes() {
        const size_t size = out.size();
        const char *before = ",\"attributes\":{";
        const auto add = [&] {
            out += before;
            appendJson(out, view(xmlCursorName(cursor)));
            out += ':';
            escapable();
            before = ",";
        };
        visitAttributes(add, cursor);
        if (out.size() > size) out += '}';
    }

    /// A text or the value of an attribute.
    void escapable() {
        const std::string_view escaped = view(xmlCursorValue(cursor));
        const XML_UTF8 plain = xmlCursorValueTryUnescape(cursor);
        if (plain.bytes && isUsual(escaped, view(plain))) return appendJson(out, view(plain));
        out += '{';
        if (plain.bytes) {
            out += "\"text\":";
            appendJson(out, view(plain));
            out += ',';
        }
        out += "\"escaped\":";
        appendJson(out, escaped);
        out += '}';
    }

    Ref<XML_CURSOR> cursor;
    bool isBegun = true; ///< Whether the node that was entered last has neither content nor end.
};

} // namespace

std::string toJson(XML_DOCUMENT *document) { return Writer(document).out; }

// ---------------------------------------------------------------- the command

static Status refuseJson(const Request &request, const Input &input, const FromJson &failure) {
    if (request.quiet) return refused;
    const std::string_view bytes = bytesIn(input.bytes);
    Ref before = makeString(bytes.substr(0, failure.offset));
    const auto place = placeAt(chars(before), chars(before).size());
    report({input.name, place, failure.error, {}, {}}, chars(makeString(bytes)));
    return refused;
}

static Status readJson(const Request &request, const Inputs &inputs) {
    return forEach(request, inputs, [&](const Input &input) {
        const FromJson made = fromJson(bytesIn(input.bytes));
        return made.document ? deliver(request, input, made.document)
                             : refuseJson(request, input, made);
    });
}

static Status writeJson(const Request &request, const Inputs &inputs) {
    return forEachDecoded(request, inputs, [&](const Input &input, const Decoded &decoded) {
        const std::string line =
            (request.compact ? toCompactJson(decoded.document) : toJson(decoded.document)) + "\n";
        Ref bytes(voBufferCreateFromBytesCopy(line.data(), static_cast<int64_t>(line.size())));
        return deliver(request, input, bytes);
    });
}

/// Why the options do not go together; empty when they do.
static std::string mistake(const Request &request, const Inputs &inputs) {
    if (request.reverse)
        return request.compact ? "the compact form has no way back"
                               : whyNoOutput(request, inputs.files);
    if (request.inPlace) return "-i: only with --reverse";
    return inputs.files.size() > 1 && !request.output.empty() ? "-o: takes one input file only"
                                                              : "";
}

Status json(const Request &request) {
    const Inputs inputs = inputsOf(request);
    if (const std::string why = mistake(request, inputs); !why.empty()) {
        reportUsage("voxml json", why);
        return wrongUsage;
    }
    return request.reverse ? readJson(request, inputs) : writeJson(request, inputs);
}

} // namespace tool
