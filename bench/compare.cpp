// Times this library and its peers on the same files in one process: compare FOLDER...
//
// Each folder is a group. Every round runs every contestant once, so that a noisy machine hits all
// of them alike; the table gives each one's best round as MB of input per second.
#include "vo/vo.h"
#include "xml/xml.h"

#include <expat.h>
#include <libxml/parser.h>
#include <pugixml.hpp>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int rounds = 7;

struct File {
    std::string bytes;
    voBuffer *buffer;
};

struct Stopwatch {
    double seconds = 0;
    template <class Work> auto time(Work work) {
        const auto begin = std::chrono::steady_clock::now();
        auto result = work();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        seconds += taken.count();
        return result;
    }
};

using Files = std::vector<File>;

XML_OPTIONS *options() {
    static XML_OPTIONS *made = xmlOptionsCreate();
    return made;
}

bool decodes(const File &file) {
    XML_DECODE_RESULT *result = xmlDocumentDecode(file.buffer, options(), nullptr);
    const bool accepted = xmlDecodeResultHasDocument(result);
    xmlDecodeResultRelease(result);
    return accepted;
}

constexpr unsigned pugiFlags = (pugi::parse_full & ~pugi::parse_doctype) | pugi::parse_ws_pcdata;

bool peersAccept(const File &file) {
    pugi::xml_document pugi;
    xmlDocPtr tree = xmlReadMemory(file.bytes.data(), int(file.bytes.size()), nullptr, nullptr,
                                   XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE);
    if (tree) xmlFreeDoc(tree);
    return tree && pugi.load_buffer(file.bytes.data(), file.bytes.size(), pugiFlags);
}

/// The files of a group that every contestant accepts.
Files readGroup(const fs::path &folder) {
    Files files;
    for (const auto &entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file() || entry.path().filename().string()[0] == '.') continue;
        std::ifstream in(entry.path(), std::ios::binary);
        File file{{std::istreambuf_iterator<char>(in), {}}, nullptr};
        file.buffer = voBufferCreateFromBytesCopy(file.bytes.data(), int64_t(file.bytes.size()));
        if (decodes(file) && peersAccept(file))
            files.push_back(std::move(file));
        else
            voBufferRelease(file.buffer);
    }
    return files;
}

struct Contestant {
    const char *name;
    std::function<void(const File &, Stopwatch *)> run; ///< Fills the times of its columns.
    std::vector<const char *> columns;
};

void runOurs(const File &file, Stopwatch *times, bool locations) {
    XML_OPTIONS *opt = xmlOptionsRetain(options());
    if (locations) xmlOptionsSetFlags(&opt, XML_FLAG_DECODE_LOCATION);
    auto *result = times[0].time([&] { return xmlDocumentDecode(file.buffer, opt, nullptr); });
    auto *document = xmlDecodeResultDocument(result);
    xmlDecodeResultRelease(result);
    auto *encoded = times[2].time([&] { return xmlDocumentTryEncode(document, opt); });
    if (encoded) voBufferRelease(encoded);
    times[1].time([&] { return xmlDocumentRelease(document), 0; });
    xmlOptionsRelease(opt);
}

void runNamespaces(const File &file, Stopwatch *times) {
    auto *result =
        times[0].time([&] { return xmlDocumentDecode(file.buffer, options(), nullptr); });
    auto *document = xmlDecodeResultDocument(result);
    xmlDecodeResultRelease(result);
    auto *resolved = times[0].time([&] { return xmlNsDocumentTryDecode(document); });
    times[1].time([&] {
        xmlNsDecodeResultRelease(resolved);
        xmlDocumentRelease(document);
        return 0;
    });
}

void runPugi(const File &file, Stopwatch *times) {
    auto *document = new pugi::xml_document;
    times[0].time([&] {
        return bool(document->load_buffer(file.bytes.data(), file.bytes.size(), pugiFlags));
    });
    times[1].time([&] { return delete document, 0; });
}

void runLibxml2(const File &file, Stopwatch *times) {
    xmlDocPtr tree = times[0].time([&] {
        return xmlReadMemory(file.bytes.data(), int(file.bytes.size()), nullptr, nullptr,
                             XML_PARSE_HUGE);
    });
    times[1].time([&] { return xmlFreeDoc(tree), 0; });
}

void runExpat(const File &file, Stopwatch *times, bool namespaces) {
    times[0].time([&] {
        XML_Parser parser =
            namespaces ? XML_ParserCreateNS(nullptr, '|') : XML_ParserCreate(nullptr);
        XML_SetElementHandler(
            parser, [](void *, const char *, const char **) {}, [](void *, const char *) {});
        XML_SetCharacterDataHandler(parser, [](void *, const char *, int) {});
        const auto status = XML_Parse(parser, file.bytes.data(), int(file.bytes.size()), 1);
        XML_ParserFree(parser);
        return status;
    });
}

const std::vector<Contestant> contestants = {
    {"voxml",
     [](const File &f, Stopwatch *t) { runOurs(f, t, false); },
     {"decode", "release", "encode"}},
    {"voxml, locations",
     [](const File &f, Stopwatch *t) { runOurs(f, t, true); },
     {"decode", "release", "encode"}},
    {"voxml, namespaces", runNamespaces, {"decode", "release"}},
    {"pugixml, full", runPugi, {"parse", "free"}},
    {"libxml2", runLibxml2, {"parse", "free"}},
    {"expat, callbacks", [](const File &f, Stopwatch *t) { runExpat(f, t, false); }, {"parse"}},
    {"expat, namespaces", [](const File &f, Stopwatch *t) { runExpat(f, t, true); }, {"parse"}},
};

using Times = std::vector<double>;

/// The best seconds of each column of each contestant over all rounds.
std::vector<Times> race(const Files &files) {
    std::vector<Times> best;
    for (const Contestant &contestant : contestants)
        best.push_back(Times(contestant.columns.size(), 1e9));
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i < contestants.size(); ++i) {
            std::vector<Stopwatch> times(3);
            for (const File &file : files)
                contestants[i].run(file, times.data());
            for (size_t column = 0; column < best[i].size(); ++column)
                best[i][column] = std::min(best[i][column], times[column].seconds);
        }
    }
    return best;
}

/// Seconds of reading and freeing, whatever the contestant calls it.
double readAndFree(const Times &times) { return times[0] + (times.size() > 1 ? times[1] : 0); }

void report(const fs::path &folder) {
    Files files = readGroup(folder);
    double megabytes = 0;
    for (const File &file : files)
        megabytes += double(file.bytes.size()) / 1e6;
    const auto best = race(files);
    std::printf("%s: %zu files, %.2f MB\n", folder.filename().c_str(), files.size(), megabytes);
    for (size_t i = 0; i < contestants.size(); ++i) {
        std::printf("  %-18s", contestants[i].name);
        for (size_t column = 0; column < best[i].size(); ++column)
            std::printf("  %7s %6.0f", contestants[i].columns[column], megabytes / best[i][column]);
        std::printf("  read+free %6.0f MB/s, %.2f of pugixml\n", megabytes / readAndFree(best[i]),
                    readAndFree(best[3]) / readAndFree(best[i]));
    }
    for (File &file : files)
        voBufferRelease(file.buffer);
}

} // namespace

int main(int argc, char **argv) {
    voModuleStartup(xmlModule());
    for (int i = 1; i < argc; ++i)
        report(argv[i]);
    voModuleShutdown(xmlModule());
}
