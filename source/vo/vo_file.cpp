// Whole files, by the calls of POSIX.
#include "vo/vo_file.h"

#include "source/vo/vo_buffer_builder.hpp"
#include "source/vo/vo_large_pages.hpp"
#include "source/vo/vo_live.hpp"
#include "vo/vo_string.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace vo {
namespace {

/// An open file, or the errno value that says why it is none.
class Descriptor {
  public:
    explicit Descriptor(int opened) : number(opened), error(opened < 0 ? errno : 0) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() {
        if (number >= 0) close(number);
    }
    operator int() const { return number; }
    int failure() const { return error; }

  private:
    const int number;
    const int error;
};

/// A buffer that grows until there is no memory, which is no reason to abort here.
class Growing {
  public:
    Growing() = default;
    Growing(const Growing &) = delete;
    Growing &operator=(const Growing &) = delete;
    ~Growing() { std::free(block); }

    bool reserve(int64_t wanted) {
        void *grown = std::realloc(block, size_t(blockSize<voBuffer>(wanted)));
        if (!grown) return false;
        if (blockSize<voBuffer>(wanted) >= largeBlock)
            preferLargePages(grown, blockSize<voBuffer>(wanted));
        block = static_cast<voBuffer *>(grown);
        room = wanted;
        return true;
    }

    /// The end of what was read.
    uint8_t *end() { return block->items() + used; }

    /// Hands it over, without the room that was not used; null when there is no memory.
    voBuffer *take() {
        if (!reserve(used)) return nullptr;
        new (&block->base) voObj{voBufferSort(), 1};
        countLive(1);
        block->length = used;
        return std::exchange(block, nullptr);
    }

    int64_t room = 0;
    int64_t used = 0;

  private:
    voBuffer *block = nullptr;
};

int readAll(int file, Growing &contents) {
    struct stat status;
    if (fstat(file, &status) != 0) return errno;
    // One byte more than the file has, so that the end is met without growing.
    constexpr int64_t usual = 1 << 16;
    if (!contents.reserve(status.st_size > 0 ? status.st_size + 1 : usual)) return ENOMEM;
    for (;;) {
        if (contents.used == contents.room && !contents.reserve(2 * contents.room)) return ENOMEM;
        const ssize_t got = read(file, contents.end(), size_t(contents.room - contents.used));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return errno;
        if (got == 0) return 0;
        contents.used += got;
    }
}

int writeAll(int file, Bytes bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes = bytes.subspan(size_t(written));
    }
    return 0;
}

/// Keeps the signals by which users end a program waiting in this thread, so that they leave no
/// draft behind. A program in which other threads take them ends all the same.
class SignalsHeld {
  public:
    SignalsHeld() {
        sigset_t held;
        sigemptyset(&held);
        for (int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM})
            sigaddset(&held, signal);
        pthread_sigmask(SIG_BLOCK, &held, &before);
    }
    SignalsHeld(const SignalsHeld &) = delete;
    SignalsHeld &operator=(const SignalsHeld &) = delete;
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }

  private:
    sigset_t before;
};

/// A new file in a directory, with a name that no other draft of this process has.
int openDraft(const fs::path &directory, mode_t mode, std::string &path) {
    static constinit std::atomic<uint64_t> drafts{0};
    for (;;) {
        path = directory / (".voxml-" + std::to_string(getpid()) + "-" +
                            std::to_string(drafts.fetch_add(1, std::memory_order_relaxed)));
        const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (file >= 0 || errno != EEXIST) return file;
    }
}

/// A new file beside its target, gone again unless it takes the target's place. Its rights are
/// those of the file that it replaces, else those that any new file gets.
class Draft {
  public:
    Draft(const fs::path &directory, const struct stat *optionalReplaced)
        : replaced(optionalReplaced), file(openDraft(directory, replaced ? 0600 : 0666, path)) {}
    Draft(const Draft &) = delete;
    Draft &operator=(const Draft &) = delete;
    ~Draft() {
        if (file >= 0 && !placed) unlink(path.c_str());
    }

    int fill(Bytes contents) {
        if (file < 0) return file.failure();
        if (const int failure = writeAll(file, contents)) return failure;
        if (replaced && !takeRights()) return errno;
        return fsync(file) == 0 ? 0 : errno;
    }

    int place(const fs::path &target) {
        placed = rename(path.c_str(), target.c_str()) == 0;
        return placed ? 0 : errno;
    }

  private:
    /// Takes over owner, group and mode. Rights of an owner or a group that cannot be kept are not
    /// given to another one. Changing the owner clears some of the mode, so the mode comes last.
    bool takeRights() {
        mode_t mode = replaced->st_mode & 07777;
        if (fchown(file, replaced->st_uid, replaced->st_gid) != 0) {
            mode &= ~mode_t{S_ISUID}; // Only a privileged user can keep another owner.
            if (fchown(file, uid_t(-1), replaced->st_gid) != 0) {
                const mode_t others = mode & S_IRWXO;
                mode = (mode & ~mode_t{S_ISGID | S_IRWXG}) | others << 3;
            }
        }
        return fchmod(file, mode) == 0;
    }

    const struct stat *replaced;
    std::string path;
    Descriptor file;
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
    const Descriptor opened(open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened >= 0) fsync(opened);
}

int writeDirectly(const char *path, Bytes contents) {
    const Descriptor opened(open(path, O_WRONLY | O_CLOEXEC));
    return opened < 0 ? opened.failure() : writeAll(opened, contents);
}

} // namespace
} // namespace vo

using namespace vo;

voBuffer *voFileTryRead(const char *path, int *error) {
    VO_ASSERT(path);
    VO_ASSERT(error);
    const Descriptor file(open(path, O_RDONLY | O_CLOEXEC));
    if (file >= 0) return voFileTryReadDescriptor(file, error);
    *error = file.failure();
    return nullptr;
}

voBuffer *voFileTryReadDescriptor(int descriptor, int *error) {
    VO_ASSERT(error);
    Growing contents;
    if (const int failure = readAll(descriptor, contents)) return *error = failure, nullptr;
    voBuffer *read = contents.take();
    if (!read) *error = ENOMEM;
    return read;
}

int voFileReplace(const char *path, voBuffer *contents) {
    VO_ASSERT(path);
    VO_ASSERT(contents);
    struct stat found;
    const bool exists = stat(path, &found) == 0;
    if (!exists && errno != ENOENT) return errno;
    if (exists && !S_ISREG(found.st_mode)) return writeDirectly(path, bytesOf(contents));

    const fs::path target = followLinks(path);
    const fs::path directory = target.has_parent_path() ? target.parent_path() : ".";
    const SignalsHeld signalsHeld;
    Draft draft(directory, exists ? &found : nullptr);
    if (const int failure = draft.fill(bytesOf(contents))) return failure;
    if (const int failure = draft.place(target)) return failure;
    syncDirectory(directory);
    return 0;
}

voString *voFileErrorText(int error) {
    const std::string text = std::generic_category().message(error);
    voString *string = voStringTryCreateFromUtf8(text.data(), int64_t(text.size()));
    return string ? string : voStringCreate();
}
