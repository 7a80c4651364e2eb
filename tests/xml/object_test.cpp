// The operations that every type has, and those of every node's location.
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
#include "source/xml/ns/xml_ns_attribute.hpp"
#include "source/xml/ns/xml_ns_attributes.hpp"
#include "source/xml/ns/xml_ns_document.hpp"
#include "source/xml/ns/xml_ns_element.hpp"
#include "source/xml/ns/xml_ns_item.hpp"
#include "source/xml/ns/xml_ns_items.hpp"
#include "tests/common_operations.hpp"
#include "xml/xml.h"

using namespace test;

extern "C" void xml___AttributeFreeFunc(voObj *obj);

namespace {

/// The copy is an object of its own that shares every field.
template <class T> void checkCopy(T *taken, T *(*createFrom)(T *)) {
    Ref source(taken), copy(createFrom(source));
    const voObj *object = vo::obj(copy.operator->());
    SCOPED_TRACE(vo::sortOf(object)->name);
    EXPECT_NE(copy, source);
    EXPECT_EQ(vo::sortOf(object), vo::sortOf(vo::obj(taken)));
    EXPECT_EQ(object->refs, 1);
    EXPECT_TRUE(copy->fields() == source->fields());
}

template <class T>
void checkLocation(T *taken, voParserLocation *(*location)(T *), int (*hasLocation)(T *),
                   void (*setLocation)(T **, voParserLocation *), void (*delLocation)(T **)) {
    SCOPED_TRACE(vo::sortOf(vo::obj(taken))->name);
    Ref node(taken), other(vo::retained(taken));
    Ref place(voParserLocationCreate(nullptr, 0, 1, 1));
    setLocation(node.edit(), place);
    EXPECT_EQ(Ref(location(node)), place);
    EXPECT_EQ(hasLocation(node), 1);
    EXPECT_EQ(hasLocation(other), 0);
    T *sole = node;
    delLocation(node.edit());
    EXPECT_EQ(node, sole);
    EXPECT_FALSE(Ref(location(node)));
}

} // namespace

TEST(Object, OfThePlainTreeHasTheCommonOperations) {
    Ref name = str("name");
    checkCommonOperations("XML_ATTRIBUTE", xmlAttributeSort, xmlAttributeRetain,
                          xmlAttributeRelease, xmlAttributeObj, xmlAttributeFrom,
                          xmlAttributeToString, xmlAttributeCompare, xmlAttributeEquals,
                          xmlAttributeCreate(name), xmlAttributeCreate(name));
    checkCommonOperations("XML_ATTRIBUTES", xmlAttributesSort, xmlAttributesRetain,
                          xmlAttributesRelease, xmlAttributesObj, xmlAttributesFrom,
                          xmlAttributesToString, xmlAttributesCompare, xmlAttributesEquals,
                          xmlAttributesCreate(), xmlAttributesCreate());
    checkCommonOperations("XML_CDATA", xmlCdataSort, xmlCdataRetain, xmlCdataRelease, xmlCdataObj,
                          xmlCdataFrom, xmlCdataToString, xmlCdataCompare, xmlCdataEquals,
                          xmlCdataCreate(name), xmlCdataCreate(name));
    checkCommonOperations("XML_COMMENT", xmlCommentSort, xmlCommentRetain, xmlCommentRelease,
                          xmlCommentObj, xmlCommentFrom, xmlCommentToString, xmlCommentCompare,
                          xmlCommentEquals, xmlCommentCreate(name), xmlCommentCreate(name));
    checkCommonOperations("XML_DOCUMENT", xmlDocumentSort, xmlDocumentRetain, xmlDocumentRelease,
                          xmlDocumentObj, xmlDocumentFrom, xmlDocumentToString, xmlDocumentCompare,
                          xmlDocumentEquals, xmlDocumentCreate(), xmlDocumentCreate());
    checkCommonOperations("XML_ELEMENT", xmlElementSort, xmlElementRetain, xmlElementRelease,
                          xmlElementObj, xmlElementFrom, xmlElementToString, xmlElementCompare,
                          xmlElementEquals, xmlElementCreate(name), xmlElementCreate(name));
    checkCommonOperations("XML_ITEM", xmlItemSort, xmlItemRetain, xmlItemRelease, xmlItemObj,
                          xmlItemFrom, xmlItemToString, xmlItemCompare, xmlItemEquals,
                          xmlItemCreateTextValue(name), xmlItemCreateTextValue(name));
    checkCommonOperations("XML_ITEMS", xmlItemsSort, xmlItemsRetain, xmlItemsRelease, xmlItemsObj,
                          xmlItemsFrom, xmlItemsToString, xmlItemsCompare, xmlItemsEquals,
                          xmlItemsCreate(), xmlItemsCreate());
    checkCommonOperations("XML_PROCESSING_INSTRUCTION", xmlProcessingInstructionSort,
                          xmlProcessingInstructionRetain, xmlProcessingInstructionRelease,
                          xmlProcessingInstructionObj, xmlProcessingInstructionFrom,
                          xmlProcessingInstructionToString, xmlProcessingInstructionCompare,
                          xmlProcessingInstructionEquals, xmlProcessingInstructionCreate(name),
                          xmlProcessingInstructionCreate(name));
    checkCommonOperations("XML_TEXT", xmlTextSort, xmlTextRetain, xmlTextRelease, xmlTextObj,
                          xmlTextFrom, xmlTextToString, xmlTextCompare, xmlTextEquals,
                          xmlTextCreate(), xmlTextCreate());
}

