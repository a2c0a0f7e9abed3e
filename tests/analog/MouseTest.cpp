#include "analog/GestureFixture.h"

#include <set>

// Tools by number: 0 to 3 zoom across, upright, area and centre, 4 cursor track, 5 hand, 6 line,
// 7 point edit, 8 select.

namespace {

class MouseTest : public GestureFixture {
protected:
    std::string State() const {
        if (doc.LinePending) return ToolsOn() + " waiting";
        if (!doc.MouseArmed) return ToolsOn() + " idle";
        const bool drags = doc.MouseMoved || doc.DrawPressed || IsZoomTool(ToolOf(doc));
        return ToolsOn() + (drags ? " dragging" : " pressed");
    }
    std::vector<Colour> Picture() const {
        std::vector<Colour> pixels(std::size_t(200) * 101);
        for (std::int32_t i = 0; i < std::ssize(pixels); ++i)
            pixels[i] = doc.PlotSurface.Pixel(i % 200, i / 200);
        return pixels;
    }
};

// Behind "|" comes the event; then the state, the code of a new hint, and what changed.
TEST_F(MouseTest, EveryTransition) {
    std::string menu;
    std::vector<std::string> before;
    TheHost().PopupMenu = [&](auto name) { menu = name; };
    const auto facts = [&] {
        const std::string undo = doc.UndoAvailable ? "undo" : "";
        return std::vector{undo, Number(doc.Dots), Runs(doc), Selection(), View(), menu};
    };
    mark = [&] {
        menu = status = "";
        before = facts();
    };
    Expect(R"(
        | M30,50 => 8 idle; t8 | P10,50 => 8 pressed; t8 P10,50 | M30,50 => 8 dragging;
        t8 P10,50 | R => 8 idle; t8 P10,50 M30,50 | R => 8 idle 9-29;
        t8 P10,50 M30,50 | r20,50 => 8 dragging; t8 P10,50 M30,50 R | r20,50 => 8 idle MnuSelect;
        t8 P10,50 M30,50 R | r60,50 => 8 idle none MnuIdle; t5 | P98,25 => 5 dragging hint6 undo;
        t8 P10,50 M30,50 R | P20,90 => 8 pressed none; t5 P98,25 | M104,25 => 5 dragging 105;
        t5 P98,25 M104,25 | R => 5 idle hint7 c0-97 c98-104; t6 | P10,50 => 6 waiting hint6 undo;
        t5 P98,25 M104,25 | r0,0 => 8 idle hint8 c0-97 c98-104; t6 P10,50 | R H20,80 => 6 waiting;
        t6 P10,50 R | P20,50 => 6 waiting hint6 c0-9 c10-20 c21-99; t0 | P10,50 => 0 dragging;
        t6 P10,50 P20,50 | r0,0 => 8 idle hint8; t6 P10,50 | r0,0 => 8 idle hint8;
        t0 P10,50 | M60,50 => 0 dragging; t0 P10,50 M60,50 | R => 0 idle 10-60 1..-1;
        t0 P10,50 M60,50 | r0,0 => 8 idle hint8; t4 | P10,50 => 4 pressed; t4 | P150,50 => 4 idle;
        t4 P10,50 | M60,0 => 4 dragging; t4 P10,50 M60,0 | R => 4 idle;
        t7 P10,50 | r0,0 => 8 idle hint8)",
           [&] {
               std::string text = State();
               for (int code = 4; code < 15; ++code)
                   if (ResText(code) == status) text += " hint" + std::to_string(code);
               for (std::size_t i = 0; i < before.size(); ++i)
                   if (facts()[i] != before[i]) text += ' ' + facts()[i];
               return text;
           });
    const int hints[] = {11, 12, 13, 14, 10, 7, 5, 4, 8};
    for (int pair = 0; pair < 81; ++pair) {
        SwitchTool(0, Tool(pair / 9));
        Play("P10,50 M20,50");
        SwitchTool(0, Tool(pair % 9));
        EXPECT_EQ(State(), std::to_string(pair % 9) + " idle") << pair;
        EXPECT_EQ(status, ResText(hints[pair % 9])) << pair;
        ToggleTool(Tool(pair % 9));
        EXPECT_EQ(State(), "8 idle");
    }
}

