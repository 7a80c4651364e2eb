// How time and memory grow with the input: each phase on n and on ten times n, in processes of
// their own.
#include "vo/vo.h"
#include "xml/xml.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace {

constexpr int rounds = 5;

enum Phase { decodePhase, encodePhase, nsDecodePhase, nsEncodePhase, releasePhase, phaseCount };
constexpr const char *phaseNames[] = {"decode", "encode", "ns decode", "ns encode", "release"};
static_assert(std::size(phaseNames) == phaseCount);

struct Figures {
    std::array<double, phaseCount> seconds;
    double megabytes; ///< The peak size of the process, its input included.
};

double now() {
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

std::array<double, phaseCount> runOnce(voBuffer *text, XML_OPTIONS *options) {
    std::array<double, phaseCount> seconds{};
    double last = now();
    const auto passed = [&](Phase phase) {
        const double time = now();
        seconds[phase] = time - std::exchange(last, time);
    };
    auto *result = xmlDocumentDecode(text, options, nullptr);
    auto *document = xmlDecodeResultDocument(result);
    xmlDecodeResultRelease(result);
    passed(decodePhase);
    auto *encoded = xmlDocumentTryEncode(document, options);
    passed(encodePhase);
    auto *nsResult = xmlNsDocumentTryDecode(document);
    auto *nsDocument = xmlNsDecodeResultDocument(nsResult);
    xmlNsDecodeResultRelease(nsResult);
    passed(nsDecodePhase);
    auto *back = xmlNsDocumentEncode(nsDocument);
    auto *written = xmlDocumentTryEncode(back, options);
    passed(nsEncodePhase);
    voBufferRelease(written);
    xmlDocumentRelease(back);
    xmlNsDocumentRelease(nsDocument);
    xmlDocumentRelease(document);
    voBufferRelease(encoded);
    passed(releasePhase);
    return seconds;
}

Figures measure(const std::string &text) {
    voModuleStartup(xmlModule());
    auto *buffer = voBufferCreateFromBytesCopy(text.data(), int64_t(text.size()));
    auto *options = xmlOptionsCreate();
    Figures figures{};
    figures.seconds.fill(1e9);
    for (int round = 0; round < rounds; ++round) {
        const auto seconds = runOnce(buffer, options);
        for (size_t phase = 0; phase < phaseCount; ++phase)
            figures.seconds[phase] = std::min(figures.seconds[phase], seconds[phase]);
    }
    rusage used;
    getrusage(RUSAGE_SELF, &used);
    figures.megabytes = double(used.ru_maxrss) / 1e3;
    return figures;
}

using TextOf = std::function<std::string(int64_t n)>;

Figures measureInChild(const TextOf &textOf, int64_t n) {
    int ends[2];
    if (pipe(ends)) std::abort();
    const pid_t child = fork();
    if (child < 0) std::abort();
    if (child == 0) {
        const Figures figures = measure("<?xml version='1.0'?>" + textOf(n));
        if (write(ends[1], &figures, sizeof(figures)) != sizeof(figures)) std::abort();
        _exit(0);
    }
    close(ends[1]); // So that reading ends when the child does.
    Figures figures;
    if (read(ends[0], &figures, sizeof(figures)) != sizeof(figures)) std::abort();
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return figures;
}

std::string repeated(std::string_view piece, int64_t count) {
    std::string all;
    for (; count > 0; --count)
        all += piece;
    return all;
}

/// The pieces for the numbers from 0 to n - 1, joined.
std::string counted(int64_t n, const std::function<std::string(const std::string &)> &piece) {
    std::string all;
    for (int64_t i = 0; i < n; ++i)
        all += piece(std::to_string(i));
    return all;
}

struct Shape {
    const char *name;
    int64_t n;
    TextOf text;
};

const Shape shapes[] = {
    {"attributes on one element", 100000,
     [](int64_t n) {
         return "<a" + counted(n, [](auto &i) { return " name" + i + "='v'"; }) + "/>";
     }},
    {"siblings with text", 100000,
     [](int64_t n) { return "<a>" + repeated("<b>text</b>", n) + "</a>"; }},
    {"characters of one text", 10000000,
     [](int64_t n) { return "<a>" + std::string(size_t(n), 'x') + "</a>"; }},
    {"nested elements", 100000, [](int64_t n) { return repeated("<a>", n) + repeated("</a>", n); }},
    {"declarations on one element", 10000,
     [](int64_t n) {
         return "<a" + counted(n, [](auto &i) { return " xmlns:p" + i + "='urn:" + i + "'"; }) +
                "/>";
     }},
    {"nested elements that declare", 10000,
     [](int64_t n) {
         return counted(n, [](auto &i) { return "<a xmlns:p" + i + "='urn:" + i + "'>"; }) +
                repeated("</a>", n);
     }},
};

} // namespace

int main() {
    for (const Shape &shape : shapes) {
        const Figures small = measureInChild(shape.text, shape.n);
        const Figures large = measureInChild(shape.text, shape.n * 10);
        std::printf("%s: %.0f MB for %lld, %.0f MB for ten times as many\n", shape.name,
                    small.megabytes, static_cast<long long>(shape.n), large.megabytes);
        for (int phase = 0; phase < phaseCount; ++phase)
            std::printf("  %-9s %8.2f ms %8.2f ms %6.1f times\n", phaseNames[phase],
                        small.seconds[phase] * 1e3, large.seconds[phase] * 1e3,
                        large.seconds[phase] / small.seconds[phase]);
    }
}
