#include "xml/xml_document_encode.h"

#include "source/vo/vo_allocator.hpp"
#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_character_data.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/base/xml_writer.hpp"
#include "source/xml/ns/xml_ns_encoding.hpp"
#include "source/xml/outline/xml_outline_text.hpp"
#include "xml/xml_item_type.h"

#include <algorithm>

using vo::Ref;

namespace {

/// Writes one document, borrowing what it reads: the document holds all of it.
class Encoder {
  public:
    /// The text as UTF-8, or null when a string holds something that is not a character.
    Ref<voBuffer> run(XML_DOCUMENT *document, bool omitDeclaration) {
        if (!omitDeclaration) out.declaration(document);
        if (const Ref encoding = document->items.holdPending())
            xml::writeItems(encoding, out);
        else
            content(xml::itemsOf(document));
        return out.finish();
    }

  private:
    struct Open {
        XML_ELEMENT *element; ///< Null for the document.
        voObj **next;         ///< The child to be written next.
        voObj **end;
    };

    /// Open elements wait on a stack, so that depth costs memory and never the call stack.
    void content(XML_ITEMS *items) {
        if (!pendingItems(items)) enter(nullptr, items);
        while (!open.empty()) {
            if (open.back().next < open.back().end)
                item(open.back());
            else
                leave();
        }
    }

    static XML_ITEM *itemAt(const Open &list) { return reinterpret_cast<XML_ITEM *>(*list.next); }

    void item(Open &list) {
        XML_ITEM *item = itemAt(list);
        if (item->value.hold(source)) return pendingNodes(list);
        ++list.next;
        voObj *node = xml::nodeOf(item);
        if (item->type() == XML_ITEM_TYPE_ELEMENT)
            element(reinterpret_cast<XML_ELEMENT *>(node));
        else
            out.characterData(item->type(), node);
    }

    // ---------------------------------------------------------------- parts that are not made

    /// Writes the items from the text if they are not made; gives whether it did.
    bool pendingItems(XML_ITEMS *items) {
        if (!items->itemsVector.hold(source)) return false;
        const auto [from, to] = source->contentOf(items->element);
        xml::writeText(*source, from, to, out);
        return true;
    }

    /// Writes the next node, which is not made, and as many items behind it as hold what follows it
    /// in the text, as one piece of the text. A node that is the last child of its parent there
    /// ends the piece, since the end tag of that parent comes next.
    void pendingNodes(Open &list) {
        const uint64_t first = itemAt(list)->number();
        uint64_t last = first;
        bool isLast = itemAt(list)->isLast();
        for (++list.next; !isLast && list.next < list.end; ++list.next) {
            XML_ITEM *item = itemAt(list);
            const uint64_t number = source->behind(last);
            if (item->value.pending() == source && item->number() == number)
                isLast = item->isLast();
            else if (isTextAt(item, number))
                isLast = endsContent(number);
            else
                break;
            last = number;
        }
        xml::writeText(*source, xml::Outline::placeOf(source->node(first)),
                       source->endPlaceOf(last), out);
    }

    /// Whether the item is a made text of the ASCII characters that stand at the record.
    bool isTextAt(XML_ITEM *item, uint64_t number) {
        const xml::Node node = source->node(number);
        voObj *made = item->value.made();
        if (!made || item->type() != XML_ITEM_TYPE_TEXT || node.kind != XML_ITEM_TYPE_TEXT)
            return false;
        voString *value = reinterpret_cast<XML_TEXT *>(made)->value;
        const xml::Piece piece = source->pieceOf(node);
        const auto isSame = [](uint8_t byte, uint32_t ch) { return byte == ch && byte < 128; };
        return value->length == piece.size() &&
               std::equal(piece.begin, piece.end, value->items(), isSame);
    }

    /// Whether an end tag stands behind the text at the record.
    bool endsContent(uint64_t text) {
        const uint8_t *behind = source->at(source->node(text).end);
        return text + 1 == source->count || (behind[0] == '<' && behind[1] == '/');
    }

    // ---------------------------------------------------------------- elements

    void element(XML_ELEMENT *element) {
        out.ascii("<");
        out.string(element->name);
        attributes(element->attributes->vector);
        if (isEmpty(element->items)) return out.ascii("/>");
        out.ascii(">");
        if (pendingItems(element->items))
            out.enclosed("</", element->name, ">");
        else
            enter(element, element->items);
    }

    /// A list that is not made is never empty.
    static bool isEmpty(XML_ITEMS *items) {
        const voVector *made = items->itemsVector.made();
        return made && made->length == 0;
    }

    void attributes(voVector *attributes) {
        for (int64_t i = 0; i < attributes->length; ++i) {
            auto *attr = reinterpret_cast<XML_ATTRIBUTE *>(attributes->items()[i]);
            out.attribute(attr->name, attr->text->value);
        }
    }

    void enter(XML_ELEMENT *element, XML_ITEMS *items) {
        voVector *vector = xml::vectorOf(items);
        open.push_back({element, vector->items(), vector->items() + vector->length});
    }

    void leave() {
        if (XML_ELEMENT *element = open.back().element) out.enclosed("</", element->name, ">");
        open.pop_back();
    }

    xml::Writer out;
    vo::Vec<Open> open;
    Ref<xml::Outline> source; ///< The outline that hold() has found last.
};

} // namespace

voBuffer *xmlDocumentTryEncode(XML_DOCUMENT *doc, XML_OPTIONS *opt) {
    VO_ASSERT(doc);
    VO_ASSERT(opt);
    bool omitDeclaration = xmlOptionsFlags(opt) & XML_FLAG_ENCODE_OMIT_XML_DECLARATION;
    Ref utf8 = Encoder().run(doc, omitDeclaration);
    if (!utf8) return nullptr;
    return vo___Utf8TryEncode(doc->charset, utf8, xmlOptionsEncodeCharsetFlags(opt));
}
