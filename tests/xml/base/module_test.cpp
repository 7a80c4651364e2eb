#include "source/vo/vo_live.hpp"
#include "source/vo/vo_module.hpp"
#include "source/xml/base/xml_module.hpp"
#include "tests/support.hpp"
#include "xml/xml.h"

namespace {

testing::AssertionResult matches(const char *text, const std::string &pattern) {
    if (testing::Matcher<std::string>(testing::MatchesRegex(pattern)).Matches(text))
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << text << " does not match " << pattern;
}

} // namespace

TEST(Module, TellsWhatItIsAndHowItWasBuilt) {
    EXPECT_EQ(xmlModule()->record, &xml___module_record);
    const xml::ModuleRecord &record = xml___module_record;
    EXPECT_EQ(record.format, 2);
    EXPECT_STREQ(record.name, "xml");
    EXPECT_STREQ(record.version, "1.0");
    EXPECT_STREQ(record.requiredModules, "vo");
    EXPECT_STREQ(record.furtherModules, "");
    EXPECT_EQ(voxmlVersion(),
              record.productMajor * 10000 + record.productMinor * 100 + record.productPatch);
    EXPECT_TRUE(matches(record.buildTime, "UTC [0-9]{4}-[0-9]{2}-[0-9]{2} "
                                          "[0-9]{2}:[0-9]{2}:[0-9]{2} \\([A-Z][a-z]+day\\)"));
    const std::string product =
        std::string(record.productName) + "-" + std::to_string(record.productMajor) + "\\." +
        std::to_string(record.productMinor) + "\\." + std::to_string(record.productPatch);
    EXPECT_TRUE(matches(xml___module_version_string,
                        "###[^#]+### " + product +
                            " \\([^,]+ [^,]+, [^,]+ \\([0-9]+ bit\\), [A-Za-z]+\\), xml 1\\.0"));
}

TEST(Module, DropsItsRegistriesWithTheLastUserAndStartsAgain) {
    const int64_t started = vo::liveObjects();
    ASSERT_EQ(voModuleStartup(xmlModule()), 1);
    voModuleShutdown(xmlModule());
    EXPECT_EQ(vo::liveObjects(), started) << "one user is left";

    voModuleShutdown(xmlModule());
    for (void *registry :
         {static_cast<void *>(xml___FlagsFlagset), static_cast<void *>(xml___ItemTypeEnum),
          static_cast<void *>(xml___DecodeErrorCodeEnum),
          static_cast<void *>(xml___NsDecodeErrorCodeEnum)})
        EXPECT_EQ(reinterpret_cast<uintptr_t>(registry), ~uintptr_t{0});

    ASSERT_EQ(voModuleStartup(xmlModule()), 1);
    EXPECT_EQ(vo::liveObjects(), started) << "shutting down released everything";
    EXPECT_EQ(test::take(xml___NsBuiltinNamespacesXmlPrefix()), "xml");
    EXPECT_EQ(xmlItemTypeFromString(test::str("XML_ITEM_TYPE_CDATA")), XML_ITEM_TYPE_CDATA);
}