TEST(Object, OfTheNamespaceTreeHasTheCommonOperations) {
    Ref name = str("name");
    checkCommonOperations("XML_NS_ATTRIBUTE", xmlNsAttributeSort, xmlNsAttributeRetain,
                          xmlNsAttributeRelease, xmlNsAttributeObj, xmlNsAttributeFrom,
                          xmlNsAttributeToString, xmlNsAttributeCompare, xmlNsAttributeEquals,
                          xmlNsAttributeCreate(name, nullptr), xmlNsAttributeCreate(name, nullptr));
    checkCommonOperations("XML_NS_ATTRIBUTES", xmlNsAttributesSort, xmlNsAttributesRetain,
                          xmlNsAttributesRelease, xmlNsAttributesObj, xmlNsAttributesFrom,
                          xmlNsAttributesToString, xmlNsAttributesCompare, xmlNsAttributesEquals,
                          xmlNsAttributesCreate(), xmlNsAttributesCreate());
    checkCommonOperations("XML_NS_DOCUMENT", xmlNsDocumentSort, xmlNsDocumentRetain,
                          xmlNsDocumentRelease, xmlNsDocumentObj, xmlNsDocumentFrom,
                          xmlNsDocumentToString, xmlNsDocumentCompare, xmlNsDocumentEquals,
                          xmlNsDocumentCreate(), xmlNsDocumentCreate());
    checkCommonOperations("XML_NS_ELEMENT", xmlNsElementSort, xmlNsElementRetain,
                          xmlNsElementRelease, xmlNsElementObj, xmlNsElementFrom,
                          xmlNsElementToString, xmlNsElementCompare, xmlNsElementEquals,
                          xmlNsElementCreate(name, nullptr), xmlNsElementCreate(name, nullptr));
    checkCommonOperations("XML_NS_ITEM", xmlNsItemSort, xmlNsItemRetain, xmlNsItemRelease,
                          xmlNsItemObj, xmlNsItemFrom, xmlNsItemToString, xmlNsItemCompare,
                          xmlNsItemEquals, xmlNsItemCreateTextValue(name),
                          xmlNsItemCreateTextValue(name));
    checkCommonOperations("XML_NS_ITEMS", xmlNsItemsSort, xmlNsItemsRetain, xmlNsItemsRelease,
                          xmlNsItemsObj, xmlNsItemsFrom, xmlNsItemsToString, xmlNsItemsCompare,
                          xmlNsItemsEquals, xmlNsItemsCreate(), xmlNsItemsCreate());
    checkCommonOperations("XML_NS_NAMESPACE_MAP", xmlNsNamespaceMapSort, xmlNsNamespaceMapRetain,
                          xmlNsNamespaceMapRelease, xmlNsNamespaceMapObj, xmlNsNamespaceMapFrom,
                          xmlNsNamespaceMapToString, xmlNsNamespaceMapCompare,
                          xmlNsNamespaceMapEquals, xmlNsNamespaceMapCreate(),
                          xmlNsNamespaceMapCreate());
    checkCommonOperations(
        "XML_NS_NAMESPACE_MAPPING", xmlNsNamespaceMappingSort, xmlNsNamespaceMappingRetain,
        xmlNsNamespaceMappingRelease, xmlNsNamespaceMappingObj, xmlNsNamespaceMappingFrom,
        xmlNsNamespaceMappingToString, xmlNsNamespaceMappingCompare, xmlNsNamespaceMappingEquals,
        xmlNsNamespaceMappingCreate(), xmlNsNamespaceMappingCreate());
}

