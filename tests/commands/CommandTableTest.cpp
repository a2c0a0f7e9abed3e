#include "frame/commands/CommandTable.h"

#include "analog/AnalogFixture.h"
#include "analog/ToolFuncBox.h"

#include <set>
#include <sstream>

namespace {

using CommandTableTest = AnalogFixture;

TEST_F(CommandTableTest, DoorsAndRowsBelongTogether) {
    std::set<std::string_view> doors, names;
    for (const auto& menus : {MenuStrip(), PopupMenus(), ToolBars(), StatusPanels()})
        for (const MenuRow& menu : menus) doors.insert(menu.Entries.begin(), menu.Entries.end());
    for (const MenuRow& menu : PopupMenus()) doors.erase(">" + std::string(menu.Name));
    for (const std::string_view door : doors) EXPECT_TRUE(door == "-" || FindCommand(door)) << door;
    for (const CommandRow& row : Commands()) {
        bool behindDoor = false;
        std::vector<std::string_view> own(row.Menus.begin(), row.Menus.end());
        own.push_back(row.Button);
        for (const std::string_view name : own) {
            if (name.empty()) continue;
            behindDoor |= doors.contains(name);
            EXPECT_TRUE(names.insert(name).second) << name;
            EXPECT_NE(TextOf(name == row.Button ? "Mainfrm" : "Mnufrm", name), "") << name;
        }
        EXPECT_TRUE(behindDoor) << row.Button << row.Menus[0];
    }
}

// Enabled: n without a document, e with an empty one, d with dots, s with a selection, f full,
// F full with a selection, c with a filled clipboard, u after an edit, r after an undo, g on a
// digital document, 1 with one selected dot left of many, i with an only dot from the beginning.
TEST_F(CommandTableTest, StatesFollowTheDocument) {
    constexpr std::string_view states = "nedsfFcurg1i";
    const std::string table = R"(
        NewAnaWaveAresBtn nedsfFcurg1i  MnuFile_Save edsfFcur1i     MnuEdit_Cut sF1
        PasteAresBtn c                  MnuEdit_SelAll dsfFcur1i    MnuIdle_Insert edsFcur1i
        WaveAresBtn8 nedsFcur1i         UndoAresBtn u               MnuEdit_Resume r
        MnuMath_Mod -                   MnuFile_Print edsfFcur1i    HelpAresBtn nedsfFcur1ig
        MnuView_SetGrid nedsfFcur1i     MnuSelect_Resize sF1        MnuDraw_FunctionEdit edsFcur1i
        MnuSelect_Wavemath sF1          MnuMath_WinMath dsfFcur1i   MnuDraw_InsertMathWave edscur1i
        MnuMath_Filter_LowPass dsfFcur  Mnuselect_Smooth dsfFcur)";
    for (const char state : states) {
        SetUp();
        RefreshDotCommands();  // no document: forgets the state before
        const auto in = [state](std::string_view some) { return some.find(state) != some.npos; };
        if (state != 'n') MakeDocument(state == 'e' ? "" : "g", in("fF") ? 99 : 50, 100);
        if (state == '1') RefreshDotCommands();
        if (in("1i")) MakeDocument("g", 1, 100);
        if (in("sF1i")) SelectDots(ActiveAnalog(), 0, 9);
        ActiveAnalog().UndoAvailable = state == 'u';
        ActiveAnalog().ResumeAvailable = state == 'r';
        ClipDotCount = state == 'c' ? 1 : 0;
        ActiveIsDigital = state == 'g';
        RefreshDotCommands();
        std::istringstream rows(table);
        for (std::string name, when; rows >> name >> when;) {
            EXPECT_EQ(StateOf(*FindCommand(name)).Enabled, in(when)) << name << ", " << state;
            if (!in(when)) RunCommand(name);  // changes nothing, the rows below see
        }
    }
}

TEST_F(CommandTableTest, SwitchesShowAndTurnTheirFlag) {
    const std::pair<const char*, Flag AnalogWaveRecord::*> rows[] = {
        {"GridAresBtn", &AnalogWaveRecord::GridOn},
        {"MnuView_DotLink", &AnalogWaveRecord::DotLinkOn},
        {"MnuView_SegmentMark", &AnalogWaveRecord::SegmentMarkOn},
        {"MnuView_ShowTime", &AnalogWaveRecord::TimeAxisOn}};
    AnalogWaveRecord& wave = MakeDocument("", 0, 100);
    for (const auto& [name, field] : rows) {
        const bool before = bool(wave.*field);
        EXPECT_EQ(StateOf(*FindCommand(name)).Checked, before) << name;
        RunCommand(name);
        EXPECT_EQ(bool(wave.*field), !before) << name;
    }
}

TEST_F(CommandTableTest, SelectAllEndsADrawingToolOnly) {
    for (const auto& [tool, after] : {std::pair(Tool::HandDraw, Tool::Select),
                                      {Tool::LineDraw, Tool::Select},
                                      {Tool::ZoomX, Tool::ZoomX}}) {
        const AnalogWaveRecord& wave = MakeDocument("c", 50, 100);
        SwitchTool(0, tool);
        RunCommand("MnuIdle_SelAll");
        EXPECT_TRUE(ToolOf(wave) == after && wave.HasSelection && wave.SelEnd == 49);
    }
}

TEST_F(CommandTableTest, TheTagOfTheActiveWindowDecides) {
    const std::int16_t rows[][3] = {{3, 3, 0}, {0, 0, 0}, {12, 0, 2}, {-1, 0, 2}};
    MakeDocument("c", 50, 100, 3);
    MakeDocument("c", 50);
    for (const auto& [window, analog, digital] : rows) {
        tag = window;
        RunCommand("MnuEdit_SelAll");
        EXPECT_TRUE(ActiveAnalogIndex == analog && ActiveDigitIndex == digital) << tag;
        EXPECT_EQ(bool(AnalogDocs[0].HasSelection), tag != 3) << tag;
    }
}

TEST_F(CommandTableTest, WaveButtonsWithoutADocumentAskForOne) {
    RunCommand("WaveAresBtn7");
    EXPECT_EQ(asked, std::vector<std::string>{"Please create a new analog waveform file"});
    std::int16_t opened = 0;
    TheHost().RunDialog = [&](auto, std::int16_t kind) {
        opened = kind;
        return false;
    };
    MakeDocument("", 0, 100);
    RunCommand("WaveAresBtn7");
    EXPECT_EQ(opened, 7);
}

}  // namespace