// Segments and dots. The limit lines stand at columns 6 and 2, rows 75 and 25. 30 mV is a value as
// any other.
TEST_F(MouseTest, StrokesAndLinesWriteTheirDots) {
    Expect(R"(
        n0 t5 P4,25 R => c0-4: 0.1 0.2 0.3 0.4 0.5; n1 t5 P5,0 R => c0-0 c1-5: 0 0.2 0.4 0.6 0.8 1;
        n1 t5 P0,50 M4,0 R => c0-4: 0 0.2 0.4 0.6 1; n0 t5 P-5,-9 M3,999 R => c0-3: 1 0.5 0 -1;
        n0,801 t5 P0,50 M1,0 R => c0-4: 0 0.2 0.4 0.6 1;
        n1,5 t5 P1,0 M500,50 M900,50 R => c0-4: 1 0.8 0.6 0.4 0;
        n5 t5 P3,50 M1,0 R => c0-2 c3-3 c4-4: 0 0.001 0.002 0 0.004;
        n0 t5 P0,50 M4,0 M2,50 M6,0 R => c0-6: 0 0.2 0.4 0.2 0.4 0.6 1;
        n6 t5 P5,50 M2,0 M4,50 R => c0-2 c3-5: 0 0.001 0.002 0.6667 0 0;
        n0 X t5 P0,50 M9,0 R => c0-6: 0 0 0 0.2 0.4 0.6 1; n0 Y t6 P0,0 P1,100 r => c0-1: 0.5 -0.5;
        n0 Y F t5 P0,0 M1,100 R => c0-1: 0.5 -0.5; n2 t6 P4,0 r => c0-1: 0 0.001;
        n0 X F t6 P0,50 P9,0 r => c0-6: 0 0 0 0.2 0.4 0.6 1;
        n0 t6 P4,0 P6,0 P0,50 t8 => c0-6: 0 0.1429 0.2857 0.4286 0.5714 0.7143 1;
        n0 t6 P4,0 P0,50 r => c0-4: 0 0.2 0.4 0.6 1; n2 t6 P1,0 P4,0 u e => c0-0 c1-4: 0 1 1 1 1;
        n6 t6 P2,50 P4,50 r => c0-1 c2-4 c5-5: 0 0.001 0 0 0 0.005;
        n2 t6 P1,0 P4,0 a => c0-0 c1-4: 0 1 1 1 1; n0 t6 P0,50 P4,0 u P1,0 P2,0 r => c0-2: 0.5 1 1;
        n0 t6 =0:4 =1:10 =2:0 =3:0 k => c0-4: 0 0.2 0.4 0.6 1; n1 m t7 =0:0 =1:30 k => c0-0: 0.003;
        n1 m t6 =0:2 =1:10000 =2:3 =3:-5000 k => c0-0 c1-3: 0 0.5 1 -0.5;
        n1 t7 =0:5 =1:10 k => c0-0 c1-5: 0 0.2 0.4 0.6 0.8 1)",
           [&] {
               std::string text = Runs(doc) + ':';
               for (std::int32_t i = 0; i < doc.Dots; ++i) text += ' ' + Number(doc.DotArray[i].Y);
               ExpectSound(doc, 1);
               EXPECT_TRUE(doc.UndoAvailable && !doc.LinePending) << text;
               const std::int32_t dots = doc.UndoDots;
               UndoAnalog();  // one step, whatever the number of clicks
               EXPECT_EQ(Runs(doc), dots > 0 ? "c0-" + Number(dots - 1) : "");
               return text;
           });
    Play("n9 t5 P2,50 M6,0 R t8 P1,50 M4,50 R d");  // what a cut moves has its new place
    for (int i = 0; i < doc.Dots; ++i) EXPECT_EQ(doc.DotArray[i].X, i);
    Play("n1 t5 P0,50 M4,0 R");
    for (int i = 0; i < 5; ++i) EXPECT_EQ(doc.DotArray[i].X, i == 0 || i == 4 ? i : i - 1);
}

// A drag counts from the column to the left of its edges. Dot 99 of 100 stands on row 45. With p
// for a picked segment, e for exact bounds.
TEST_F(MouseTest, SelectionsHaveExactBounds) {
    Expect(
        R"(
        P30,50 M10,50 R => 9-29; P150,50 M60,50 R => 59-99; P60,50 M150,50 R => 59-99;
        P60,50 M150,50 R c => 59-99; P-3,50 M5,50 R => 0-4; n1000,2001 P10,50 M30,50 R => 90-290;
        P99,45 R => none; a P104,45 R => none; a P99,56 R => none; P60,50 R D60,50 R => 0-99pe;
        t5 P50,50 R t8 a P54,55 R => 50-50pe; P10,50 M30,50 R D60,50 => 9-29; D150,50 => none;
        P0,50 M150,50 R a => 0-99e; P30,50 M60,50 L100 M90,50 R => none;
        P60,50 M90,50 R d u P30,50 M90,50 R e c => 29-68e;
        f P60,50 M120,50 R d u P20,50 M40,50 R e c => 9-19e)",
        [&] {
            return Selection() + Letters("pe", {doc.SegmentPicked, doc.SelectionDragging});
        });
}