TEST(Object, OutsideTheTreesHasTheCommonOperations) {
    Ref document(xmlDocumentCreate());
    checkCommonOperations("XML_CURSOR", xmlCursorSort, xmlCursorRetain, xmlCursorRelease,
                          xmlCursorObj, xmlCursorFrom, xmlCursorToString, xmlCursorCompare,
                          xmlCursorEquals, xmlCursorCreate(document), xmlCursorCreate(document));
    checkCommonOperations("XML_DECODE_ERROR", xmlDecodeErrorSort, xmlDecodeErrorRetain,
                          xmlDecodeErrorRelease, xmlDecodeErrorObj, xmlDecodeErrorFrom,
                          xmlDecodeErrorToString, xmlDecodeErrorCompare, xmlDecodeErrorEquals,
                          xmlDecodeErrorCreate(0, nullptr), xmlDecodeErrorCreate(0, nullptr));
    checkCommonOperations("XML_DECODE_RESULT", xmlDecodeResultSort, xmlDecodeResultRetain,
                          xmlDecodeResultRelease, xmlDecodeResultObj, xmlDecodeResultFrom,
                          xmlDecodeResultToString, xmlDecodeResultCompare, xmlDecodeResultEquals,
                          xmlDecodeResultCreate(document), xmlDecodeResultCreate(document));
    checkCommonOperations("XML_OPTIONS", xmlOptionsSort, xmlOptionsRetain, xmlOptionsRelease,
                          xmlOptionsObj, xmlOptionsFrom, xmlOptionsToString, xmlOptionsCompare,
                          xmlOptionsEquals, xmlOptionsCreate(), xmlOptionsCreate());
    const auto path = [] { return xmlPathTryCreate("a", -1, nullptr, nullptr); };
    checkCommonOperations("XML_PATH", xmlPathSort, xmlPathRetain, xmlPathRelease, xmlPathObj,
                          xmlPathFrom, xmlPathToString, xmlPathCompare, xmlPathEquals, path(),
                          path());
    const auto selection = [&] {
        return xmlPathSelect(Ref(path()), Ref(xmlCursorCreate(document)));
    };
    checkCommonOperations("XML_SELECTION", xmlSelectionSort, xmlSelectionRetain,
                          xmlSelectionRelease, xmlSelectionObj, xmlSelectionFrom,
                          xmlSelectionToString, xmlSelectionCompare, xmlSelectionEquals,
                          selection(), selection());
    checkCommonOperations("XML_NS_DECODE_ERROR", xmlNsDecodeErrorSort, xmlNsDecodeErrorRetain,
                          xmlNsDecodeErrorRelease, xmlNsDecodeErrorObj, xmlNsDecodeErrorFrom,
                          xmlNsDecodeErrorToString, xmlNsDecodeErrorCompare, xmlNsDecodeErrorEquals,
                          xmlNsDecodeErrorCreate(0, nullptr), xmlNsDecodeErrorCreate(0, nullptr));
    checkCommonOperations("XML_NS_DECODE_RESULT", xmlNsDecodeResultSort, xmlNsDecodeResultRetain,
                          xmlNsDecodeResultRelease, xmlNsDecodeResultObj, xmlNsDecodeResultFrom,
                          xmlNsDecodeResultToString, xmlNsDecodeResultCompare,
                          xmlNsDecodeResultEquals,
                          xmlNsDecodeResultCreate(Ref(xmlNsDocumentCreate())),
                          xmlNsDecodeResultCreate(Ref(xmlNsDocumentCreate())));
}

