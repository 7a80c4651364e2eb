#include "files.hpp"

#include <cerrno>
#include <charconv>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace tool {

void prepareStreams() {
    for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // Standard input is opened for writing and the others for reading: using them still fails.
        if (fcntl(stream, F_GETFD) < 0)
            (void)!open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
    (void)std::signal(SIGXFSZ, SIG_IGN);
}

int readFile(const std::string &path, Ref<voBuffer> &contents) {
    int error = 0;
    contents = Ref(path == "-" ? voFileTryReadDescriptor(STDIN_FILENO, &error)
                               : voFileTryRead(path.c_str(), &error));
    return error;
}

int descriptorNamed(std::string_view path) {
    if (path == "/dev/stdout") return STDOUT_FILENO;
    if (path == "/dev/stderr") return STDERR_FILENO;
    for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
        int number = -1;
        if (!path.starts_with(folder)) continue;
        const char *end = path.data() + path.size();
        const auto read = std::from_chars(path.data() + folder.size(), end, number);
        if (read.ec == std::errc() && read.ptr == end) return number;
    }
    return -1;
}

int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes.remove_prefix(static_cast<size_t>(written));
    }
    return 0;
}

} // namespace tool
