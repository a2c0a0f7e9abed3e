#include "analog/EditFuncBox.h"
#include "digital/DigitFixture.h"
#include "files/FileOptFuncCode.h"
#include "files/RecoveryFuncBox.h"
#include "GoldenFiles.h"
#include "platform/BackgroundWriter.h"
#include "platform/ProgramFolder.h"
#include "platform/TempFolder.h"

#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/wait.h>

#include <fcntl.h>

namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre, ::testing::HasSubstr;

class RecoveryTest : public DigitFixture, protected TempFolder {
protected:
    void SetUp() override {
        DigitFixture::SetUp();
        AnalogInUse.fill(false);
        SetInstrumentLimits();
        UseDataFolder(PathOf("data"));
        BeginSession();
    }
    void TearDown() override {
        EndSession();
        UseDataFolder("");
        DigitFixture::TearDown();
    }

    static AnalogWaveRecord& PutAnalog(std::int16_t slot, const std::string& name) {
        AnalogDocs[slot] = GoldenWave();
        AnalogDocs[slot].Name = name;
        AnalogInUse[slot] = true;
        ++AnalogDocCount;
        MarkModified(AnalogDocs[slot]);
        return AnalogDocs[slot];
    }
    static void PutDigit() {
        MakeDocument("D1[3]*%1@99 clk", "0110 1 - 001", 4096);
        DigitAt(0).Title = "bus";
        MarkChanged(DigitAt(0));
    }
    /// A run that is killed in the middle of its work.
    template <typename Work>
    void Crash(const Work& work) {
        EndSession();
        if (fork() == 0) {
            BeginSession();
            work();
            KeepSession();
            AwaitWrites();
            kill(getpid(), SIGKILL);
        }
        wait(nullptr);
        BeginSession();
    }
    /// Copies in the store, "run-..." without what is random in it.
    std::vector<std::string> Stored() {
        std::vector<std::string> paths;
        for (const auto& entry : fs::recursive_directory_iterator(PathOf("data/recovery"))) {
            const std::string path = fs::relative(entry.path(), PathOf("data/recovery"));
            if (!entry.is_regular_file() || path.ends_with("lock")) continue;
            paths.push_back(std::regex_replace(path, std::regex("run-......"), "run"));
            copy = entry.path();
        }
        std::ranges::sort(paths);
        return paths;
    }
    std::vector<std::string> StoredNow() { return KeepSession(), AwaitWrites(), Stored(); }
    std::vector<std::string> Restore(Answer reply) {
        asked.clear();
        answer = reply;
        RestoreSession();
        return asked;
    }
    fs::path copy;  // the last one that Stored has seen
};

TEST_F(RecoveryTest, BothKindsComeBackFromACrash) {
    const std::string name = "r\xC3\xA9\n%0A ", path = "/a b/\x01\n100%\xFF.txt";
    Crash([&] { PutAnalog(3, name).FileName = path, PutDigit(); });
    PutAnalog(0, "other");
    EXPECT_THAT(Restore(Answer::Yes), ElementsAre(HasSubstr("\n\n  " + name + "\n  bus\n\nRest")));
    const AnalogWaveRecord& wave = AnalogDocs[1];
    EXPECT_EQ(WriteAnalogText(wave), GoldenText);
    EXPECT_TRUE(wave.Name == name && wave.FileName == path && wave.FolderName == "/a b");
    EXPECT_TRUE(wave.Modified && wave.Saved && AnalogDocCount == 2);
    const DigitDocument& document = DigitAt(0);
    EXPECT_EQ(Shown(document), "D1*%1@99:0=0110,1=1000,2=0000 clk:3=001");
    EXPECT_TRUE(document.Title == "bus" && document.Changed && !document.IsSaved);
    EXPECT_THAT(Stored(), ElementsAre("run/analog-1", "run/digit-0"));
    EXPECT_THAT(StoredNow(), ElementsAre("run/analog-0", "run/analog-1", "run/digit-0"));
    EXPECT_THAT(Restore(Answer::Yes), ElementsAre());
    EndSession();
    EXPECT_TRUE(fs::is_empty(PathOf("data/recovery")));
}

