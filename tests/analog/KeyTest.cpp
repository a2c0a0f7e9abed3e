#include "analog/KeyFuncBox.h"

#include "analog/GestureFixture.h"

namespace {

// Keys as letters: l r u d the arrows, h e Home and End, p n the pages, s Space, in front of them
// S Shift, C Control, A Alt, R held for a while. Other events are those of GestureFixture.
class KeyTest : public GestureFixture {
protected:
    /// Plays a script, behind the dots in view, on runs of 50 dots, "gcg", in 200 columns.
    void Press(const std::string& script) {
        MakePlot(1, 401);
        MakeDocument("gcg", 50, 401).PlotWidth = 200;
        std::istringstream all(script);
        all >> doc.ViewStart >> doc.ViewEnd;
        for (std::string each; all >> each;) {
            const auto has = [&](char letter) { return each.find(letter) != each.npos; };
            const std::size_t key = std::string("lrudhepns").find(each.back());
            if (key == std::string::npos)
                Play(each);
            else
                WavePic_KeyDown(0, PlotKey(key), {has('S'), has('C'), has('A'), has('R')});
        }
    }
};

TEST_F(KeyTest, SegmentsAndEdgesFollowTheKeys) {
    // The view and keys; the selection, "!" where it is a picked segment, and the view behind them.
    for (const auto& [keys, expected] : Rows(R"(
        0 200 r => 0-49! 0-200;         0 200 r r r r => 100-149! 0-200;
        0 200 l l => 50-99! 0-200;      0 20 e => 100-149! 100-120;
        0 20 e h => 0-49! 0-20;         0 400 Sr Sr => 0-4 0-400;
        60 70 Sr => 60-61 60-70;        0 200 CSr => 0-20 0-200;
        60 160 Sl => 148-149 60-160;    0 20 Se => 0-149 129-149;
        100 120 Sr Sh => 0-100 0-20;    100 120 Sr Sh Se => 100-149 129-149;
        0 200 r r Sr => 50-100 0-200;   0 200 r r s Sl => 49-99 0-200;
        0 200 r r Sr r => 100-149! 0-200; 0 200 Cr => none 0-200;
        20 40 n => none 30-50;          0 200 t5 r Sr => none 0-200)")) {
        Press(keys);
        const char* picked = doc.HasSelection && doc.SegmentPicked ? "! " : " ";
        EXPECT_EQ(Selection() + picked + View().substr(0, View().find(' ')), expected) << keys;
    }
}

TEST_F(KeyTest, AltMovesTheLimitLines) {
    // The lines left, right, top, bottom stand at 6, 2, 75, 25 before. Lines that are not shown
    // stay, those that are shown are held to the plot.
    for (const auto& [script, lines] : Rows(R"(
        0 200 X Ar Ar ASr Au => 8 3 75 25;  0 200 A ARl ARSr ARd ARd ARd => 0 12 100 25;
        0 200 Y Ad ASu Al => 6 2 76 24;     0 200 A F Ar => 6 2 75 25)")) {
        Press(script);
        const std::string across = Number(doc.XLimitLeft) + ' ' + Number(doc.XLimitRight) + ' ';
        EXPECT_EQ(across + Number(doc.YLimitTop) + ' ' + Number(doc.YLimitBottom), lines) << script;
    }
}

}  // namespace
