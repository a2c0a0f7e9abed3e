#include "analog/KeyFuncBox.h"

#include "analog/GestureFixture.h"

namespace {

// Keys as letters: l r u d the arrows, h e Home and End, p n the pages, s Space, in front of them
// S Shift, C Control, A Alt, R held for a while. Other events are those of GestureFixture.
class KeyTest : public GestureFixture {
protected:
    /// Plays a script on runs of 50 dots, "gcg", in a plot of 200 columns that shows a view.
    void Press(std::int32_t first, std::int32_t last, const std::string& script) {
        MakePlot(1, 401);
        MakeDocument("gcg", 50, 401).PlotWidth = 200;
        std::tie(doc.ViewStart, doc.ViewEnd) = std::pair(first, last);
        std::istringstream all(script);
        for (std::string each; all >> each;) {
            const auto has = [&](char letter) { return each.find(letter) != each.npos; };
            const std::size_t key = std::string("lrudhepns").find(each.back());
            if (key == std::string::npos) {
                Play(each);
                continue;
            }
            WavePic_KeyDown(0, PlotKey(key), {has('S'), has('C'), has('A'), has('R')});
        }
    }
};

TEST_F(KeyTest, SegmentsAndEdgesFollowTheKeys) {
    // The view and keys; the selection, "!" where it is a picked segment, and the view behind them.
    const std::tuple<int, int, const char*, const char*> rows[] = {
        // clang-format off
        {0, 200, "r", "0-49! 0-200"},         {0, 200, "r r r r", "100-149! 0-200"},
        {0, 200, "l l", "50-99! 0-200"},      {0, 20, "e", "100-149! 100-120"},
        {0, 20, "e h", "0-49! 0-20"},         {0, 400, "Sr Sr", "0-4 0-400"},
        {60, 70, "Sr", "60-61 60-70"},        {0, 200, "CSr", "0-20 0-200"},
        {60, 160, "Sl", "148-149 60-160"},    {0, 20, "Se", "0-149 129-149"},
        {100, 120, "Sr Sh", "0-100 0-20"},    {100, 120, "Sr Sh Se", "100-149 129-149"},
        {0, 200, "r r Sr", "50-100 0-200"},   {0, 200, "r r s Sl", "49-99 0-200"},
        {0, 200, "r r Sr r", "100-149! 0-200"}, {0, 200, "Cr", "none 0-200"},
        {20, 40, "n", "none 30-50"},          {0, 200, "t5 r Sr", "none 0-200"}};
    // clang-format on
    for (const auto& [first, last, keys, expected] : rows) {
        Press(first, last, keys);
        const char* picked = doc.HasSelection && doc.SegmentPicked ? "! " : " ";
        EXPECT_EQ(Selection() + picked + View().substr(0, View().find(' ')), expected) << keys;
    }
}

TEST_F(KeyTest, AltMovesTheLimitLines) {
    const std::pair<const char*, const char*> rows[] = {
        // The lines left, right, top, bottom stand at 6, 2, 75, 25 before.
        {"X Ar Ar ASr Au", "8 3 75 25"},  // the rows are not shown
        {"Y Ad ASu Al", "6 2 76 24"},
        {"A ARl ARSr ARd ARd ARd", "0 12 100 25"},  // held to the plot
        {"A F Ar", "6 2 75 25"}};
    for (const auto& [script, lines] : rows) {
        Press(0, 200, script);
        EXPECT_EQ(Number(doc.XLimitLeft) + ' ' + Number(doc.XLimitRight) + ' ' +
                      Number(doc.YLimitTop) + ' ' + Number(doc.YLimitBottom),
                  lines)
            << script;
    }
}

}  // namespace
