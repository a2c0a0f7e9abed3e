#include "platform/SafeFile.h"

#include "platform/BackgroundWriter.h"
#include "platform/TempFolder.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <cerrno>
#include <chrono>
#include <future>
#include <new>
#include <random>
#include <thread>

namespace {

namespace fs = std::filesystem;

class SafeFileTest : public TempFolderTest {
protected:
    auto FileCount() { return std::distance(fs::directory_iterator(folder), {}); }

    const std::string target = PathOf("wave.txt");
};

TEST_F(SafeFileTest, LinkStaysANewFileHonoursTheUmaskAndAnOldOneKeepsItsRights) {
    const std::string link = PathOf("link");
    fs::create_symlink("wave.txt", link);  // its target does not exist yet
    const mode_t old = umask(027);
    EXPECT_EQ(WriteFileSafely(link, "some dots"), 0);
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0640));
    chmod(target.c_str(), 0604);
    EXPECT_EQ(WriteFileSafely(link, "dots"), 0);
    EXPECT_EQ(fs::status(target).permissions(), fs::perms(0604));
    umask(old);
    EXPECT_TRUE(fs::is_symlink(link) && Content("wave.txt") == "dots" && FileCount() == 2);
}

TEST_F(SafeFileTest, RefusesWhatIsNoFileOrTooLong) {
    const std::string pipe = PathOf("pipe"), loop = PathOf("loop"), five = Put("five", "12345");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink("loop", loop);
    std::string bytes;
    const std::vector<int> results = {ReadWholeFile(folder, 100, bytes),
                                      ReadWholeFile(pipe, 100, bytes),
                                      ReadWholeFile(target, 100, bytes),
                                      ReadWholeFile(five, 4, bytes),
                                      ReadFileHead(pipe, 9, bytes),
                                      WriteFileSafely(folder, "x"),
                                      WriteFileSafely(pipe, "x"),
                                      WriteFileSafely(loop, "x"),
                                      WriteFileSafely(PathOf("missing/wave.txt"), "x")};
    EXPECT_EQ(results, (std::vector<int>{EISDIR, ENOTSUP, ENOENT, EFBIG, ENOTSUP, EISDIR, ENOTSUP,
                                         ELOOP, ENOENT}));
    EXPECT_TRUE(ReadWholeFile(five, 5, bytes) == 0 && bytes == "12345");
    EXPECT_TRUE(ReadFileHead(five, 3, bytes) == 0 && bytes == "123" && FileCount() == 3);
}

TEST_F(SafeFileTest, FailureLeavesTheOldFile) {
    Put("wave.txt", "old");
    const std::string much(10000, 'x');
    EXPECT_EQ(RunOnFullDisk([&] { return WriteFileSafely(target, much); }), EFBIG);
    EXPECT_TRUE(Content("wave.txt") == "old" && FileCount() == 1);
    if (geteuid() == 0) return;  // nothing is write-protected for the administrator
    chmod(target.c_str(), 0400);
    EXPECT_EQ(WriteFileSafely(target, "new"), EACCES);
}

[[noreturn]] void SaveForEver(const std::string& path, const std::string& one,
                              const std::string& other) {
    for (;;)
        for (const std::string* bytes : {&one, &other}) WriteFileSafely(path, *bytes);
}

TEST_F(SafeFileTest, KilledInTheMiddleTheFileIsWhole) {
    const std::string first(300000, 'a'), second(500000, 'b');
    Put("wave.txt", first);
    std::mt19937 random(1);
    for (int round = 0; round < 50; ++round) {
        const pid_t child = fork();
        if (child == 0) SaveForEver(target, second, first);
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 8000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string bytes = Content("wave.txt");
        ASSERT_TRUE(bytes == first || bytes == second) << bytes.size();
    }
}

using BackgroundWriterTest = TempFolderTest;

TEST_F(BackgroundWriterTest, TheNewestOfWhatWaitsIsWritten) {
    std::promise<void> gate;
    WriteSoon(PathOf("first"), [&] { return gate.get_future().wait(), std::string("1"); });
    WriteSoon(PathOf("a"), [&] { return Put("old", "made"), std::string("old"); });
    WriteSoon(Put("gone", "old"), [] { return std::string("new"); });
    WriteSoon(PathOf("a"), [] { return std::string("new"); });
    RemoveSoon(PathOf("gone"));
    gate.set_value();
    AwaitWrites();
    EXPECT_EQ(Content("first") + Content("a") + Content("old"), "1new");
    EXPECT_TRUE(!std::filesystem::exists(PathOf("gone")) && WriteFault() == 0);
}

TEST_F(BackgroundWriterTest, NoJobIsLostAndTheFirstFaultIsKept) {
    int made = 0;                  // jobs never overlap
    for (int i = 0; i < 300; ++i)  // the thread works, is about to end, or has ended
        WriteSoon(PathOf("none/" + std::to_string(i)), [&] { return ++made, std::string(); });
    WriteSoon(PathOf("a"), []() -> std::string { throw std::bad_alloc(); });
    AwaitWrites();
    EXPECT_TRUE(made == 300 && WriteFault() == ENOENT && WriteFault() == 0);
    WriteSoon(PathOf("a"), []() -> std::string { throw std::bad_alloc(); });
    AwaitWrites();
    EXPECT_EQ(WriteFault(), ENOMEM);
}

}  // namespace