TEST(Object, OfThePlainTreeIsCopiedAndHasALocation) {
    Ref name = str("name");
    checkCopy(xmlAttributeCreate(name), xmlAttributeCreateFrom);
    checkLocation(xmlAttributeCreate(name), xmlAttributeLocation, xmlAttributeHasLocation,
                  xmlAttributeSetLocation, xmlAttributeDelLocation);
    checkCopy(xmlAttributesCreate(), xmlAttributesCreateFrom);
    checkCopy(xmlCdataCreate(name), xmlCdataCreateFrom);
    checkLocation(xmlCdataCreate(name), xmlCdataLocation, xmlCdataHasLocation, xmlCdataSetLocation,
                  xmlCdataDelLocation);
    checkCopy(xmlCommentCreate(name), xmlCommentCreateFrom);
    checkLocation(xmlCommentCreate(name), xmlCommentLocation, xmlCommentHasLocation,
                  xmlCommentSetLocation, xmlCommentDelLocation);
    checkCopy(xmlDocumentCreate(), xmlDocumentCreateFrom);
    checkLocation(xmlDocumentCreate(), xmlDocumentLocation, xmlDocumentHasLocation,
                  xmlDocumentSetLocation, xmlDocumentDelLocation);
    checkCopy(xmlElementCreate(name), xmlElementCreateFrom);
    checkLocation(xmlElementCreate(name), xmlElementLocation, xmlElementHasLocation,
                  xmlElementSetLocation, xmlElementDelLocation);
    checkCopy(xmlItemCreateTextValue(name), xmlItemCreateFrom);
    checkCopy(xmlItemsCreate(), xmlItemsCreateFrom);
    checkCopy(xmlProcessingInstructionCreate(name), xmlProcessingInstructionCreateFrom);
    checkLocation(xmlProcessingInstructionCreate(name), xmlProcessingInstructionLocation,
                  xmlProcessingInstructionHasLocation, xmlProcessingInstructionSetLocation,
                  xmlProcessingInstructionDelLocation);
    checkCopy(xmlTextCreate(), xmlTextCreateFrom);
    checkLocation(xmlTextCreate(), xmlTextLocation, xmlTextHasLocation, xmlTextSetLocation,
                  xmlTextDelLocation);
}

TEST(Object, OfTheNamespaceTreeIsCopiedAndHasALocation) {
    Ref name = str("name");
    checkCopy(xmlNsAttributeCreate(name, nullptr), xmlNsAttributeCreateFrom);
    checkLocation(xmlNsAttributeCreate(name, nullptr), xmlNsAttributeLocation,
                  xmlNsAttributeHasLocation, xmlNsAttributeSetLocation, xmlNsAttributeDelLocation);
    checkCopy(xmlNsAttributesCreate(), xmlNsAttributesCreateFrom);
    checkCopy(xmlNsDocumentCreate(), xmlNsDocumentCreateFrom);
    checkLocation(xmlNsDocumentCreate(), xmlNsDocumentLocation, xmlNsDocumentHasLocation,
                  xmlNsDocumentSetLocation, xmlNsDocumentDelLocation);
    checkCopy(xmlNsElementCreate(name, nullptr), xmlNsElementCreateFrom);
    checkLocation(xmlNsElementCreate(name, nullptr), xmlNsElementLocation, xmlNsElementHasLocation,
                  xmlNsElementSetLocation, xmlNsElementDelLocation);
    checkCopy(xmlNsItemCreateTextValue(name), xmlNsItemCreateFrom);
    checkCopy(xmlNsItemsCreate(), xmlNsItemsCreateFrom);
}

TEST(Object, OfNullIsNotFreed) {
    EXPECT_ABORT(xml___AttributeFreeFunc(nullptr), "source/xml/base/xml_attribute.cpp", "attr");
}
