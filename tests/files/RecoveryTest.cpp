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
using ::testing::ElementsAre, ::testing::HasSubstr, ::testing::SizeIs;
using Texts = std::vector<std::string>;

class RecoveryTest : public DigitFixture, protected TempFolder {
protected:
    RecoveryTest() {
        AnalogInUse.fill(false);
        SetInstrumentLimits();
        UseDataFolder(PathOf("data"));
        BeginSession();
    }
    ~RecoveryTest() override {
        EndSession();
        UseDataFolder("");
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
        MakeDocument("D1[3]*%1@99 clk", "0110 1 - 001", 4096).Title = "bus";
        MarkChanged(DigitAt(0));
    }
    /// A run that is killed in the middle of its work.
    template <typename Work>
    void Crash(const Work& work) {
        EndSession();
        if (fork() == 0) {
            BeginSession();
            work();
            StoredNow();
            kill(getpid(), SIGKILL);
        }
        wait(nullptr);
        BeginSession();
    }
    /// Copies in the store, "run-..." without what is random in it.
    Texts Stored() {
        Texts paths;
        for (const auto& entry : fs::recursive_directory_iterator(PathOf("data/recovery"))) {
            if (!entry.is_regular_file() || entry.path().filename() == "lock") continue;
            copy = fs::relative(entry.path(), folder);
            static const std::regex place("data/recovery/(damaged/)?run-......");
            paths.push_back(std::regex_replace(copy, place, "$1run"));
        }
        std::ranges::sort(paths);
        return paths;
    }
    Texts StoredNow() { return KeepSession(), AwaitWrites(), Stored(); }
    Texts Restore(Answer reply) {
        asked.clear();
        answer = reply;
        return RestoreSession(), asked;
    }
    std::string copy;  // the last one that Stored has seen
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
    EXPECT_FALSE(fs::exists(PathOf("data/recovery")));
}

TEST_F(RecoveryTest, OnlyChangesAreWrittenAsTheyWere) {
    TheHost().ShowProgress = [](auto...) { ADD_FAILURE() << "progress of the background"; };
    AnalogWaveRecord& wave = PutAnalog(0, "a");
    wave.Dots = wave.MaxDots = 200000;
    wave.DotArray.assign(200000, {0, 0.5});
    KeepSession();
    wave.DotArray.assign(200000, {0, -0.25});
    EXPECT_THAT(StoredNow(), ElementsAre("run/analog-0"));
    const std::string bytes = Content(copy);
    EXPECT_TRUE(bytes.find("0.25") == bytes.npos && bytes.find("199999 \r\n 0.5 ") != bytes.npos);
    fs::remove(PathOf(copy));
    EXPECT_THAT(StoredNow(), ElementsAre());  // nothing has changed
    MarkModified(wave);
    for (const bool pressed : {true, false}) {
        wave.DrawPressed = pressed;
        EXPECT_THAT(StoredNow(), SizeIs(pressed ? 0 : 1));
    }
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
    ASSERT_THAT(Stored(), SizeIs(11));
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
        for (const char* name : {"notes", ".tidemark-1-1.tmp"}) std::ofstream(entry.path() / name);
    }
    EXPECT_THAT(Restore(Answer::No), ElementsAre(HasSubstr("  0\n  1\n")));
    EXPECT_THAT(Stored(), ElementsAre("run/digit-0", "run/notes"));
}

TEST_F(RecoveryTest, DamagedCopiesArePutAside) {
    Crash([] { PutAnalog(0, "a"); });
    Stored();
    const std::string path = copy, whole = Content(path);
    const auto with = [&](const char* from, const char* to) {
        return std::regex_replace(whole, std::regex(from), to);
    };
    const std::pair<std::string, Texts> rows[] = {
        {"analog-0", {"", whole.substr(0, 30), with("\na\n", "\na%4\n"), with("ery 1", "ery 2")}},
        {"a",
         {whole.substr(0, whole.size() - 2), whole + "1", with("analog\n", "digital\n"),
          with("2.5", "nan")}}};
    for (const auto& [name, copies] : rows)
        for (const std::string& bytes : copies) {
            fs::create_directories(fs::path(PathOf(path)).parent_path());
            Put(path, bytes);
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
    EndSession();
    UseDataFolder(Put("file", "") + "/data");
    BeginSession();
    for (int i = 0; i < 2; ++i) KeepSession();
    const std::string text = "Unsaved work cannot be kept for recovery: ";
    EXPECT_THAT(asked, ElementsAre(text + "File too large", HasSubstr(text)));
}

}  // namespace