// Left, right, top and bottom line, the selection; which limits are on, R for any, F for fixed.
TEST_F(MouseTest, LimitLinesAreDraggedAndSwitchedUnlessFixed) {
    Expect(R"(
        X P8,50 M60,50 R => 60 2 75 25 none XR; X P9,50 M60,50 R => 6 2 75 25 8-59 XR;
        X P0,50 M500,50 R M9,9 => 6 200 75 25 none XR; X P4,50 M-9,50 R => 0 2 75 25 none XR;
        Y P50,77 M50,-5 R => 6 2 0 25 none YR; Y P50,23 M50,300 R => 6 2 75 100 none YR;
        Y P6,50 M60,50 R => 6 2 75 25 5-59 YR; A P6,25 M50,30 R => 50 2 75 25 none XYR;
        A F P6,25 M50,30 R => 6 2 75 25 5-49 XYRF; A t4 P6,25 M50,30 R => 6 2 75 25 none XYR;
        X X => 6 2 75 25 none -; X Y X => 6 2 75 25 none YR; A A => 6 2 75 25 none -;
        X A => 6 2 75 25 none -; A X => 6 2 75 25 none YR; F => 6 2 75 25 none -;
        X F => 6 2 75 25 none XRF; X F X => 6 2 75 25 none XRF; X F Y => 6 2 75 25 none XRF;
        A F A => 6 2 75 25 none XYRF; Y F F => 6 2 75 25 none YR)",
           [&] {
               std::string text;
               for (const float line :
                    {doc.XLimitLeft, doc.XLimitRight, doc.YLimitTop, doc.YLimitBottom})
                   text += Number(double(line)) + ' ';
               const auto on =
                   Letters("XYRF", {doc.XLimitOn, doc.YLimitOn, doc.RegionLimitOn, doc.LimitFixed});
               return text + Selection() + (on.empty() ? " -" : ' ' + on);
           });
}

TEST_F(MouseTest, TrackFollowsTheCurve) {
    Expect(R"(
        t4 P150,50 M20,50 => /; n0 t4 P20,50 s1 => /; t4 P20,90 => 20/0.2000;
        t4 P20,90 M30,0 => 30/0.3000; t4 P20,90 M150,50 R => 20/0.2000; t4 s1000 s1000 => 99/0.9900;
        m t7 P20,90 R => 20/200.0000; t7 P20,90 R s-1 => 19/0.1900)",
           [&] { return EntryText(doc, Entry::ValueX) + '/' + EntryText(doc, Entry::ValueY); });
}

// The box around the pixels that a gesture behind "|" has changed.
TEST_F(MouseTest, StepsDrawOnThePictureOfThePress) {
    std::vector<Colour> before;
    mark = [&] { before = Picture(); };
    Expect(R"(
        | P40,50 M90,50 M20,50 => 20,0 40,100; | P20,50 M90,50 M40,50 => 20,0 40,100;
        t0 | P20,50 M90,50 M40,50 => 17,40 43,60;
        t1 | P50,20 M50,90 M50,40 => 40,17 60,43; t2 | P20,20 M90,90 M40,40 => 17,10 43,50;
        t3 | P20,50 M90,50 M40,50 => 30,38 50,58; t4 | P20,50 M90,50 M40,50 => 30,38 50,58;
        t6 | P20,50 H90,90 H40,40 => 20,40 40,50; t6 P20,50 | H90,90 r0,0 =>)",
           [&] {
               const auto after = Picture();
               std::set<std::int32_t> xs, ys;
               for (std::int32_t i = 0; i < 200 * 101; ++i)
                   if (after[i] != before[i]) xs.insert(i % 200), ys.insert(i / 200);
               if (xs.empty()) return std::string();
               return Number(*xs.begin()) + ',' + Number(*ys.begin()) + ' ' + Number(*xs.rbegin()) +
                      ',' + Number(*ys.rbegin());
           });
}

}  // namespace
