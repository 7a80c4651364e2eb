#include "files.hpp"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace tool {
namespace {

/// An open file.
class Descriptor {
  public:
    explicit Descriptor(int opened) : number(opened) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() {
        if (number > STDERR_FILENO) close(number);
    }
    operator int() const { return number; }

  private:
    int number;
};

/// Keeps the signals by which users end a program waiting, so that no draft outlives it.
class SignalsHeld {
  public:
    SignalsHeld() {
        sigset_t held;
        sigemptyset(&held);
        for (int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM})
            sigaddset(&held, signal);
        sigprocmask(SIG_BLOCK, &held, &before);
    }
    SignalsHeld(const SignalsHeld &) = delete;
    SignalsHeld &operator=(const SignalsHeld &) = delete;
    ~SignalsHeld() { sigprocmask(SIG_SETMASK, &before, nullptr); }

  private:
    sigset_t before;
};

/// A new file beside its target, gone again unless it takes the target's place.
class Draft {
  public:
    explicit Draft(const fs::path &directory)
        : path(directory / ".voxml-XXXXXX"), file(mkostemp(path.data(), O_CLOEXEC)),
          failure(file < 0 ? errno : 0) {}
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    ~Draft() {
        if (file >= 0 && !placed) unlink(path.c_str());
    }

    int fill(std::string_view contents, const struct stat *replaced) {
        if (failure == 0) failure = writeAll(file, contents);
        if (failure == 0) setRights(replaced);
        if (failure == 0) check(fsync(file));
        return failure;
    }

    int place(const fs::path &target) {
        check(rename(path.c_str(), target.c_str()));
        placed = failure == 0;
        return failure;
    }

  private:
    void check(int result) {
        if (result != 0) failure = errno;
    }

    /// Those of the replaced file, else those any new file gets. Only a privileged user can also
    /// keep another owner.
    void setRights(const struct stat *replaced) {
        const mode_t masked = umask(0);
        umask(masked);
        if (replaced && fchown(file, replaced->st_uid, replaced->st_gid) != 0) errno = 0;
        check(fchmod(file, replaced ? replaced->st_mode & 07777 : 0666 & ~masked));
    }

    std::string path;
    Descriptor file;
    int failure;
    bool placed = false;
};

/// The file that a chain of symbolic links ends at, whether it exists or not.
fs::path followLinks(fs::path path) {
    constexpr int mostLinks = 40;
    std::error_code ignored;
    for (int links = 0; links < mostLinks && fs::is_symlink(path, ignored); ++links)
        path = path.parent_path() / fs::read_symlink(path, ignored);
    return path;
}

/// Makes a rename in `directory` durable. Not every file system can, and the file is whole anyway.
void syncDirectory(const fs::path &directory) {
    Descriptor opened(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened >= 0) fsync(opened);
}

int writeDirectly(const std::string &path, std::string_view contents) {
    Descriptor opened(open(path.c_str(), O_WRONLY | O_CLOEXEC));
    return opened < 0 ? errno : writeAll(opened, contents);
}

int readAll(int descriptor, std::vector<uint8_t> &bytes) {
    struct stat status;
    if (fstat(descriptor, &status) != 0) return errno;
    // One byte more than the file has, so that the end is met without growing.
    size_t used = 0;
    bytes.resize(status.st_size > 0 ? static_cast<size_t>(status.st_size) + 1 : 1 << 16);
    for (;;) {
        if (used == bytes.size()) bytes.resize(2 * used);
        const ssize_t got = read(descriptor, bytes.data() + used, bytes.size() - used);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) break;
        used += static_cast<size_t>(got);
    }
    bytes.resize(used);
    return 0;
}

} // namespace

void prepareStreams() {
    for (int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        // Opened the wrong way round, so that using the stream still fails.
        if (fcntl(stream, F_GETFD) < 0)
            (void)!open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
    (void)std::signal(SIGXFSZ, SIG_IGN);
}

int readFile(const std::string &path, Ref<voBuffer> &contents) {
    Descriptor file(path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (file < 0) return errno;
    // An input may be larger than the memory there is, or have no end.
    try {
        std::vector<uint8_t> bytes;
        if (int failure = readAll(file, bytes)) return failure;
        contents =
            Ref(voBufferCreateFromBytesCopy(bytes.data(), static_cast<int64_t>(bytes.size())));
        return 0;
    } catch (const std::bad_alloc &) {
        return ENOMEM;
    } catch (const std::length_error &) {
        return ENOMEM;
    }
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

int replaceFile(const std::string &path, std::string_view contents) {
    struct stat found;
    const bool exists = stat(path.c_str(), &found) == 0;
    if (!exists && errno != ENOENT) return errno;
    if (exists && !S_ISREG(found.st_mode)) return writeDirectly(path, contents);

    const fs::path target = followLinks(path);
    const fs::path directory = target.has_parent_path() ? target.parent_path() : ".";
    SignalsHeld signalsHeld;
    Draft draft(directory);
    if (int failure = draft.fill(contents, exists ? &found : nullptr)) return failure;
    if (int failure = draft.place(target)) return failure;
    syncDirectory(directory);
    return 0;
}

} // namespace tool
