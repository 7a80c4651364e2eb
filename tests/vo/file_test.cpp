// Whole files in, whole files out.
#include "tests/support.hpp"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;
using test::buffer;

namespace {

/// A folder of its own, in which the tests find their files alone.
class File : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = fs::temp_directory_path() / "vo_file_XXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string path(const char *name) const { return folder / name; }

    std::string contentOf(const std::string &file) const {
        int error = 0;
        Ref contents(voFileTryRead(file.c_str(), &error));
        EXPECT_EQ(error, 0);
        return contents ? test::bytes(contents) : "<null>";
    }

    mode_t modeOf(const std::string &file) const {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0);
        return status.st_mode & 07777;
    }

    /// Replaces a file; the errno value.
    static int replace(const std::string &file, std::string_view contents) {
        return voFileReplace(file.c_str(), buffer(contents));
    }

    int64_t filesThere() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    fs::path folder;
};

/// Makes writing beyond so many bytes fail.
class SizeLimit {
  public:
    explicit SizeLimit(rlim_t bytes) {
        handler = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit{bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~SizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        (void)std::signal(SIGXFSZ, handler);
    }

  private:
    rlimit before{};
    void (*handler)(int);
};

} // namespace

TEST_F(File, ComesBackAsItWasWritten) {
    const std::string large(300000, '\xFF');
    for (const std::string &contents : {std::string(), std::string("a\0b", 3), large}) {
        EXPECT_EQ(replace(path("a"), contents), 0);
        EXPECT_EQ(contentOf(path("a")), contents);
    }
    EXPECT_EQ(filesThere(), 1);
}

TEST_F(File, IsReadFromAPipeToItsEnd) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const std::string contents(200000, 'x'); // more than a pipe and the first block hold
    std::thread writer([&] {
        EXPECT_EQ(write(ends[1], contents.data(), contents.size()), ssize_t(contents.size()));
        close(ends[1]);
    });
    int error = 0;
    Ref got(voFileTryReadDescriptor(ends[0], &error));
    writer.join();
    EXPECT_EQ(close(ends[0]), 0) << "it was left open";
    EXPECT_EQ(test::bytes(got), contents);
}

TEST_F(File, WhatTheSystemRefusesIsAValue) {
    int error = 0;
    EXPECT_EQ(voFileTryRead(path("none").c_str(), &error), nullptr);
    EXPECT_EQ(error, ENOENT);
    EXPECT_EQ(voFileTryRead(folder.c_str(), &error), nullptr);
    EXPECT_EQ(error, EISDIR);
    EXPECT_EQ(voFileTryReadDescriptor(-1, &error), nullptr);
    EXPECT_EQ(error, EBADF);
    EXPECT_EQ(replace(path("none/a"), "x"), ENOENT);
    EXPECT_EQ(replace(folder, "x"), EISDIR);
    EXPECT_EQ(replace("/dev/full", "x"), ENOSPC);
    EXPECT_EQ(test::take(voFileErrorText(ENOENT)), "No such file or directory");
}

TEST_F(File, StaysAsItIsWhenTheNewOneCannotBeWhole) {
    ASSERT_EQ(replace(path("a"), "old"), 0);
    {
        const SizeLimit limit(1000);
        EXPECT_EQ(replace(path("a"), std::string(5000, 'x')), EFBIG);
        EXPECT_EQ(replace(path("b"), std::string(5000, 'x')), EFBIG);
    }
    EXPECT_EQ(contentOf(path("a")), "old");
    EXPECT_EQ(filesThere(), 1);
}

TEST_F(File, KeepsItsModeAndANewOneFollowsTheMask) {
    const mode_t before = umask(0027);
    EXPECT_EQ(replace(path("a"), "1"), 0);
    EXPECT_EQ(modeOf(path("a")), 0640U);
    ASSERT_EQ(chmod(path("a").c_str(), 0604), 0);
    EXPECT_EQ(replace(path("a"), "2"), 0);
    EXPECT_EQ(modeOf(path("a")), 0604U);
    umask(before);
}

TEST_F(File, IsReplacedWhereALinkPoints) {
    fs::create_directory(folder / "inner");
    ASSERT_EQ(replace(path("inner/a"), "old"), 0);
    fs::create_symlink("inner/a", folder / "link");
    fs::create_symlink("inner/new", folder / "dangling");
    EXPECT_EQ(replace(path("link"), "new"), 0);
    EXPECT_EQ(replace(path("dangling"), "made"), 0);
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(contentOf(path("inner/a")), "new");
    EXPECT_EQ(contentOf(path("inner/new")), "made");
}

TEST_F(File, ThreadsReplaceItAndAllSeeWholeOnes) {
    ASSERT_EQ(replace(path("a"), std::string(5000, 'a')), 0);
    std::vector<std::thread> threads;
    for (char letter : {'b', 'c', 'd'})
        threads.emplace_back([&, letter] {
            for (int i = 0; i < 20; ++i) {
                EXPECT_EQ(replace(path("a"), std::string(5000, letter)), 0);
                const std::string seen = contentOf(path("a"));
                EXPECT_EQ(seen, std::string(5000, seen[0]));
            }
        });
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(filesThere(), 1);
}
