// Two hundred rounds of a working day: open, edit, save, close, connect, send, read back, delete.
// Behind the first twenty, nothing may be left over.
#include "files/OpenFileFuncBox.h"
#include "files/RecoveryFuncBox.h"
#include "platform/ProgramFolder.h"
#include "RoadFixture.h"

#include <malloc.h>
#include <map>

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr bool Sanitized = true;  // freed memory is kept for a while, reports go to the terminal
#else
constexpr bool Sanitized = false;
#endif
constexpr int Rounds = 200, WarmUp = 20;
constexpr long MemoryBound = Sanitized ? 1L << 40 : 2048;  // KiB

long Entries(const std::string& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}
long Resident(const std::string& process) {
    long size = 0, pages = 0;
    std::ifstream(process + "/statm") >> size >> pages;
    return pages * sysconf(_SC_PAGESIZE) / 1024;
}

// Files, and what is done to each of them.
// clang-format off
const std::pair<const char*, std::vector<const char*>> Files[] = {
    {"two-tone.txt",
     {"MnuEdit_SelAll", "MnuRework_Invert", "MnuRework_Mirror", "SaveAresBtn", "CopyAresBtn", "ZoomXAresBtn",
      "MnuMath_Win_Hamming", "UndoAresBtn", "ResumeAresBtn", "UndoAresBtn", "SaveAresBtn"}},
    {"serial-frame.DRIG",
     {"mnuDigitEdit_SelectAll", "ValueAresBtn11", "SaveAresBtn", "mnuDigitEdit_SelectAll", "CopyAresBtn",
      "ValueAresBtn9", "UndoAresBtn", "ResumeAresBtn", "UndoAresBtn", "SaveAresBtn"}}};
// clang-format on

class EnduranceTest : public RoadFixture {
protected:
    void SetUp() override {
        if (!Sanitized) testing::internal::CaptureStderr();
        RoadFixture::SetUp();
        UseDataFolder(PathOf("data"));
        BeginSession();
        for (const auto& [file, commands] : Files)
            std::filesystem::copy(TIDEMARK_SOURCE_DIR "/examples/" + std::string(file), folder);
    }
    void TearDown() override {
        EndSession();
        UseDataFolder("");
        RoadFixture::TearDown();
        EXPECT_EQ(Sanitized ? "" : testing::internal::GetCapturedStderr(), "");
    }
    void Round(int round) {
        for (const auto& [file, commands] : Files) {
            std::vector<double> saved;
            for (const bool edits : {true, false}) {
                ASSERT_TRUE(OpenWaveFile(PathOf(file)));
                ASSERT_TRUE(edits || Content() == saved) << file;
                for (std::size_t i = 0; edits && i < commands.size(); ++i, KeepSession())
                    Do(commands[i]);
                if (!edits)
                    SendThereAndBack(round % 5 == 0 && !ActiveIsDigital ? SerialLink : UsbLink);
                saved = Content();
                CloseActive();
            }
        }
        ASSERT_EQ(AnalogDocCount + DigitDocCount, 0);
    }
    std::map<std::string, long> Measure() {
        QTest::qWait(2000);  // the simulator takes its time to let go of a connection
        malloc_trim(0);
        const std::string other = "/proc/" + std::to_string(simulator.processId());
        return {{"KiB", Resident("/proc/self")},
                {"KiB of the simulator", Resident(other)},
                {"handles", Entries("/proc/self/fd")},
                {"handles of the simulator", Entries(other + "/fd")},
                {"threads", Entries("/proc/self/task")},
                {"widgets", QApplication::allWidgets().size()},
                {"objects", window_->findChildren<QObject*>().size()}};
    }
};

TEST_F(EnduranceTest, RoundsLeaveNothingBehind) {
    std::map<std::string, long> warm;
    for (int round = 1; round <= Rounds; ++round) {
        SCOPED_TRACE(round);
        Round(round);
        ASSERT_FALSE(HasFailure());
        if (round % WarmUp != 0) continue;
        if (warm.empty()) QTest::qWait(31000);  // Qt ends its threads after half a minute of rest
        std::cout << "round " << round;
        for (const auto& [name, value] : Measure()) {
            const long growth = value - warm.try_emplace(name, value).first->second;
            EXPECT_TRUE(growth == 0 || (name[0] == 'K' && growth < MemoryBound)) << name;
            std::cout << ", " << value << ' ' << name;
        }
        std::cout << std::endl;
    }
}

}  // namespace
