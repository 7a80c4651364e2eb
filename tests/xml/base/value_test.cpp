#include "tests/support.hpp"
#include "xml/xml_value.h"

#include <vector>

namespace {

struct Check {
    int (*ok)(voString *);
    std::vector<std::u32string_view> accepted, rejected;
};

// A lone surrogate, a control character and a code point that is none stand for what only other
// rules of XML exclude.
const std::vector<Check> checks = {
    {xmlValueNameOk,
     {U"a", U"a:b", U"_x.y-z", U":", U"\u00E9t\u00E9"},
     {U"", U"1a", U"-a", U"a b", U"a ", U"a\uFFFE"}},
    {xmlValueProcessingInstructionValueOk,
     {U"target", U"target data", U"target?", U"xml version", U"t ?", U"t > ?", U"t \x01\uFFFE"},
     {U"", U" target", U"?>", U"t?>", U"t ?>", U"t a?>b",
      U"t a?"
      U"?>",
      U"1"}},
    {xmlValueCommentOk,
     {U" ", U"a-b", U" - ", U"a>b", U"\x01\uFFFE"},
     {U"", U"-", U"-a", U"a-", U"a--b", U"--"}},
    {xmlValueVersionNumOk,
     {U"1.0", U"1.1", U"1.0123456789"},
     {U"", U"1", U"1.", U"2.0", U"1.0 ", U"1.0a", U" 1.0"}},
    {xmlValueCdataOk,
     {U"", U"]]", U"]>", U"]] >", U"<&\x01\uFFFE"},
     {U"]]>", U"a]]>b", U"]]]>", U"a]]>"}},
    {xmlValueTextOk,
     {U"", U"a > b", U"&amp;&lt;", U"&#65;", U"&#x41;&any;", U"]]>", U"\x01\uFFFE"},
     {U"<", U"a<b", U"&", U"&amp", U"&#;", U"&#0;", U"& ;", U"&amp;<", U"&lt;&"}},
};

} // namespace

TEST(Value, MayHoldAnythingThatLeavesTheMarkupIntact) {
    const std::u32string surrogate = U"a" + std::u32string(1, char32_t(0xD800));
    for (const Check &check : checks) {
        SCOPED_TRACE(&check - checks.data());
        for (auto text : check.accepted)
            EXPECT_EQ(check.ok(test::str(text)), 1) << test::text(test::str(text));
        for (auto text : check.rejected)
            EXPECT_EQ(check.ok(test::str(text)), 0) << test::text(test::str(text));
    }
    EXPECT_EQ(xmlValueTextOk(test::str(surrogate)), 1);
    EXPECT_EQ(xmlValueNameOk(test::str(surrogate)), 0);
}

TEST(Value, AbortsWithTheNameOfTheParameterThatIsNull) {
    const std::pair<int (*)(voString *), const char *> rows[] = {
        {xmlValueNameOk, "name"},           {xmlValueProcessingInstructionValueOk, "value"},
        {xmlValueCommentOk, "commentText"}, {xmlValueVersionNumOk, "versionNum"},
        {xmlValueTextOk, "text"},
    };
    for (auto [ok, name] : rows)
        EXPECT_ABORT(ok(nullptr), "source/xml/base/xml_value.cpp", name);
}
