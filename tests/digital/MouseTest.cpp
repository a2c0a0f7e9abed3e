#include "digital/DigitFixture.h"

namespace {

// Ten dots of 60 pixels and ten rows of 30: a, d, d.0, d.1, d.2, e.
class MouseTest : public DigitFixture {
protected:
    void Expect(const char* table, const std::function<std::string()>& text) {
        ForRows(table, [&](const std::string& script, const std::string& expected) {
            MakeDocument("a d[3]* e", "010101 001100");
            Play(script);
            EXPECT_EQ(text(), expected);
            ExpectSound(doc);
        });
    }
    DigitDocument& doc = DigitAt(0);
};

TEST_F(MouseTest, GesturesSelect) {
    Expect(R"(
        P90,10 R90,10 => wave a:1-1; P250,130 M0,0 R90,10 => wave a:1-4 d:1-4 d.0:1-4 d.1:1-4 d.2:1-4;
        P60,70 R180,99 => wave d.0:0-2 d.1:0-2; P120,0 R240,0 => wave a:2-4; P0,10 M90,10 => none;
        P0,159 R599,290 => wave e:0-9; P-20,10 R9999,-9 => wave a:0-9; P0,10 R0,10 P0,180 R99,10 => none;
        f60 P0,10 R599,10 => wave a:60-63; z-2 P15,10 R75,10 => wave a:0-4;
        z3 P480,10 R481,10 => wave a:0-1; z-9 P7,0 R500,0 => wave a:0-63;
        W600,90 w2 P0,10 R0,500 => wave d.0:0-0 d.1:0-0 d.2:0-0; W600,90 w2 P0,70 R0,-9 =>
        wave d.0:0-0 d.1:0-0 d.2:0-0; P0,10 R90,10 r200,100 => wave a:0-1; P0,10 r90,10 R90,10 => wave a:0-1;
        a => wave a:0-63 d:0-63 d.0:0-63 d.1:0-63 d.2:0-63 e:0-63; X a => wave a:0-63 d:0-63 e:0-63;
        P0,100 R0,100 E => wave d.1:0-63; P0,40 R0,40 P0,200 E => none; L90,40 E => wave d:0-63;
        L90,10 => list a+:0-63; L90,40 C90,100 => list d+:0-63 d.1+:0-63; L90,10 C90,10 => none;
        L90,10 C90,160 C90,10 => list e+:0-63; L90,10 S90,70 => list a+:0-63 d+:0-63 d.0+:0-63;
        L90,130 S90,70 => list d.0+:0-63 d.1+:0-63 d.2+:0-63; P0,10 R90,10 C90,160 => list e+:0-63;
        L90,10 P0,160 R0,160 => wave e:0-0; L90,10 L90,200 => none; L90,10 B90,160 => list e+:0-63;
        L90,10 C90,160 B90,10 => list a+:0-63 e+:0-63; P0,10 R90,10 B90,10 => wave a:0-1;
        L90,10 s1 s1 => list d.0+:0-63; s1 s-9 => list a+:0-63; L90,130 t1 t9 => list d.2+:0-63 e+:0-63;
        P0,10 M90,10 e R90,10 => none; a e => none; L90,40 L18,45 => none; a x => none; a X => none;
        L90,10 H C90,160 H L90,10 H => list a+:0-63; L90,10 H C90,160 H L90,10 h90 e H =>
        list a+:0-63 e+:0-63; L90,10 H C90,160 H L90,10 h12 => list a+:0-63 e+:0-63; L90,10 H L90,10 e H => none;
        L90,160 H L90,160 h10 H => list e+:0-63; C90,10 H C90,10 h200 H => none;
        P0,130 X R0,130 => none; P0,10 a R90,10 =>
        wave a:0-63 d:0-63 d.0:0-63 d.1:0-63 d.2:0-63 e:0-63; P0,160 s-1 R0,160 => list d.2+:0-63)",
           [&] { return Selection(doc); });
}

