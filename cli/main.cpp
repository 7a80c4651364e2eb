// The command-line tool.
#include "command_line.hpp"
#include "files.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <new>

#include <unistd.h>

using namespace tool;

namespace {

/// The library's shared state, for the time of the program.
struct Session {
    Session() { voModuleStartup(xmlModule()); }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;
    ~Session() { voModuleShutdown(xmlModule()); }
};

/// The libraries abort where memory is lacking. Users get a message and a status for that.
void answerLackOfMemory(int) {
    if (errno != ENOMEM) return;
    (void)!writeAll(STDERR_FILENO, "voxml: error: out of memory\n");
    std::_Exit(outOfMemory);
}

} // namespace

int main(int argc, char **argv) {
    prepareStreams();
    (void)std::signal(SIGABRT, answerLackOfMemory);
    Session session;
    try {
        return runCommandLine({argv + 1, argv + argc});
    } catch (const Stop &stop) {
        return stop.status;
    } catch (const std::bad_alloc &) {
        return reportMemory("voxml");
    }
}
