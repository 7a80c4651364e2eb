#include "source/vo/vo_module.hpp"
#include "tests/support.hpp"

#include <atomic>
#include <thread>
#include <vector>

namespace {

std::atomic<int> running, starts; ///< Of the module `inner`.
std::atomic<bool> willing;

int startInner() {
    if (!willing) return 0;
    ++starts;
    ++running;
    return 1;
}

constinit voModule inner = {{nullptr, 1}, nullptr, startInner, nullptr, [] { --running; }, {}, 0};
constinit voModule outer = {{nullptr, 1},
                            nullptr,
                            [] { return voModuleStartup(&inner); },
                            nullptr,
                            [] { voModuleShutdown(&inner); },
                            {},
                            0};

class Module : public testing::Test {
    void SetUp() override {
        starts = 0;
        willing = true;
    }
    void TearDown() override { EXPECT_EQ(running, 0); }
};

} // namespace

TEST_F(Module, StartsWithItsFirstUserAndStopsWithItsLast) {
    EXPECT_EQ(voModuleStartup(&inner), 1);
    EXPECT_EQ(voModuleStartup(&inner), 1);
    voModuleShutdown(&inner);
    EXPECT_EQ(running, 1);
    voModuleShutdown(&inner);
    EXPECT_EQ(running, 0);
    EXPECT_EQ(voModuleStartup(&inner), 1);
    voModuleShutdown(&inner);
    EXPECT_EQ(starts, 2);
    EXPECT_ABORT(voModuleShutdown(&inner), "source/vo/vo_module.cpp", "module->users > 0");
}

TEST_F(Module, MayStartAnother) {
    EXPECT_EQ(voModuleStartup(&outer), 1);
    EXPECT_EQ(running, 1);
    voModuleShutdown(&outer);
}

TEST_F(Module, GainsNoUserWhenItCannotStart) {
    willing = false;
    EXPECT_EQ(voModuleStartup(&outer), 0);
    willing = true;
    EXPECT_EQ(voModuleStartup(&outer), 1);
    voModuleShutdown(&outer);
}

TEST_F(Module, IsStartedByOneOfManyThreads) {
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([] {
            for (int round = 0; round < 500; ++round) {
                voModuleStartup(&outer);
                EXPECT_EQ(running, 1);
                voModuleShutdown(&outer);
            }
        });
    for (std::thread &thread : threads)
        thread.join();
}
