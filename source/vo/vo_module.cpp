#include "source/vo/vo_module.hpp"

#include "source/vo/vo_layout.hpp"

#include <mutex>

/// Held while a module starts or shuts down, so that nobody uses it half-way. Recursive, because a
/// module may start another one.
static constinit std::recursive_mutex mutex;

uint64_t vo___Layout(void) { return vo::layout; }

int voModuleStartup(voModule *module) {
    VO_ASSERT(module);
    std::lock_guard lock(mutex);
    if (!module->users && module->startup && !module->startup()) return 0;
    ++module->users;
    return 1;
}

void voModuleShutdown(voModule *module) {
    VO_ASSERT(module);
    std::lock_guard lock(mutex);
    VO_ASSERT(module->users > 0);
    if (--module->users == 0 && module->shutdown) module->shutdown();
}
