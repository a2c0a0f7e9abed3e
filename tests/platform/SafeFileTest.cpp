#include "platform/SafeFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

namespace {

namespace fs = std::filesystem;

class SafeFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "safefile-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        folder = pattern;
        target = folder / "wave.txt";
    }
    void TearDown() override { fs::remove_all(folder); }

    void Put(const std::string& text) { std::ofstream(target) << text; }
    std::string Content() {
        std::ifstream file(target);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static mode_t ModeOf(const fs::path& path) {
        struct stat status {};
        EXPECT_EQ(stat(path.c_str(), &status), 0);
        return status.st_mode & 07777;
    }
    auto FileCount() { return std::distance(fs::directory_iterator(folder), {}); }

    fs::path folder, target;
};

TEST_F(SafeFileTest, NewFileHonoursTheUmask) {
    const mode_t old = umask(027);
    EXPECT_EQ(WriteFileSafely(target, "dots"), 0);
    umask(old);
    EXPECT_EQ(Content(), "dots");
    EXPECT_EQ(ModeOf(target), 0640U);
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(SafeFileTest, ReplacedFileKeepsItsPermissions) {
    Put("a longer old content");
    chmod(target.c_str(), 0604);
    EXPECT_EQ(WriteFileSafely(target, "new"), 0);
    EXPECT_EQ(Content(), "new");
    EXPECT_EQ(ModeOf(target), 0604U);
}

TEST_F(SafeFileTest, LinkStaysALinkToTheWrittenFile) {
    const fs::path link = folder / "link.txt";
    fs::create_symlink("wave.txt", link);  // relative, and its target does not exist yet
    EXPECT_EQ(WriteFileSafely(link, "dots"), 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(Content(), "dots");
}

TEST_F(SafeFileTest, RefusesWhatIsNoFile) {
    const fs::path pipe = folder / "pipe", loop = folder / "loop";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink("loop", loop);
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(folder, 100, bytes), EISDIR);
    EXPECT_EQ(ReadWholeFile(pipe, 100, bytes), ENOTSUP);
    EXPECT_EQ(ReadWholeFile("/dev/zero", 100, bytes), ENOTSUP);
    EXPECT_EQ(ReadWholeFile(folder / "missing", 100, bytes), ENOENT);
    EXPECT_EQ(WriteFileSafely(folder, "x"), EISDIR);
    EXPECT_EQ(WriteFileSafely(pipe, "x"), ENOTSUP);
    EXPECT_EQ(WriteFileSafely("/dev/null", "x"), ENOTSUP);
    EXPECT_EQ(WriteFileSafely(loop, "x"), ELOOP);
    EXPECT_EQ(WriteFileSafely(folder / "missing" / "wave.txt", "x"), ENOENT);
    EXPECT_EQ(FileCount(), 2);
}

TEST_F(SafeFileTest, ReadsUpToTheGivenLength) {
    Put("12345");
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(target, 5, bytes), 0);
    EXPECT_EQ(bytes, "12345");
    EXPECT_EQ(ReadWholeFile(target, 4, bytes), EFBIG);
}

TEST_F(SafeFileTest, WriteProtectedFileIsNotReplaced) {
    if (geteuid() == 0) GTEST_SKIP() << "nothing is write-protected for the administrator";
    Put("old");
    chmod(target.c_str(), 0400);
    EXPECT_EQ(WriteFileSafely(target, "new"), EACCES);
    EXPECT_EQ(Content(), "old");
}

// A limit on the file size stands for a disk that fills up in the middle of the write.
TEST_F(SafeFileTest, FullDiskLeavesTheOldFile) {
    Put("old");
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4096, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    const int error = WriteFileSafely(target, std::string(10000, 'x'));
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, EFBIG);
    EXPECT_EQ(Content(), "old");
    EXPECT_EQ(FileCount(), 1);
}

}  // namespace
