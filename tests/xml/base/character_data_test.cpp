// CDATA sections, comments and processing instructions: three types, one behaviour.
#include "tests/support.hpp"
#include "xml/xml_cdata.h"
#include "xml/xml_comment.h"
#include "xml/xml_processing_instruction.h"

namespace {

struct Cdata {
    static constexpr auto create = xmlCdataCreate;
    static constexpr auto retain = xmlCdataRetain;
    static constexpr auto value = xmlCdataValue;
    static constexpr auto setValue = xmlCdataSetValue;
    static constexpr const char *bad = "a]]>b";
    static constexpr const char *check = "xmlValueCdataOk( value )";
    static constexpr const char *file = "source/xml/base/xml_cdata.cpp";
};

struct Comment {
    static constexpr auto create = xmlCommentCreate;
    static constexpr auto retain = xmlCommentRetain;
    static constexpr auto value = xmlCommentValue;
    static constexpr auto setValue = xmlCommentSetValue;
    static constexpr const char *bad = "a--b";
    static constexpr const char *check = "xmlValueCommentOk( value )";
    static constexpr const char *file = "source/xml/base/xml_comment.cpp";
};

struct ProcessingInstruction {
    static constexpr auto create = xmlProcessingInstructionCreate;
    static constexpr auto retain = xmlProcessingInstructionRetain;
    static constexpr auto value = xmlProcessingInstructionValue;
    static constexpr auto setValue = xmlProcessingInstructionSetValue;
    static constexpr const char *bad = " t";
    static constexpr const char *check = "xmlValueProcessingInstructionValueOk( value )";
    static constexpr const char *file = "source/xml/base/xml_processing_instruction.cpp";
};

} // namespace

template <class Type> class CharacterData : public testing::Test {};
using Types = testing::Types<Cdata, Comment, ProcessingInstruction>;
TYPED_TEST_SUITE(CharacterData, Types);

TYPED_TEST(CharacterData, ChangesInPlaceUnlessShared) {
    Ref<voString> first = test::str("first"), second = test::str("second");
    Ref node(TypeParam::create(first));
    Ref shared(TypeParam::retain(node));
    TypeParam::setValue(node.edit(), second);
    EXPECT_NE(node, shared);
    EXPECT_EQ(Ref(TypeParam::value(shared)), first);
    EXPECT_EQ(Ref(TypeParam::value(node)), second);

    auto *sole = node.operator->();
    TypeParam::setValue(node.edit(), second); // to what it holds already
    EXPECT_EQ(node.operator->(), sole);
    EXPECT_EQ(Ref(TypeParam::value(node)), second);
}

TYPED_TEST(CharacterData, ChecksItsValue) {
    Ref node(TypeParam::create(test::str("value")));
    Ref<voString> bad = test::str(TypeParam::bad);
    EXPECT_ABORT(Ref made(TypeParam::create(bad)), TypeParam::file, TypeParam::check);
    EXPECT_ABORT(TypeParam::setValue(node.edit(), bad), TypeParam::file, TypeParam::check);
}
