// The two kinds of tree behind one set of names, for code that walks either.
#pragma once

#include "ref.hpp"

#include "xml/xml.h"

namespace tool {

struct Plain {
    using Element = XML_ELEMENT;
    using Items = XML_ITEMS;
    using Attribute = XML_ATTRIBUTE;

    static constexpr auto elementItems = xmlElementItems;
    static constexpr auto elementLocation = xmlElementLocation;
    static constexpr auto attributesLength = xmlElementAttributesLength;
    static constexpr auto attributeAt = xmlElementAttributeAt;
    static constexpr auto attributeValue = xmlAttributeTextValue;
    static constexpr auto attributeLocation = xmlAttributeLocation;

    static constexpr auto length = xmlItemsLength;
    static constexpr auto typeAt = xmlItemsItemTypeAt;
    static constexpr auto elementAt = xmlItemsItemElementAt;
    static constexpr auto instructionAt = xmlItemsItemProcessingInstructionAt;
    static constexpr auto commentAt = xmlItemsItemCommentAt;
    static constexpr auto textAt = xmlItemsItemTextAt;
    static constexpr auto cdataAt = xmlItemsItemCdataAt;
};

struct Namespaced {
    using Element = XML_NS_ELEMENT;
    using Items = XML_NS_ITEMS;
    using Attribute = XML_NS_ATTRIBUTE;

    static constexpr auto elementItems = xmlNsElementItems;
    static constexpr auto elementLocation = xmlNsElementLocation;
    static constexpr auto attributesLength = xmlNsElementAttributesLength;
    static constexpr auto attributeAt = xmlNsElementAttributeAt;
    static constexpr auto attributeValue = xmlNsAttributeTextValue;
    static constexpr auto attributeLocation = xmlNsAttributeLocation;

    static constexpr auto length = xmlNsItemsLength;
    static constexpr auto typeAt = xmlNsItemsItemTypeAt;
    static constexpr auto elementAt = xmlNsItemsItemElementAt;
    static constexpr auto instructionAt = xmlNsItemsItemProcessingInstructionAt;
    static constexpr auto commentAt = xmlNsItemsItemCommentAt;
    static constexpr auto textAt = xmlNsItemsItemTextAt;
    static constexpr auto cdataAt = xmlNsItemsItemCdataAt;
};

} // namespace tool
