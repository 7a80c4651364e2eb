#include "xml/xml_document_encode.h"

#include "source/vo/vo_allocator.hpp"
#include "source/xml/base/xml_attribute.hpp"
#include "source/xml/base/xml_attributes.hpp"
#include "source/xml/base/xml_cdata.hpp"
#include "source/xml/base/xml_comment.hpp"
#include "source/xml/base/xml_document.hpp"
#include "source/xml/base/xml_element.hpp"
#include "source/xml/base/xml_item.hpp"
#include "source/xml/base/xml_items.hpp"
#include "source/xml/base/xml_processing_instruction.hpp"
#include "source/xml/base/xml_text.hpp"
#include "source/xml/base/xml_writer.hpp"
#include "xml/xml_item_type.h"

using vo::Ref;

namespace {

/// Writes one document, borrowing what it reads: the document holds all of it.
class Encoder {
  public:
    /// The text as UTF-8, or null when a string holds something that is not a character.
    Ref<voBuffer> run(XML_DOCUMENT *document, bool omitDeclaration) {
        if (!omitDeclaration) declaration(document);
        content(document->items);
        return out.finish();
    }

  private:
    void declaration(XML_DOCUMENT *document) {
        out.ascii("<?xml");
        setting("version", document->version);
        setting("encoding", Ref(voCharsetToIanaName(document->charset)));
        if (document->standalone) setting("standalone", Ref(voStringCreateFromCstr("yes", -1)));
        out.ascii("?>");
    }

    void setting(std::string_view name, voString *value) {
        out.ascii(" ");
        out.ascii(name);
        out.ascii("=");
        out.quoted(value);
    }

    /// Open elements wait on a stack, so that depth costs memory and never the call stack.
    void content(XML_ITEMS *items) {
        enter(nullptr, items);
        while (!open.empty()) {
            if (open.back().next < open.back().end)
                item(reinterpret_cast<XML_ITEM *>(*open.back().next++));
            else
                leave();
        }
    }

    void item(XML_ITEM *item) {
        switch (item->type) {
        case XML_ITEM_TYPE_ELEMENT:
            return element(held<XML_ELEMENT>(item));
        case XML_ITEM_TYPE_PROCESSING_INSTRUCTION:
            return enclosed("<?", held<XML_PROCESSING_INSTRUCTION>(item)->value, "?>");
        case XML_ITEM_TYPE_COMMENT:
            return enclosed("<!--", held<XML_COMMENT>(item)->value, "-->");
        case XML_ITEM_TYPE_TEXT:
            return out.string(held<XML_TEXT>(item)->value);
        case XML_ITEM_TYPE_CDATA:
            return enclosed("<![CDATA[", held<XML_CDATA>(item)->value, "]]>");
        default:
            VO_UNREACHABLE();
        }
    }

    template <class Node> static Node *held(XML_ITEM *item) {
        return reinterpret_cast<Node *>(item->value);
    }

    void enclosed(std::string_view before, voString *value, std::string_view after) {
        out.ascii(before);
        out.string(value);
        out.ascii(after);
    }

    void element(XML_ELEMENT *element) {
        out.ascii("<");
        out.string(element->name);
        attributes(element->attributes->vector);
        if (element->items->itemsVector->length == 0) return out.ascii("/>");
        out.ascii(">");
        enter(element, element->items);
    }

    void attributes(voVector *attributes) {
        for (int64_t i = 0; i < attributes->length; ++i) {
            auto *attr = reinterpret_cast<XML_ATTRIBUTE *>(attributes->items()[i]);
            out.ascii(" ");
            out.string(attr->name);
            out.ascii("=");
            out.quoted(attr->text->value);
        }
    }

    void enter(XML_ELEMENT *element, XML_ITEMS *items) {
        voVector *vector = items->itemsVector;
        open.push_back({element, vector->items(), vector->items() + vector->length});
    }

    void leave() {
        if (XML_ELEMENT *element = open.back().element) enclosed("</", element->name, ">");
        open.pop_back();
    }

    struct Open {
        XML_ELEMENT *element; ///< Null for the document.
        voObj **next;         ///< The child to be written next.
        voObj **end;
    };

    xml::Writer out;
    vo::Vec<Open> open;
};

} // namespace

voBuffer *xmlDocumentTryEncode(XML_DOCUMENT *doc, XML_OPTIONS *opt) {
    VO_ASSERT(doc);
    VO_ASSERT(opt);
    bool omitDeclaration = xmlOptionsFlags(opt) & XML_FLAG_ENCODE_OMIT_XML_DECLARATION;
    Ref utf8 = Encoder().run(doc, omitDeclaration);
    if (!utf8) return nullptr;
    return voCharsetTryConvertUtf8ToBufferWithFlags(doc->charset, utf8,
                                                    xmlOptionsEncodeCharsetFlags(opt));
}
