#include "frame/LoadLanguageCode.h"
#include "frame/WindowTextRows.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>

namespace {

struct LanguageTest : testing::Test {
    void TearDown() override { UseEnglish = 1; }
};

TEST_F(LanguageTest, CatalogueIsComplete) {
    for (std::int32_t id = 0; id <= 52; ++id) {
        const bool exists = (id >= 1 && id <= 27) || id == 50 || id == 51;
        UseEnglish = 1;
        EXPECT_EQ(!ResText(id).empty(), exists && id > 3) << id;
        UseEnglish = 0;
        EXPECT_EQ(!ResText(id).empty(), exists) << id;
    }
    EXPECT_EQ(std::string(ResText(20)).append(TextOf("Mnufrm", "MnuFile_New")),
              "    通讯失败!新建(&N)");
    EXPECT_EQ(TextOf("WaveFrm", "MnuFile_New"), "");
}

char MnemonicOf(std::string_view caption) {
    const auto mark = caption.find('&');
    return mark == std::string_view::npos ? '\0' : char(std::toupper(caption[mark + 1]));
}

TEST_F(LanguageTest, RowsAreWholeAndUniqueWithTheMnemonicsOfMenusInBothLanguages) {
    std::set<std::string> seen;
    for (const WindowText& row : WindowTexts()) {
        const std::string name = std::string(row.Window) + "/" + std::string(row.Control);
        EXPECT_TRUE(seen.insert(name).second) << name;
        EXPECT_FALSE(row.English.empty() || row.Chinese.empty()) << name;
        if (row.Window != "Mnufrm") continue;
        EXPECT_NE(MnemonicOf(row.English), '\0') << row.Control;
        EXPECT_EQ(MnemonicOf(row.Chinese), MnemonicOf(row.English)) << row.Control;
        EXPECT_EQ(row.Chinese.ends_with("..."), row.English.ends_with("...")) << row.Control;
    }
}

}  // namespace
