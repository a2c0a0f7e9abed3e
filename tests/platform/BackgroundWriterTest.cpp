#include "platform/BackgroundWriter.h"

#include "platform/TempFolder.h"

#include <cerrno>
#include <future>
#include <new>

namespace {

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
    EXPECT_FALSE(std::filesystem::exists(PathOf("gone")));
    EXPECT_EQ(WriteFault(), 0);
}

TEST_F(BackgroundWriterTest, NoJobIsLostAndTheFirstFaultIsKept) {
    int made = 0;                  // jobs never overlap
    for (int i = 0; i < 300; ++i)  // the thread works, is about to end, or has ended
        WriteSoon(PathOf("none/" + std::to_string(i)), [&] { return ++made, std::string(); });
    AwaitWrites();
    EXPECT_EQ(made, 300);
    EXPECT_TRUE(WriteFault() == ENOENT && WriteFault() == 0);
    WriteSoon(PathOf("a"), []() -> std::string { throw std::bad_alloc(); });
    AwaitWrites();
    EXPECT_EQ(WriteFault(), ENOMEM);
}

}  // namespace
