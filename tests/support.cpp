#include "tests/support.hpp"

#include "source/vo/vo_live.hpp"

#include <ctime>
#include <pthread.h>

namespace test {

Ref<voString> str(std::string_view utf8) {
    return Ref(voStringTryCreateFromUtf8(utf8.data(), int64_t(utf8.size())));
}

Ref<voString> str(std::u32string_view chars) {
    return Ref(voStringCreateFromCharsCopy(reinterpret_cast<const uint32_t *>(chars.data()),
                                           int64_t(chars.size())));
}

std::string text(voString *string) {
    if (!string) return "<null>";
    Ref utf8(voStringTryToUtf8(string));
    return utf8 ? bytes(utf8) : "<ill-formed>";
}

std::string take(voString *string) {
    Ref owned(string);
    return text(owned);
}

Ref<voBuffer> buffer(std::string_view bytes) {
    return Ref(voBufferCreateFromBytesCopy(bytes.data(), int64_t(bytes.size())));
}

std::string bytes(voBuffer *buffer) {
    return {reinterpret_cast<const char *>(voBufferBacking(buffer)),
            size_t(voBufferLength(buffer))};
}

double threadSeconds() {
    timespec used;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &used);
    return double(used.tv_sec) + double(used.tv_nsec) * 1e-9;
}

void onSmallStack(std::function<void()> work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    ASSERT_EQ(pthread_attr_setstacksize(&attributes, 256 * 1024), 0);
    pthread_t thread;
    const auto run = [](void *argument) -> void * {
        (*static_cast<std::function<void()> *>(argument))();
        return nullptr;
    };
    ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
    pthread_join(thread, nullptr);
    pthread_attr_destroy(&attributes);
}

std::string abortPattern(std::string_view file, std::string_view text) {
    std::string pattern;
    auto quote = [&](std::string_view literal) {
        for (char c : literal) {
            if (std::string_view("\\^$.[]|()?*+{}").find(c) != std::string_view::npos)
                pattern += '\\';
            pattern += c;
        }
    };
    quote(file);
    pattern += ":[0-9]+: ";
    quote(text);
    return pattern + "\n";
}

namespace {

/// Fails every test that leaves an object behind.
class LeakCheck : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo &) override { before = vo::liveObjects(); }
    void OnTestEnd(const testing::TestInfo &) override { EXPECT_EQ(vo::liveObjects(), before); }
    int64_t before = 0;
};

const bool installed = [] {
    testing::UnitTest::GetInstance()->listeners().Append(new LeakCheck);
    return true;
}();

} // namespace
} // namespace test