TEST_F(RecoveryTest, OnlyChangesAreWrittenAsTheyWere) {
    TheHost().ShowProgress = [](auto...) { ADD_FAILURE() << "progress of the background"; };
    AnalogWaveRecord& wave = PutAnalog(0, "a");
    wave.Dots = wave.MaxDots = 200000;
    wave.DotArray.assign(200000, {0, 0.5});
    KeepSession();
    wave.DotArray.assign(200000, {0, -0.25});
    EXPECT_THAT(StoredNow(), ElementsAre("run/analog-0"));
    std::ifstream file(copy);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    EXPECT_TRUE(bytes.find("0.25") == bytes.npos && bytes.find("199999 \r\n 0.5 ") != bytes.npos);
    fs::remove(copy);
    EXPECT_THAT(StoredNow(), ElementsAre());  // nothing has changed
    MarkModified(wave);
    wave.DrawPressed = true;
    EXPECT_THAT(StoredNow(), ElementsAre());
    wave.DrawPressed = false;
    EXPECT_THAT(StoredNow(), ElementsAre("run/analog-0"));
    wave.Modified = false;  // saved
    PutDigit();
    EXPECT_THAT(StoredNow(), ElementsAre("run/digit-0"));
    DigitDocumentClosed(0);
    EXPECT_THAT(StoredNow(), ElementsAre());
}

TEST_F(RecoveryTest, CopiesStayUntilTheUserDecides) {
    Crash([] {
        for (std::int16_t slot = 0; slot < 10; ++slot) PutAnalog(slot, std::to_string(slot));
        PutDigit();
    });
    UseEnglish = 0;
    EXPECT_THAT(Restore(Answer::Cancel), ElementsAre(HasSubstr("\n  9\n  ...\n\n是否恢复")));
    ASSERT_EQ(Stored().size(), 11U);
    UseEnglish = 1;
    AnalogDocCount = MaxDocuments;
    EXPECT_THAT(Restore(Answer::Yes),
                ElementsAre(HasSubstr("TideMark"), "Exceed maximum file numbers limit"));
    EXPECT_TRUE(Stored().size() == 11U && DigitDocCount == 1);
    for (const auto& entry : fs::directory_iterator(PathOf("data/recovery"))) {
        if (!fs::exists(entry.path() / "analog-0")) continue;
        const int other = open((entry.path() / "lock").c_str(), O_RDWR);
        ASSERT_EQ(flock(other, LOCK_EX | LOCK_NB), 0);
        EXPECT_THAT(Restore(Answer::No), ElementsAre());  // another run looks at it
        close(other);
        std::ofstream(entry.path() / "notes") << "the user's";
        std::ofstream(entry.path() / ".tidemark-1-1.tmp") << "half";
    }
    EXPECT_THAT(Restore(Answer::No), ElementsAre(HasSubstr("  0\n  1\n")));
    EXPECT_THAT(Stored(), ElementsAre("run/digit-0", "run/notes"));
}

TEST_F(RecoveryTest, DamagedCopiesArePutAside) {
    Crash([] { PutAnalog(0, "a"); });
    Stored();
    const fs::path path = copy;
    std::ifstream file(path);
    const std::string whole((std::istreambuf_iterator<char>(file)), {});
    const auto with = [&](const char* from, const char* to) {
        return std::regex_replace(whole, std::regex(from), to);
    };
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {"analog-0", {"", whole.substr(0, 30), with("\na\n", "\na%4\n"), with("ery 1", "ery 2")}},
        {"a",
         {whole.substr(0, whole.size() - 2), whole + "1", with("analog\n", "digital\n"),
          with("2.5", "nan")}}};
    for (const auto& [name, copies] : rows)
        for (const std::string& bytes : copies) {
            fs::create_directories(path.parent_path());
            std::ofstream(path) << bytes;
            EXPECT_THAT(Restore(Answer::Yes), ElementsAre(HasSubstr("\n  " + name + "\n"),
                                                          HasSubstr("not restored: " + name)));
            EXPECT_THAT(Stored(), ElementsAre("damaged/run-analog-0"));
        }
    EXPECT_EQ(AnalogDocCount, 0);
}

TEST_F(RecoveryTest, AFaultIsToldOnceAndTriedAgain) {
    AnalogWaveRecord& wave = PutAnalog(0, "a");
    wave.DotArray.resize(wave.Dots = wave.MaxDots = 4000);
    RunOnFullDisk([&] { return StoredNow(), StoredNow(), StoredNow(); });
    for (int i = 0; i < 15; ++i) KeepSession();
    EXPECT_THAT(StoredNow(), ElementsAre("run/analog-0"));
    const std::string text = "Unsaved work cannot be kept for recovery: ";
    EXPECT_THAT(asked, ElementsAre(text + "File too large"));
    EndSession();
    UseDataFolder(Put("file", "") + "/data");
    BeginSession();
    KeepSession();
    KeepSession();
    EXPECT_THAT(asked, ElementsAre(text + "File too large", HasSubstr(text)));
}

}  // namespace
