#include "bench/group.hpp"

#include "bench/contestant.hpp"
#include "bench/ours.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <utility>

namespace bench {
namespace {

namespace fs = std::filesystem;

bool refuses(const Contestant &contestant, const File &file) {
    for (const Work work : {contestant.decode, contestant.namespaces})
        if (work && !work(file)) return true;
    return false;
}

/// Whether every contestant accepts the file. Counts the refusals of each.
bool acceptedByAll(const File &file, Group &group) {
    bool accepted = true;
    for (const Contestant *contestant : contestants) {
        if (!refuses(*contestant, file)) continue;
        ++group.refusals[contestant->name];
        accepted = false;
    }
    return accepted;
}

void requireReadersToAgree(const File &file) {
    if (readersAgree(file)) return;
    std::fprintf(stderr, "%s: cursor and getters read different things\n", file.path.c_str());
    std::exit(1);
}

/// Regular files in the order of their names; hidden ones are no documents.
std::vector<std::string> filesBelow(const fs::path &folder) {
    std::vector<std::string> paths;
    for (const auto &entry : fs::recursive_directory_iterator(folder))
        if (entry.is_regular_file() && entry.path().filename().string()[0] != '.')
            paths.push_back(entry.path().string());
    std::sort(paths.begin(), paths.end());
    return paths;
}

std::string entry(size_t number) {
    constexpr const char *names[] = {"e",    "item", "title",   "author",
                                     "date", "link", "summary", "price"};
    const std::string id = std::to_string(number);
    const std::string name = names[number % std::size(names)];
    return "<" + name + " id=\"" + id + "\" kind=\"b\">text of " + id + "</" + name + ">";
}

} // namespace

File makeFile(std::string path, std::string bytes) {
    auto *buffer = voBufferCreateFromBytesCopy(bytes.data(), int64_t(bytes.size()));
    return {std::move(path), std::move(bytes), Owned<voBuffer, voBufferRelease>(buffer)};
}

File readFile(std::string path) {
    // In one piece: a string that grew would leave freed memory to what is measured next.
    std::string bytes(fs::file_size(path), '\0');
    std::ifstream(path, std::ios::binary).read(bytes.data(), std::streamsize(bytes.size()));
    return makeFile(std::move(path), std::move(bytes));
}

int64_t Group::bytes() const {
    int64_t sum = 0;
    for (const File &file : files)
        sum += int64_t(file.bytes.size());
    return sum;
}

const File &Group::largest() const {
    return *std::max_element(files.begin(), files.end(), [](const File &a, const File &b) {
        return a.bytes.size() < b.bytes.size();
    });
}

Group readGroup(const fs::path &folder) {
    // A path that ends in a slash has no file name.
    Group group{fs::weakly_canonical(folder).filename().string(), {}, {}};
    for (std::string &path : filesBelow(folder)) {
        File file = readFile(std::move(path));
        if (!acceptedByAll(file, group)) continue;
        requireReadersToAgree(file);
        group.files.push_back(std::move(file));
    }
    return group;
}

std::string smallDocument(size_t size) {
    const std::string end = "</l>";
    std::string text = "<?xml version=\"1.0\"?><l>";
    for (size_t i = 0; text.size() + entry(i).size() + end.size() <= size; ++i)
        text += entry(i);
    text += end;
    return text.insert(text.size() - end.size(), size - text.size(), '.');
}

} // namespace bench
