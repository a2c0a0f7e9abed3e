#include "frame/LoadLanguageCode.h"
#include "frame/WindowTextRows.h"
#include "platform/Settings.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <string>

namespace {

struct LanguageTest : ::testing::Test {
    void TearDown() override { UseEnglish = 1; }
};

TEST_F(LanguageTest, CatalogueHasBothLanguages) {
    struct Row {
        std::int32_t id;
        const char* english;
        const char* chinese;
    };
    const Row rows[] = {
        {2, "", "存储空间已满，请先删除一个已存储的任意波形，然后进行存储。"},
        {9, "Idle work mode", "空闲工作模式"},
        {13, "Enter the start and end point of zoom ", "手动输入区域缩放的起点和终点"},
        {16, R"(The first character of waveform name must be "A"-"Z", or "_".)",
         R"(波形名称首字母必须是"A"-"Z"，或者"_")"},
        {20, "The communication fails!", "    通讯失败!"},
        {24, "It can't be empty to input! ", "输入不能为空！"},
        {50, "Create a new file", "请新建数字波形文件"},
        {51, "Find appointed value manually", "手动查找指定点数值"},
    };
    for (const Row& row : rows) {
        UseEnglish = 1;
        EXPECT_EQ(ResText(row.id), row.english);
        UseEnglish = 0;
        EXPECT_EQ(ResText(row.id), row.chinese);
    }
}

TEST_F(LanguageTest, CatalogueIsComplete) {
    for (std::int32_t id = 0; id <= 52; ++id) {
        const bool exists = (id >= 1 && id <= 27) || id == 50 || id == 51;
        UseEnglish = 1;
        EXPECT_EQ(!ResText(id).empty(), exists && id > 3) << id;
        UseEnglish = 0;
        EXPECT_EQ(!ResText(id).empty(), exists) << id;
    }
    EXPECT_TRUE(ResText(1).starts_with("用户选择易失性存储器后，无须"));
    EXPECT_TRUE(ResText(1).ends_with("任意波形，然后进行存储。"));
    EXPECT_TRUE(ResText(3).ends_with("作为当前波形，再执行删除和重命名操作。"));
}

TEST_F(LanguageTest, RowsAreWholeAndUnique) {
    std::set<std::string> seen;
    for (const WindowText& row : WindowTexts()) {
        const std::string name = std::string(row.Window) + "/" + std::string(row.Control);
        EXPECT_TRUE(seen.insert(name).second) << name;
        EXPECT_FALSE(row.English.empty() || row.Chinese.empty()) << name;
    }
}

// "MnuMath_Filter_Smooth" stands in the menu "MnuMath_Filter" when that one has a row itself.
std::string MenuOf(std::string_view control) {
    const auto bar = control.rfind('_');
    if (bar == std::string_view::npos) return "menu bar";
    std::string menu(control.substr(0, bar));
    const bool isSubMenu = menu.find('_') == std::string::npos || !TextOf("Mnufrm", menu).empty();
    if (!isSubMenu) menu.resize(menu.find('_'));
    for (char& c : menu) c = char(std::tolower(c));  // Mnuselect_, MNuDraw_
    return menu;
}

char MnemonicOf(std::string_view caption) {
    const auto mark = caption.find('&');
    return mark == std::string_view::npos ? '\0' : char(std::toupper(caption[mark + 1]));
}

TEST_F(LanguageTest, MnemonicsAreUniqueWithinAMenu) {
    std::map<std::string, std::string> letters;
    for (const WindowText& row : MainTexts()) {
        if (row.Window != "Mnufrm") continue;
        const char letter = MnemonicOf(row.English);
        std::string& used = letters[MenuOf(row.Control)];
        EXPECT_TRUE(letter != '\0' && used.find(letter) == std::string::npos) << row.Control;
        EXPECT_EQ(MnemonicOf(row.Chinese), letter) << row.Control;
        EXPECT_EQ(row.Chinese.ends_with("..."), row.English.ends_with("...")) << row.Control;
        used += letter;
    }
    EXPECT_EQ(letters["menu bar"], "FEDVRMTWH");
    EXPECT_EQ(letters["mnumath_filter"], "LS");
    EXPECT_EQ(letters["mnuselect"].size(), 12u);
}

TEST_F(LanguageTest, TextFollowsTheLanguage) {
    EXPECT_EQ(TextOf("Mainfrm", "ConnectAresBtn"), "Connect to instrument");
    EXPECT_EQ(TextOf("Mainfrm", ""), "TideMark");
    EXPECT_EQ(TextOf("Mainfrm", "MnuFile"), "");
    UseEnglish = 0;
    EXPECT_EQ(TextOf("Mainfrm", "ConnectAresBtn"), "连接到仪器");
    EXPECT_EQ(TextOf("Mnufrm", "MnuFile_New"), "新建(&N)");
    EXPECT_EQ(TextOf("WaveFrm", "MnuFile_New"), "");
}

TEST_F(LanguageTest, SavesTheChoiceAsANumber) {
    const auto store = std::filesystem::temp_directory_path() / "tidemark-language-test.ini";
    std::filesystem::remove(store);
    UseSettingsStore(store.string());
    UseEnglish = 0;
    SaveLanguage();
    EXPECT_EQ(GetSetting("TideMark", "Tidemark_Language", "Language", "none"), "0");
    UseSettingsStore("");
    std::filesystem::remove(store);
}

}  // namespace
