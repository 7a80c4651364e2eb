#include "inorder.hpp"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>
#include <optional>
#include <thread>

namespace tool {
namespace {

using Handle = std::function<Status(const std::string &)>;

/// What became of a file.
struct Outcome {
    Status status = fine;
    Transcript transcript;
};

/// Hands the files out to threads and collects what they write. They run ahead of what is shown
/// only so far, so that memory does not grow with the number of files.
class Workers {
  public:
    Workers(const std::vector<std::string> &list, const Handle &function, size_t threads)
        : files(list), handle(function), ahead(16 * threads) {
        for (size_t i = 0; i < std::min(threads, files.size()); ++i)
            crew.emplace_back([this] { work(); });
    }
    Workers(const Workers &) = delete;
    Workers &operator=(const Workers &) = delete;
    ~Workers() {
        {
            const std::lock_guard lock(mutex);
            next = files.size();
        }
        changed.notify_all();
        for (std::thread &thread : crew)
            thread.join();
    }

    /// The outcome of the next file, once it is there.
    Outcome take() {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return !outcomes.empty() && outcomes.front(); });
        Outcome first = *std::move(outcomes.front());
        outcomes.pop_front();
        ++taken;
        lock.unlock();
        changed.notify_all();
        return first;
    }

  private:
    void work() {
        std::unique_lock lock(mutex);
        for (;;) {
            changed.wait(lock, [this] { return next - taken < ahead || next == files.size(); });
            if (next == files.size()) return;
            const size_t mine = next++;
            outcomes.emplace_back();
            lock.unlock();
            Outcome outcome = handled(files[mine]);
            lock.lock();
            outcomes[mine - taken] = std::move(outcome);
            changed.notify_all();
        }
    }

    Outcome handled(const std::string &file) const {
        Outcome outcome;
        const Redirect redirect(outcome.transcript);
        try {
            outcome.status = handle(file);
        } catch (const std::bad_alloc &) {
            outcome.status = reportMemory(file);
        }
        return outcome;
    }

    const std::vector<std::string> &files;
    const Handle &handle;
    const size_t ahead; ///< How many files may be in work or wait to be shown.
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::optional<Outcome>> outcomes; ///< Of the files from `taken` to `next`.
    size_t taken = 0;
    size_t next = 0;
    std::vector<std::thread> crew;
};

} // namespace

Status inOrder(const std::vector<std::string> &files, const Handle &handle, Pace pace) {
    Status gravest = fine;
    Progress progress(files.size());
    const auto isEnough = [&](Status status) {
        gravest = std::max(gravest, status);
        progress.step();
        return status != fine && pace.failFast;
    };
    if (pace.threads == 1 || files.size() == 1) {
        (void)std::ranges::any_of(files, isEnough, handle);
        return gravest;
    }
    Workers workers(files, handle, pace.threads);
    for (size_t i = 0; i < files.size(); ++i) {
        const Outcome outcome = workers.take();
        writeTranscript(outcome.transcript);
        if (isEnough(outcome.status)) break;
    }
    return gravest;
}

} // namespace tool