// Number of rows, the row clicked, and what was asked for which node and member.
TEST_F(MouseTest, BusesOpenAndDialogsFindTheirTarget) {
    Expect(R"(
        L18,45 => 3, 1; L18,45 d18,45 => 3, 1; L18,45 L18,45 => 6, 1; L90,45 d90,45 => 3, 1; X x => 6, -1;
        L90,100 - => 3, 1; L90,100 + => 6, 3; X L90,40 + => 6, 1; L18,75 L18,15 => 6, 0; d90,10 => 6, 0 EvaluateFrm 0;
        d90,100 => 6, 3 EvaluateFrm 1.1; D0,45 => 6, 1 EvaluateFrm 1; D0,75 => 6, 2 EvaluateFrm 1.0;
        D0,180 d0,180 => 6, -1; r0,100 => 6, 3 mnuDigitWavePicPopMenu; B90,200 => 6, -1 mnuDigitListPopMenu)",
           [&] {
               std::ostringstream text;
               text << doc.ListRows.size() << ", " << doc.ClickRow;
               for (const std::string& name : asked) text << ' ' << name;
               const bool evaluates = text.str().ends_with("Frm");
               if (evaluates) text << ' ' << EvaluateNode;
               if (evaluates && EvaluateIsMember) text << '.' << EvaluateMember;
               asked.clear();
               return text.str();
           });
}

// First and last dot, page of pages, zoom, caliper @ its pixel, the value of a, first row.
TEST_F(MouseTest, PagesZoomAndCaliper) {
    Expect(R"(
        => 0-10 1/6 x1 1@60 1B; N => 10-20 2/6 x1 11@60 0B; N N N N N N => 60-63 6/6 x1 61@60 0B;
        N N N N N N N N F => 50-60 6/6 x1 51@60 0B; f5 F => 0-10 1/6 x1 1@60 1B;
        f54 N => 54-64 6/6 x1 55@60 0B; c9 f60 => 60-70 6/6 x1 63@180 0B; f99 => 63-73 6/6 x1 63@0 0B;
        z1 => 0-5 1/12 x0.5 1@120 1B; z9 => 0-1 1/64 x0.125 1@480 1B; z-1 => 0-20 1/3 x2 1@30 1B;
        f5 z-1 => 5-25 1/3 x2 6@30 0B; z-9 => 0-80 1/2 x8 1@7.5 1B; z-3 o o => 0-80 1/2 x8 1@7.5 1B;
        o => 0-20 1/3 x2 1@30 1B; z-2 1 => 0-10 1/6 x1 1@60 1B; f5 c9 => 5-15 2/6 x1 9@240 0B;
        c20 => 20-30 3/6 x1 20@0 0B; c99 => 60-70 6/6 x1 63@180 0B; c-5 => 0-10 1/6 x1 0@0 0B;
        p60,22 m300,22 => 0-10 1/6 x1 1@300 1B; p60,22 l290,0 => 0-10 1/6 x1 4@290 0B;
        p60,22 l180,0 => 0-10 1/6 x1 3@180 1B; p60,22 l9999,0 => 0-10 1/6 x1 9@599 0B;
        p60,22 l-9,0 => 0-10 1/6 x1 0@0 0B; f20 p60,22 l130,5 => 20-30 3/6 x1 22@130 0B;
        m300,22 l300,22 => 0-10 1/6 x1 1@60 1B; p60,22 m300,22 e l300,22 => 0-10 1/6 x1 1@60 1B;
        p60,22 m300,22 i => 0-10 1/6 x1 1@60 1B; z-9 p8,22 l599,22 => 0-80 1/2 x8 63@472.5 0B;
        W600,90 w9 => 0-10 1/6 x1 1@60 1B row 3; W600,90 w9 X => 0-10 1/6 x1 1@60 1B;
        n61 => 0-10 1/6 x1 1@60; n4096 => 0-10 1/409 x1 1@60; n4 => 0-10 1/2 x1 1@60; W119 => 0-1 1/64 x1 1@60 1B;
        n4096 W59 => 0-1 1/4096 x1 1@60; n32768 W59 => 0-1 1/32768 x1 1@60; n524303 W59 => 0-1 1/32767 x1 1@60;
        n524304 W59 => 0-1 1/30840 x1 1@60)",
           [&] {
               std::ostringstream text;
               text << doc.FirstDot << '-' << doc.LastDot << ' ' << PageNumber(doc) << '/'
                    << doc.PageCount << " x" << doc.Zoom << ' ' << doc.Caliper << '@'
                    << doc.CaliperPixel;
               if (doc.NodeCount > 0) text << ' ' << doc.Nodes[0].ValueText;
               if (doc.FirstRow > 0) text << " row " << int(doc.FirstRow);
               return text.str();
           });
    MakeDocument("a");  // the caliper stands at 60, its handle at a height of 22
    EXPECT_TRUE(OnCaliperHandle(0, 47, 16) && OnCaliperHandle(0, 73, 28));
    EXPECT_FALSE(OnCaliperHandle(0, 46, 22) || OnCaliperHandle(0, 60, 29));
}

}  // namespace
