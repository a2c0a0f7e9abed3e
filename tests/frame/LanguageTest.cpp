#include "frame/LoadLanguageCode.h"
#include "frame/WindowTextRows.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"

#include <cctype>
#include <set>
#include <tuple>

namespace {

struct LanguageTest : TempFolderTest {
    void TearDown() override { UseEnglish = 1; }
};

TEST_F(LanguageTest, CatalogueHasBothLanguages) {
    const std::tuple<std::int32_t, const char*, const char*> rows[] = {
        {13, "Enter the start and end point of zoom ", "手动输入区域缩放的起点和终点"},
        {16, R"(The first character of waveform name must be "A"-"Z", or "_".)",
         R"(波形名称首字母必须是"A"-"Z"，或者"_")"},
        {20, "The communication fails!", "    通讯失败!"},
        {51, "Find appointed value manually", "手动查找指定点数值"}};
    for (const auto& [id, english, chinese] : rows) {
        UseEnglish = 1;
        EXPECT_EQ(ResText(id), english);
        UseEnglish = 0;
        EXPECT_EQ(ResText(id), chinese);
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

char MnemonicOf(std::string_view caption) {
    const auto mark = caption.find('&');
    return mark == std::string_view::npos ? '\0' : char(std::toupper(caption[mark + 1]));
}

TEST_F(LanguageTest, MenusHaveTheSameMnemonicsInBothLanguages) {
    for (const WindowText& row : MainTexts()) {
        if (row.Window != "Mnufrm") continue;
        EXPECT_NE(MnemonicOf(row.English), '\0') << row.Control;
        EXPECT_EQ(MnemonicOf(row.Chinese), MnemonicOf(row.English)) << row.Control;
        EXPECT_EQ(row.Chinese.ends_with("..."), row.English.ends_with("...")) << row.Control;
    }
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
    UseSettingsStore(PathOf("settings.ini"));
    UseEnglish = 0;
    SaveLanguage();
    EXPECT_EQ(GetSetting("TideMark", "Tidemark_Language", "Language", "none"), "0");
    UseSettingsStore("");
}

}  // namespace
