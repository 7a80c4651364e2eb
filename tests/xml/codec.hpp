// Documents in and out of bytes, for tests.
#pragma once

#include "tests/xml/notation.hpp"

#include <filesystem>
#include <functional>
#include <vector>

namespace test {

/// Where an error is; -1 where no location tells it.
struct Place {
    int64_t offset = -1, line = -1, column = -1;

    std::string lineAndColumn() const {
        return std::to_string(line) + ":" + std::to_string(column);
    }
};

/// What came of decoding: a document, or an error and its place.
template <class Document> struct Outcome {
    Ref<Document> document;
    std::string error; ///< The code's name without its prefix; empty when there is none.
    std::string message;
    Place place;
};
using Decoded = Outcome<XML_DOCUMENT>;
using NsDecoded = Outcome<XML_NS_DOCUMENT>;
Decoded decode(std::string_view bytes, XML_FLAGS flags = 0);
NsDecoded nsDecode(XML_DOCUMENT *document);

/// The document of this content, with locations behind a declaration of 21 characters.
Ref<XML_DOCUMENT> plain(const std::string &xml);

/// The canonical text in the document's character set; "<null>" when it cannot hold the text.
std::string encode(XML_DOCUMENT *document, XML_FLAGS flags = 0);

/// The text as UTF-8 and without the declaration, whatever the document's character set.
std::string xmlOf(XML_DOCUMENT *document);

/// Calls `visit` for every item of the list and below it in document order.
template <class Layer> void visitItems(Ref<typename Layer::Items> items,
                                       const std::function<void(typename Layer::Item *)> &visit) {
    struct Open {
        Ref<typename Layer::Items> list;
        int64_t next;
    };
    std::vector<Open> open;
    open.push_back({std::move(items), 0});
    while (!open.empty()) {
        auto &[list, next] = open.back();
        if (next == Layer::itemsLength(list)) {
            open.pop_back();
            continue;
        }
        Ref item(Layer::itemAt(list, next++));
        visit(item);
        if (Ref el(Layer::itemElement(item)); el) open.push_back({Ref(Layer::elementItems(el)), 0});
    }
}

/// The bytes of a line in a file of cases, in which \n, \r, \t, \\ and \xHH stand for bytes.
std::string unescaped(const std::string &line);

std::string readFile(const std::filesystem::path &path);

} // namespace test
