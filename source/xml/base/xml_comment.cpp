#include "xml/xml_comment.h"

#include "source/xml/base/xml_comment.hpp"
#include "source/xml/base/xml_object.hpp"
#include "xml/xml_value.h"

XML_OBJECT(Comment, XML_COMMENT, comment);
XML_LOCATION(Comment, XML_COMMENT, comment);

XML_COMMENT *xmlCommentCreate(voString *value) {
    VO_ASSERT(xmlValueCommentOk( value ));
    return xml::createCharacterData<XML_COMMENT>(xmlCommentSort(), value);
}

voString *xmlCommentValue(XML_COMMENT *comment) { return vo::retained(VO_READ(comment)->value); }

void xmlCommentSetValue(XML_COMMENT **comment, voString *value) {
    VO_ASSERT_REF(comment);
    VO_ASSERT(xmlValueCommentOk( value ));
    vo::assign(VO_EDIT(comment)->value, value);
}
