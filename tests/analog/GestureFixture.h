#pragma once
// Gestures and commands as text, on a plot of 200 by 101 pixels of which row y stands for the
// amplitude 1 - y / 50. With 201 dots, dot n stands in column n, at n / 1000 before a gesture.
#include "analog/AnalogFixture.h"
#include "analog/DrawAnalogWave.h"
#include "analog/EntryFuncBox.h"
#include "analog/LimitFuncBox.h"
#include "analog/MouseFuncBox.h"
#include "analog/StrokeFuncBox.h"
#include "analog/ToolFuncBox.h"
#include "analog/ZoomFuncBox.h"
#include "frame/StringFunc.h"
#include "TextRows.h"

#include <cstdio>
#include <functional>
#include <sstream>

class GestureFixture : public AnalogFixture {
protected:
    void MakePlot(std::int32_t dots, std::int32_t maxDots) {
        doc = AnalogWaveRecord();
        MakeDocument(dots > 0 ? "c" : "", dots, maxDots).Vpp = 20.0;
        LayoutAnalogSurfaces(doc, 200 + WaveMarginWidth, 101 + WaveMarginHeight, 1.0);
        std::tie(doc.XLimitLeft, doc.XLimitRight) = std::pair(6.0F, 2.0F);
        std::tie(doc.YLimitTop, doc.YLimitBottom) = std::pair(75.0F, 25.0F);
        RepaintAnalog(0, true);
    }
    /// One event of a script at (x, y) or with a typed text.
    void Do(char event, std::int32_t x, std::int32_t y, std::string_view typed) {
        constexpr std::int8_t firstBox[] = {6, 8, 10, 14, 4, 0, 0, 4, 0};
        constexpr auto left = MouseButton::Left, right = MouseButton::Right;
        const Tool tool = ToolOf(doc);
        // clang-format off
        switch (event) {
            case 'n': return MakePlot(x, y > 0 ? y : 201);
            case 'P': return WavePic_MouseDown(0, left, x, y);
            case 'M': return WavePic_MouseMove(0, left, x, y);
            case 'H': return WavePic_MouseMove(0, MouseButton::None, x, y);
            case 'R': return WavePic_MouseUp(0, left, x, y);
            case 'r': return WavePic_MouseDown(0, right, x, y);
            case 'D': return WavePic_DblClick(0, x, y);
            case 'L': return LayoutAnalogSurfaces(doc, x + WaveMarginWidth, 101 + WaveMarginHeight, 1.0);
            case 's': return StepTrackedDot(0, x);
            case '+': case '-': return ZoomByWheel(0, x, y, event == '+' ? 1 : -1, x < 0);
            case '<': case '>': return PanByWheel(0, event == '<' ? 1 : -1, x > 0);
            case 'G': return void(PressScalePointer(0, x, y));
            case 'J': return DragScalePointer(0, x, y);
            case 'K': return ReleaseScalePointer(doc);
            case 't': return SwitchTool(0, Tool(x));
            case '=': return ChangeEntry(doc, Entry(firstBox[int(tool)] + x), typed);
            case 'k': return IsZoomTool(tool) ? ApplyZoomBoxes() :
                             tool == Tool::LineDraw ? ApplyLineBoxes() : ApplyPointBoxes();
            case 'm': case 'v': return SwitchEntryUnits(event == 'm' ? 1000 : 1);
            case 'u': return UndoAnalog();   case 'e': return ResumeAnalog();
            case 'x': return CutAnalog();    case 'd': return DeleteAnalog();
            case 'c': return CopyAnalog();   case 'p': return PasteAnalog();
            case 'w': return CancelZoom();   case 'a': return SelectAllAnalog();
            case 'z': return UndoZoom();     case 'f': return ToggleExpandToSuit();
            case 'X': return ToggleXLimit(); case 'A': return ToggleAreaLimit();
            case 'Y': return ToggleYLimit(); case 'F': return ToggleLimitFixed();
            case '|': return mark();
        }
        // clang-format on
    }
    /// Events with blanks between: "t5 P10,50 R", "t0 =0:20 =1:120 k".
    void Play(const std::string& script) {
        std::istringstream events(script);
        for (std::string event; events >> event;) {
            int x = 0, y = 0;
            std::sscanf(event.c_str() + 1, "%d,%d", &x, &y);
            Do(event[0], x, y, std::string_view(event).substr(event.find(':') + 1));
        }
    }
    /// Plays the scripts of a table on a document of 100 dots and compares what `text` tells then.
    void Expect(const char* table, const std::function<std::string()>& text) {
        for (const auto& [script, expected] : Rows(table)) {
            SCOPED_TRACE(script);
            MakePlot(100, 201);
            Play(script);
            EXPECT_EQ(text(), expected);
        }
    }
    /// The letters of those flags that are on.
    static std::string Letters(const char* letters, std::initializer_list<Flag> flags) {
        std::string on;
        for (const Flag flag : flags) on.append(flag ? 1 : 0, *letters++);
        return on;
    }
    static std::string Number(double value) {
        return GeneralText(std::nearbyint(value * 1e4) / 1e4);
    }
    std::string View() const {
        return Number(doc.ViewStart) + '-' + Number(doc.ViewEnd) + ' ' + Number(doc.ViewTop) +
               ".." + Number(doc.ViewBottom);
    }
    std::string Selection() const {
        return doc.HasSelection ? Number(doc.SelStart) + '-' + Number(doc.SelEnd) : "none";
    }
    std::string ToolsOn() const {
        return Letters("012345678", {doc.ZoomXMode, doc.ZoomYMode, doc.ZoomRegionMode,
                                     doc.ZoomCenterMode, doc.CursorTrackOn, doc.HandDrawOn,
                                     doc.LineDrawOn, doc.PointEditOn, doc.SelectMode});
    }

    AnalogWaveRecord& doc = AnalogDocs[0];
    std::function<void()> mark = [] {};  // what "|" does
};
