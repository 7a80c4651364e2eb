// What every test file needs: owned references, texts, and expected aborts.
#pragma once

#include "source/vo/vo_object.hpp"
#include "vo/vo.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>

using vo::Ref;

/// 1 where a sanitizer watches memory or threads, so that time and memory mean little; else 0.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define TEST_SANITIZED 1
#elif defined(__has_feature)
#define TEST_SANITIZED (__has_feature(address_sanitizer) || __has_feature(thread_sanitizer))
#else
#define TEST_SANITIZED 0
#endif

namespace test {

/// A string of the code points that `utf8` encodes.
Ref<voString> str(std::string_view utf8);

/// A string of any code points, surrogates and the like included.
Ref<voString> str(std::u32string_view chars);

/// The string as UTF-8; "<null>" for null. Does not take over the reference.
std::string text(voString *string);

/// The same for a new reference, which it releases: `take(xmlElementName(el))`.
std::string take(voString *string);

/// A buffer of these bytes, and the bytes of a buffer.
Ref<voBuffer> buffer(std::string_view bytes);
std::string bytes(voBuffer *buffer);

/// Processor time that the calling thread has used, in seconds. Unlike the time of day it does not
/// pass faster on a busy machine.
double threadSeconds();

/// Runs `work` on a thread with a stack of 256 KiB.
void onSmallStack(std::function<void()> work);

/// `file:line: text` for any line as a regular expression, for EXPECT_ABORT.
std::string abortPattern(std::string_view file, std::string_view text);

/// How much longer ten times the input may take: more than ten times when it no longer fits the
/// caches, but far from a quadratic algorithm's hundred.
inline constexpr double tenfold = 25;

} // namespace test

/// Expects that `statement` ends the process with the condition `text` of the source file `file`,
/// such as "source/vo/vo_string.cpp".
#define EXPECT_ABORT(statement, file, text)                                                        \
    EXPECT_DEATH(statement, testing::ContainsRegex(test::abortPattern(file, text)))
