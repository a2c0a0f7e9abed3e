#include "platform/SafeFile.h"

#include "platform/TempFolder.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <cerrno>
#include <chrono>
#include <random>
#include <thread>

namespace {

namespace fs = std::filesystem;

class SafeFileTest : public TempFolderTest {
protected:
    auto FileCount() { return std::distance(fs::directory_iterator(folder), {}); }

    const std::string target = PathOf("wave.txt");
};

TEST_F(SafeFileTest, NewFileHonoursTheUmaskAndAnOldOneKeepsItsRights) {
    const mode_t old = umask(027);
    EXPECT_EQ(WriteFileSafely(target, "some dots"), 0);
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    chmod(target.c_str(), 0604);
    EXPECT_EQ(WriteFileSafely(target, "dots"), 0);
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0604));
    umask(old);
    EXPECT_EQ(Content("wave.txt"), "dots");
    EXPECT_EQ(FileCount(), 1);
}

TEST_F(SafeFileTest, LinkStaysALinkToTheWrittenFile) {
    fs::create_symlink("wave.txt", PathOf("link"));  // its target does not exist yet
    EXPECT_EQ(WriteFileSafely(PathOf("link"), "dots"), 0);
    EXPECT_TRUE(fs::is_symlink(PathOf("link")));
    EXPECT_EQ(Content("wave.txt"), "dots");
}

TEST_F(SafeFileTest, RefusesWhatIsNoFileOrTooLong) {
    const std::string pipe = PathOf("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink("loop", PathOf("loop"));
    std::string bytes;
    EXPECT_EQ(ReadWholeFile(folder, 100, bytes), EISDIR);
    EXPECT_EQ(ReadWholeFile(pipe, 100, bytes), ENOTSUP);
    EXPECT_EQ(ReadWholeFile(target, 100, bytes), ENOENT);
    EXPECT_EQ(ReadWholeFile(Put("five.txt", "12345"), 4, bytes), EFBIG);
    EXPECT_EQ(ReadWholeFile(PathOf("five.txt"), 5, bytes), 0);
    EXPECT_EQ(bytes, "12345");
    EXPECT_EQ(ReadFileHead(PathOf("five.txt"), 9, bytes), 0);
    EXPECT_EQ(bytes, "12345");
    EXPECT_EQ(ReadFileHead(PathOf("five.txt"), 3, bytes), 0);
    EXPECT_EQ(bytes, "123");
    EXPECT_EQ(ReadFileHead(pipe, 9, bytes), ENOTSUP);
    EXPECT_EQ(WriteFileSafely(folder, "x"), EISDIR);
    EXPECT_EQ(WriteFileSafely(pipe, "x"), ENOTSUP);
    EXPECT_EQ(WriteFileSafely(PathOf("loop"), "x"), ELOOP);
    EXPECT_EQ(WriteFileSafely(PathOf("missing/wave.txt"), "x"), ENOENT);
    EXPECT_EQ(FileCount(), 3);
}

TEST_F(SafeFileTest, FailureLeavesTheOldFile) {
    Put("wave.txt", "old");
    const std::string much(10000, 'x');
    EXPECT_EQ(RunOnFullDisk([&] { return WriteFileSafely(target, much); }), EFBIG);
    EXPECT_EQ(Content("wave.txt"), "old");
    EXPECT_EQ(FileCount(), 1);
    if (geteuid() == 0) return;  // nothing is write-protected for the administrator
    chmod(target.c_str(), 0400);
    EXPECT_EQ(WriteFileSafely(target, "new"), EACCES);
    EXPECT_EQ(Content("wave.txt"), "old");
}

TEST_F(SafeFileTest, KilledInTheMiddleTheFileIsWhole) {
    const std::string first(300000, 'a'), second(500000, 'b');
    Put("wave.txt", first);
    std::mt19937 random(1);
    for (int round = 0; round < 50; ++round) {
        const pid_t child = fork();
        while (child == 0) {
            WriteFileSafely(target, second);
            WriteFileSafely(target, first);
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string bytes = Content("wave.txt");
        ASSERT_TRUE(bytes == first || bytes == second) << bytes.size();
    }
}

}  // namespace
