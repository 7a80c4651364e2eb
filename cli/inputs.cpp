#include "inputs.hpp"

#include <algorithm>
#include <filesystem>

#include <fnmatch.h>

namespace fs = std::filesystem;

namespace tool {
namespace {

class Search {
  public:
    Search(const std::vector<std::string> &namePatterns, Inputs &found)
        : patterns(namePatterns), inputs(found) {}

    /// Adds the files below a folder. Folders wait in a list, so that depth costs no stack.
    void run(const fs::path &root) {
        const auto before = static_cast<ptrdiff_t>(inputs.files.size());
        waiting = {root};
        while (!waiting.empty()) {
            const fs::path folder = std::move(waiting.back());
            waiting.pop_back();
            read(folder);
        }
        std::sort(inputs.files.begin() + before, inputs.files.end());
    }

  private:
    void read(const fs::path &folder) {
        std::error_code error;
        fs::directory_iterator entry(folder, error);
        for (; !error && entry != fs::directory_iterator(); entry.increment(error))
            take(*entry);
        if (!error) return;
        reportFile(folder.string(), "cannot be read", error.value());
        inputs.status = fileTrouble;
    }

    void take(const fs::directory_entry &entry) {
        std::error_code error; // What is gone by now is no file.
        if (entry.is_directory(error) && !entry.is_symlink(error))
            waiting.push_back(entry.path());
        else if (entry.is_regular_file(error) && isWanted(entry.path().filename().string()))
            inputs.files.push_back(entry.path().string());
    }

    bool isWanted(const std::string &name) const {
        return std::ranges::any_of(patterns, [&](const std::string &pattern) {
            return fnmatch(pattern.c_str(), name.c_str(), 0) == 0;
        });
    }

    const std::vector<std::string> &patterns;
    Inputs &inputs;
    std::vector<fs::path> waiting;
};

} // namespace

Inputs inFolders(const std::vector<std::string> &paths, const std::vector<std::string> &patterns) {
    Inputs inputs;
    Search search(patterns, inputs);
    for (const std::string &path : paths) {
        std::error_code error;
        if (path != "-" && fs::is_directory(path, error))
            search.run(path);
        else
            inputs.files.push_back(path);
    }
    return inputs;
}

} // namespace tool
