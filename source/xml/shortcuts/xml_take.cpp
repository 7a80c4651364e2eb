#include "source/xml/base/xml_module.hpp"
#include "source/xml/shortcuts/xml_child_search.hpp"
#include "xml/xml_shortcuts.h"

using vo::Ref;
using xml::ElementName;
using xml::findElement;
using xml::NsLayer;
using xml::PlainLayer;

// Items with one and the same empty text, which stand where an element was taken.
static XML_ITEM *takenItem;
static XML_NS_ITEM *takenNsItem;

void xml___TakenItemsStartup(void) {
    Ref text(xmlTextCreate());
    takenItem = xmlItemCreateText(text);
    takenNsItem = xmlNsItemCreateText(text);
}

void xml___TakenItemsShutdown(void) {
    vo::dropField(takenItem);
    vo::dropField(takenNsItem);
}

// ---------------------------------------------------------------- from a list or an element

XML_ELEMENT *xmlItemsTakeItemElementAt(XML_ITEMS **items, int64_t index) {
    VO_ASSERT_REF(items);
    Ref taken(xmlItemsItemElementAt(*items, index));
    if (taken) xmlItemsSetItemAt(items, index, takenItem);
    return taken.take();
}

XML_NS_ELEMENT *xmlNsItemsTakeItemElementAt(XML_NS_ITEMS **items, int64_t index) {
    VO_ASSERT_REF(items);
    Ref taken(xmlNsItemsItemElementAt(*items, index));
    if (taken) xmlNsItemsSetItemAt(items, index, takenNsItem);
    return taken.take();
}

XML_ELEMENT *xmlElementTakeItemElementAt(XML_ELEMENT **el, int64_t index) {
    VO_ASSERT_REF(el);
    if (xmlElementItemTypeAt(*el, index) != XML_ITEM_TYPE_ELEMENT) return nullptr;
    return xmlItemsTakeItemElementAt(&VO_EDIT(el)->items, index);
}

XML_NS_ELEMENT *xmlNsElementTakeItemElementAt(XML_NS_ELEMENT **el, int64_t index) {
    VO_ASSERT_REF(el);
    if (xmlNsElementItemTypeAt(*el, index) != XML_ITEM_TYPE_ELEMENT) return nullptr;
    return xmlNsItemsTakeItemElementAt(&VO_EDIT(el)->items, index);
}

// ---------------------------------------------------------------- from a document

namespace {

/// The items of a private document, to be changed: converts to what changing functions take.
class ItemsEdit {
  public:
    explicit ItemsEdit(XML_DOCUMENT *own) : document(own), items(xml::itemsOf(own)) {}
    ItemsEdit(const ItemsEdit &) = delete;
    ItemsEdit &operator=(const ItemsEdit &) = delete;
    ~ItemsEdit() { document->items.set(items); }

    operator XML_ITEMS **() { return &items; }

  private:
    XML_DOCUMENT *document;
    XML_ITEMS *items;
};

/// Where the root is or was: the index of the first element or of the item that says that one was
/// taken; -1 when there is neither.
template <class Layer, class List, class Item>
int64_t rootPlace(Layer layer, List *items, Item *taken) {
    const int64_t element = findElement(layer, items, 0, ElementName());
    voVector *made = items->itemsVector.made();
    const int64_t end = element >= 0 ? element : made ? made->length : 0;
    for (int64_t i = 0; made && i < end; ++i)
        if (made->items()[i] == vo::obj(taken)) return i;
    return element;
}

} // namespace

XML_ELEMENT *xmlDocumentTakeRoot(XML_DOCUMENT **doc) {
    VO_ASSERT_REF(doc);
    const int64_t index = findElement(PlainLayer(), xml::itemsOf(*doc), 0, ElementName());
    if (index < 0) return nullptr;
    return xmlItemsTakeItemElementAt(ItemsEdit(VO_EDIT(doc)), index);
}

XML_NS_ELEMENT *xmlNsDocumentTakeRoot(XML_NS_DOCUMENT **doc) {
    VO_ASSERT_REF(doc);
    const int64_t index = findElement(NsLayer(), (*doc)->items, 0, ElementName());
    if (index < 0) return nullptr;
    return xmlNsItemsTakeItemElementAt(&VO_EDIT(doc)->items, index);
}

void xmlDocumentSetRoot(XML_DOCUMENT **doc, XML_ELEMENT *root) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(root);
    const int64_t index = rootPlace(PlainLayer(), xml::itemsOf(*doc), takenItem);
    ItemsEdit items(VO_EDIT(doc));
    if (index < 0)
        xmlItemsAppendItemElement(items, root);
    else
        xmlItemsSetItemElementAt(items, index, root);
}

void xmlNsDocumentSetRoot(XML_NS_DOCUMENT **doc, XML_NS_ELEMENT *root) {
    VO_ASSERT_REF(doc);
    VO_ASSERT(root);
    const int64_t index = rootPlace(NsLayer(), (*doc)->items, takenNsItem);
    XML_NS_ITEMS **items = &VO_EDIT(doc)->items;
    if (index < 0)
        xmlNsItemsAppendItemElement(items, root);
    else
        xmlNsItemsSetItemElementAt(items, index, root);
}
