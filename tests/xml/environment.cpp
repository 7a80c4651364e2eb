// Keeps the module started while the tests run.
#include "xml/xml_module.h"

#include <gtest/gtest.h>

namespace {

class StartedModule : public testing::Environment {
    void SetUp() override { ASSERT_EQ(voModuleStartup(xmlModule()), 1); }
    void TearDown() override { voModuleShutdown(xmlModule()); }
};

[[maybe_unused]] testing::Environment *const environment =
    testing::AddGlobalTestEnvironment(new StartedModule);

} // namespace
