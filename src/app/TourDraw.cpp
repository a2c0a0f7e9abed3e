#include "app/TourHands.h"
#include "app/TourSteps.h"

#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "ui/WaveFrm.h"
#include "ui/WavePic.h"

#include <cmath>

// The drawing chapter works with mouse events at places given in dots and volts, as a user aims.

namespace {

const AnalogWaveRecord& Wave() {
    return ActiveAnalog();
}

QWidget* Plot(const TourState& tour) {
    return tour.Window->AnalogWindow(ActiveAnalogIndex)->Plot();
}

// Where a dot and a voltage stand on the plot area, in its logical pixels.
QPoint At(const TourState& tour, double dot, double volts) {
    const double scale = Plot(tour)->devicePixelRatioF();
    const WaveView view = ViewOf(Wave());
    const PixelPoint origin = PlotOrigin(scale);
    const double x = DotToPixel(dot, view, Wave().PlotWidth);
    const double y = ValueToPixel(volts / (Wave().Vpp / 2), view, Wave().PlotHeight);
    return QPointF((origin.X + x) / scale, (origin.Y + y) / scale).toPoint();
}

double VoltsAt(std::int32_t dot) {
    return Wave().DotArray[static_cast<std::size_t>(dot)].Y * Wave().Vpp / 2;
}

// A pixel of the plot stands for this many volts.
double PixelVolts() {
    return Wave().Vpp / 2 * (Wave().ViewTop - Wave().ViewBottom) / (Wave().PlotHeight - 1);
}

void DrawByHand(TourState& tour) {
    Click(Part(tour, "HandDrawAresBtn"));
    const auto curve = [](double dot) { return 0.8 * std::sin(dot / 60.0) * std::exp(-dot / 500); };
    Press(Plot(tour), At(tour, 0, curve(0)));
    for (int dot = 4; dot <= 400; dot += 4) MoveTo(Plot(tour), At(tour, dot, curve(dot)));
    Picture(tour, tour.Window.get(), "hand-under-way");
    Release(Plot(tour), At(tour, 400, curve(400)));
    Step(tour, "a stroke by hand is one segment",
         Near(Wave().Dots, 401, 1) && Wave().SegmentCount == 1);
    Step(tour, "the stroke lies where the mouse went",
         Near(VoltsAt(100), curve(100), 2 * PixelVolts()) &&
             Near(VoltsAt(300), curve(300), 2 * PixelVolts()));
    Picture(tour, tour.Window.get(), "hand");
}

void DrawPolyline(TourState& tour) {
    Click(Part(tour, "LineDrawAresBtn"));
    ClickAt(Plot(tour), At(tour, 450, 0.5));
    ClickAt(Plot(tour), At(tour, 550, -0.5));
    ClickAt(Plot(tour), At(tour, 650, 0.8));
    MoveTo(Plot(tour), At(tour, 750, 0.1), Qt::NoButton);
    Picture(tour, tour.Window.get(), "line-under-way");
    ClickAt(Plot(tour), At(tour, 650, 0.1), Qt::RightButton);
    Step(tour, "a chain of lines is one segment, its gap closed",
         Near(Wave().Dots, 651, 1) && Wave().SegmentCount == 2 &&
             Near(VoltsAt(Wave().Dots - 1), 0.8, PixelVolts()));
    Step(tour, "the right button leaves the tool", Wave().SelectMode && !Wave().LineDrawOn);
    Picture(tour, tour.Window.get(), "line");
}

void EditPoint(TourState& tour) {
    Click(Part(tour, "EditPointAresBtn"));
    ClickAt(Plot(tour), At(tour, 200, 0));
    PressKey(Plot(tour), Qt::Key_Right);
    PressKey(Plot(tour), Qt::Key_Left);
    const std::int32_t dot = Wave().TrackDot;
    TypeInto(Part(tour, "txtValueY"), "0.9");
    Picture(tour, tour.Window.get(), "point");
    Click(Part(tour, "AresButton1"));
    Step(tour, "a point takes the typed value",
         Near(dot, 200, 1) && Near(VoltsAt(dot), 0.9, 1e-12) && Wave().UndoAvailable);
    Click(Part(tour, "mVAresBtn"));
    Click(Part(tour, "VAresBtn"));
    PressKey(Plot(tour), Qt::Key_Escape);
    Step(tour, "Escape leaves the tool", bool(Wave().SelectMode));
}

void SelectAndCut(TourState& tour) {
    Press(Plot(tour), At(tour, 420, 0));
    MoveTo(Plot(tour), At(tour, 500, 0));
    MoveTo(Plot(tour), At(tour, 600, 0));
    Picture(tour, tour.Window.get(), "selection-under-way");
    Release(Plot(tour), At(tour, 600, 0));
    const std::int32_t dots = Wave().Dots, count = Wave().SelEnd - Wave().SelStart + 1;
    Step(tour, "a drag selects", Wave().HasSelection && Near(count, 181, 3));
    Click(Part(tour, "CutAresBtn"));
    Step(tour, "cut takes the selection out", Wave().Dots == dots - count);
    Picture(tour, tour.Window.get(), "cut");
}

void ZoomAndPan(TourState& tour) {
    Click(Part(tour, "ZoomRegionAresBtn"));
    Press(Plot(tour), At(tour, 100, 0.9));
    MoveTo(Plot(tour), At(tour, 200, 0.2));
    MoveTo(Plot(tour), At(tour, 300, -0.7));
    Picture(tour, tour.Window.get(), "zoom-under-way");
    Release(Plot(tour), At(tour, 300, -0.7));
    Step(tour, "the area fills the plot",
         Near(Wave().ViewStart, 100, 1) && Near(Wave().ViewEnd, 300, 1) &&
             Near(Wave().ViewTop, 0.9, 0.01) && Near(Wave().ViewBottom, -0.7, 0.01));
    Picture(tour, tour.Window.get(), "zoomed");
    Click(Part(tour, "ZoomUndoAresBtn"));
    Step(tour, "zoom undo shows the whole again", Wave().ViewStart == 0 && Wave().ViewEnd == 999);
    Click(Part(tour, "SelectAresBtn"));
    TurnWheel(Plot(tour), At(tour, 250, 0), 5);
    Step(tour, "the wheel zooms around the pointer",
         Near(Wave().ViewEnd - Wave().ViewStart, 327, 3));
    const std::int32_t before = Wave().ViewStart;
    TurnWheel(Plot(tour), At(tour, 250, 0), -1, Qt::ShiftModifier);
    Step(tour, "Shift and the wheel pan", Wave().ViewStart > before);
    const PixelPoint pointer = HPointerPlace(Wave());
    const std::int32_t span = Wave().ViewEnd - Wave().ViewStart;
    const double scale = Plot(tour)->devicePixelRatioF();
    const QPoint grip = (QPointF(pointer.X, pointer.Y) / scale).toPoint();
    Drag(Plot(tour), grip, grip + QPoint(100, 0));
    Step(tour, "the scale pointer pans",
         Near(Wave().ViewStart - before, 33 + 100.0 * scale / Wave().PlotWidth * 1000, 3) &&
             Wave().ViewEnd - Wave().ViewStart == span);
    Picture(tour, tour.Window.get(), "panned");
    Choose(tour, "MnuView_ZoomDisable");
    Step(tour, "the whole view again", Wave().ViewStart == 0 && Wave().ViewEnd == 999);
}

void DrawInsideLimits(TourState& tour) {
    Choose(tour, "MNuDraw_AreaLimit");
    const QPoint top = At(tour, 500, (1.0 - 2.0 * Wave().YLimitTop / (Wave().PlotHeight - 1)));
    Drag(Plot(tour), top, At(tour, 500, 0.5));
    Step(tour, "a limit line follows the mouse",
         Near(1.0 - 2.0 * Wave().YLimitTop / (Wave().PlotHeight - 1), 0.5, 0.01));
    Choose(tour, "MnuDraw_FixupLimit");
    Click(Part(tour, "HandDrawAresBtn"));
    const std::vector<WaveDot> before = DotsOf(Wave());
    Press(Plot(tour), At(tour, 50, 0.9));
    for (int dot = 60; dot <= 950; dot += 10)
        MoveTo(Plot(tour), At(tour, dot, 0.95 * std::cos(dot / 40.0)));
    Release(Plot(tour), At(tour, 950, 0.9));
    double highest = -1.0;
    bool kept = true;
    for (std::int32_t dot = 0; dot < Wave().Dots; ++dot) {
        if (dot >= 200 && dot <= 800) highest = std::max(highest, VoltsAt(dot));
        if (dot < 199) kept = kept && VoltsAt(dot) == before[static_cast<std::size_t>(dot)].Y;
    }
    Step(tour, "a stroke is held to the limits",
         kept && Near(highest, 0.5, 0.01) && Near(Wave().Dots, 801, 1));
    Picture(tour, tour.Window.get(), "limits");
    Click(Part(tour, "UndoAresBtn"));
    Step(tour, "undo takes the stroke away", SameDots(Wave(), before, 0.0));
    Picture(tour, tour.Window.get(), "undone");
}

void InsertComputed(TourState& tour) {
    const std::vector<WaveDot> before = DotsOf(Wave());
    WithDialog([&] { Choose(tour, "MnuDraw_InsertMathWave"); },
               [&](QWidget* dialog) {
                   TypeInto(Control(dialog, "ExpressionTxt"), "A*sin(2*pi*4*x)*exp(-3*x)");
                   FillIn(dialog, {{"DotnumTxt", "400"}});
                   Settle(100);
                   Picture(tour, dialog, "equation");
                   Click(Control(dialog, "OkAresBtn"));
               });
    const auto start = static_cast<std::int32_t>(before.size());
    Step(tour, "an equation becomes dots",
         Wave().Dots == start + 400 && Wave().HasSelection && VoltsAt(start) == 0.0 &&
             Near(VoltsAt(start + 25),
                  std::sin(8 * std::acos(-1.0) * 25 / 399) * std::exp(-3.0 * 25 / 399), 1e-9));
    Picture(tour, tour.Window.get(), "inserted");
}

}  // namespace

void DrawWithTheMouse(TourState& tour) {
    const std::int16_t open = AnalogDocCount;
    NewDocument(tour, "1000", "2", nullptr);
    DrawByHand(tour);
    DrawPolyline(tour);
    EditPoint(tour);
    SelectAndCut(tour);
    ZoomAndPan(tour);
    DrawInsideLimits(tour);
    InsertComputed(tour);
    Choose(tour, "MnuHelp_Lang_Ch");
    Click(Part(tour, "ZoomRegionAresBtn"));
    Picture(tour, tour.Window.get(), "chinese-zoom");
    Choose(tour, "MnuHelp_Lang_En");
    DiscardDocument(tour);
    Step(tour, "the drawing is closed without saving", AnalogDocCount == open);
}
