// Changing one attribute deep inside a document: the way there is taken out and put back, so that
// nothing is copied.
#include "bench/ours.hpp"

#include <vector>

namespace bench {
namespace {

bool isElement(XML_ITEMS *items, int64_t index) {
    return xmlItemsItemTypeAt(items, index) == XML_ITEM_TYPE_ELEMENT;
}

/// The index of the middle one of the elements among the items, or -1 when there is none.
int64_t wayDown(XML_ITEMS *items) {
    std::vector<int64_t> elements;
    const int64_t length = xmlItemsLength(items);
    for (int64_t i = 0; i < length; ++i)
        if (isElement(items, i)) elements.push_back(i);
    return elements.empty() ? -1 : elements[elements.size() / 2];
}

/// Calls a function that takes the address of a reference.
template <class T, class Change> void edit(T &owned, Change change) {
    auto *reference = owned.release();
    change(&reference);
    owned.reset(reference);
}

/// An element that was taken out and where it stood in its parent, if that is an element.
struct Step {
    Element element;
    int64_t index;
};

/// The index of the child that leads on, or -1. The list is not held any more when the child is
/// taken.
int64_t wayDownFrom(const Element &element) {
    return wayDown(Items(xmlElementItems(element.get())).get());
}

/// Takes the elements from the root to a deepest one out of each other.
std::vector<Step> takePath(Document &document) {
    std::vector<Step> path;
    Element next;
    edit(document, [&](XML_DOCUMENT **doc) { next.reset(xmlDocumentTakeRoot(doc)); });
    int64_t index = -1;
    while (next) {
        path.push_back({std::move(next), index});
        index = wayDownFrom(path.back().element);
        if (index < 0) break;
        edit(path.back().element,
             [&](XML_ELEMENT **parent) { next.reset(xmlElementTakeItemElementAt(parent, index)); });
    }
    return path;
}

void setAttribute(Element &element) {
    static voString *const name = voStringCreateFromCstr("state", -1);
    static voString *const value = voStringCreateFromCstr("changed", -1);
    edit(element, [](XML_ELEMENT **el) {
        if (xmlElementAttributesLength(*el) > 0)
            xmlElementSetAttributeTextEscapeAt(el, 0, value);
        else
            xmlElementSetAttributeNameTextEscape(el, name, value);
    });
}

/// Puts each element of the path into the one above it, and the topmost into the document.
void putBack(std::vector<Step> path, Document &document) {
    for (; path.size() > 1; path.pop_back()) {
        const Step &child = path.back();
        edit(path[path.size() - 2].element, [&](XML_ELEMENT **parent) {
            xmlElementSetItemElementAt(parent, child.index, child.element.get());
        });
    }
    edit(document, [&](XML_DOCUMENT **doc) { xmlDocumentSetRoot(doc, path[0].element.get()); });
}

} // namespace

uint64_t changeDeepElement(const File &file) {
    Document document = decoded(file);
    if (!document) return 0;
    std::vector<Step> path = takePath(document);
    if (!path.empty()) {
        setAttribute(path.back().element);
        putBack(std::move(path), document);
    }
    return encodedLength(document.get());
}

} // namespace bench
