#include "frame/commands/CommandTable.h"

#include "analog/AnalogFixture.h"

#include <algorithm>
#include <set>

namespace {

class CommandTableTest : public AnalogFixture {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        RefreshDotCommands();  // no document: forgets what the last test left
    }
    static std::vector<std::string_view> NamesOf(const CommandRow& row) {
        std::vector<std::string_view> names(row.Menus.begin(), row.Menus.end());
        names.push_back(row.Button);
        std::erase(names, "");
        return names;
    }
    static std::vector<MenuRow> Doors() {
        std::vector<MenuRow> doors;
        for (const auto& rows : {MenuStrip(), PopupMenus(), ToolBars()})
            doors.insert(doors.end(), rows.begin(), rows.end());
        return doors;
    }
    static bool IsEnabled(std::string_view name) {
        RefreshDotCommands();
        return StateOf(*FindCommand(name)).Enabled;
    }
};

TEST_F(CommandTableTest, EveryDoorLeadsToARow) {
    const auto menus = PopupMenus();
    for (const MenuRow& door : Doors()) {
        for (const std::string_view name : door.Entries) {
            if (name == "-") continue;
            const bool opens = name.starts_with('>') &&
                               std::any_of(menus.begin(), menus.end(), [&](const MenuRow& menu) {
                                   return menu.Name == name.substr(1);
                               });
            EXPECT_TRUE(opens || FindCommand(name) != nullptr) << door.Name << ": " << name;
        }
    }
}

TEST_F(CommandTableTest, EveryRowHasADoorTextsAndNamesOfItsOwn) {
    std::set<std::string_view> behindDoors, names, shortcuts;
    for (const MenuRow& door : Doors())
        behindDoors.insert(door.Entries.begin(), door.Entries.end());
    for (const CommandRow& row : Commands()) {
        const std::vector<std::string_view> own = NamesOf(row);
        ASSERT_FALSE(own.empty());
        EXPECT_TRUE(std::any_of(own.begin(), own.end(), [&](auto name) {
            return behindDoors.contains(name);
        })) << own.front();
        EXPECT_TRUE(row.Shortcut.empty() || shortcuts.insert(row.Shortcut).second) << row.Shortcut;
        for (const std::string_view name : own) {
            EXPECT_TRUE(names.insert(name).second) << name;
            EXPECT_EQ(FindCommand(name), &row);
            for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish)
                EXPECT_NE(TextOf(name == row.Button ? "Mainfrm" : "Mnufrm", name), "") << name;
            UseEnglish = 1;
        }
    }
    for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish)
        for (const MenuRow& menu : MenuStrip()) EXPECT_NE(TextOf("Mnufrm", menu.Name), "");
    EXPECT_EQ(FindCommand("MnuFile_Nothing"), nullptr);
}

// Enabled: n without a document, e with an empty one, d with dots, s with a selection, f full,
// F full with a selection, c with a filled clipboard, u after an edit, r after an undo, g on a
// digital document.
TEST_F(CommandTableTest, StatesFollowTheDocument) {
    constexpr std::string_view states = "nedsfFcurg";
    const std::pair<const char*, std::string_view> rows[] = {{"NewAnaWaveAresBtn", states},
                                                             {"MnuFile_Exit", states},
                                                             {"MnuFile_Save", "edsfFcur"},
                                                             {"MnuRework_property", "edsfFcur"},
                                                             {"MnuView_Grid", "edsfFcur"},
                                                             {"MnuEdit_Cut", "sF"},
                                                             {"MnuSelect_Copy", "sF"},
                                                             {"DeletAresBtn", "sF"},
                                                             {"PasteAresBtn", "c"},
                                                             {"MnuEdit_SelAll", "dsfFcur"},
                                                             {"MnuIdle_Insert", "edsFcur"},
                                                             {"WaveAresBtn8", "nedsFcur"},
                                                             {"UndoAresBtn", "u"},
                                                             {"MnuEdit_Resume", "r"},
                                                             {"HelpAresBtn", ""}};
    for (const char state : states) {
        SetUp();
        const bool full = state == 'f' || state == 'F';
        if (state == 'e') MakeDocument("", 0, 100);
        if (state != 'n' && state != 'e') MakeDocument("g", full ? 99 : 50, 100);
        if (state == 's' || state == 'F') SelectDots(ActiveAnalog(), 3, 9);
        ActiveAnalog().UndoAvailable = state == 'u';
        ActiveAnalog().ResumeAvailable = state == 'r';
        ClipDotCount = state == 'c' ? 1 : 0;
        ActiveIsDigital = state == 'g';
        for (const auto& [name, when] : rows)
            EXPECT_EQ(IsEnabled(name), when.find(state) != when.npos)
                << name << " in state " << state;
    }
}

TEST_F(CommandTableTest, DotCommandsKeepTheirStateAtOneDot) {
    for (const std::int32_t before : {2, 0}) {
        MakeDocument(before > 0 ? "c" : "", before);
        RefreshDotCommands();
        AnalogWaveRecord& wave = MakeDocument("c", 1);
        SelectDots(wave, 0, 0);
        EXPECT_EQ(IsEnabled("CutAresBtn"), before == 2) << before;
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
        EXPECT_EQ(StateOf(*FindCommand(name)).Checked, !before) << name;
    }
    EXPECT_TRUE(StateOf(*FindCommand("MnuHelp_Lang_En")).Checked);
    EXPECT_FALSE(StateOf(*FindCommand("MnuHelp_Lang_Ch")).Checked);
}

TEST_F(CommandTableTest, DisabledAndUnknownCommandsDoNothing) {
    AnalogWaveRecord& wave = MakeDocument("c", 50);
    for (const char* name : {"DeletAresBtn", "UndoAresBtn", "PasteAresBtn", "HelpAresBtn", "-", ""})
        RunCommand(name);
    EXPECT_EQ(wave.Dots, 50);
    EXPECT_FALSE(wave.Modified || wave.UndoAvailable);
    EXPECT_TRUE(asked.empty());
}

TEST_F(CommandTableTest, TheTagOfTheActiveWindowDecides) {
    const struct {
        std::int16_t tag, analog, digital;
    } rows[] = {{3, 3, 0}, {0, 0, 0}, {12, 0, 2}, {-1, 0, 2}};
    MakeDocument("c", 50, 100, 3);
    MakeDocument("c", 40);
    for (const auto& row : rows) {
        tag = row.tag;
        RunCommand("MnuEdit_SelAll");
        EXPECT_EQ(ActiveAnalogIndex, row.analog) << row.tag;
        EXPECT_EQ(ActiveDigitIndex, row.digital) << row.tag;
        EXPECT_EQ(bool(AnalogDocs[0].HasSelection), row.tag != 3) << row.tag;
        EXPECT_EQ(AnalogDocs[3].SelEnd, 49) << row.tag;
    }
}

TEST_F(CommandTableTest, WaveButtonsWithoutADocumentAskForOne) {
    std::vector<std::int16_t> kinds;
    TheHost().RunDialog = [&](std::string_view, std::int16_t kind) {
        kinds.push_back(kind);
        return false;
    };
    RunCommand("WaveAresBtn7");
    EXPECT_EQ(asked, std::vector<std::string>{"Please create a new analog waveform file"});
    MakeDocument("", 0, 100);
    RunCommand("WaveAresBtn7");
    RunCommand("MnuIdle_Insert");
    EXPECT_EQ(kinds, (std::vector<std::int16_t>{7, -1}));
    EXPECT_EQ(asked.size(), 1U);
}

}  // namespace
