#include "app/TourDigits.h"
#include "app/TourHands.h"
#include "app/TourSteps.h"
#include "digital/DigitView.h"

#include <QAction>
#include <QMenu>
#include <QPushButton>

// The chapter on digital documents: channels and buses by name, patterns by the mouse and by typed
// positions.

namespace {

void MakeDocument(TourState& tour) {
    NewDigitalDocument(tour, "256", "3", "digital-property");
    Step(tour, "a new digital waveform of 256 dots",
         DigitDocCount == 1 && Wave().Dots == 256 && Wave().Caliper == 3 && Wave().NodeCount == 0);
    Picture(tour, tour.Window.get(), "digital-new");
}

void InsertNodes(TourState& tour) {
    InsertNode(tour, "clk", "1", 0, nullptr);
    InsertNode(tour, "count", "8", 1, "insert-bus");
    InsertNode(tour, "data", "4", 0, nullptr);
    InsertNode(tour, "sync", "1", 0, nullptr);
    Step(tour, "two channels and two buses", Wave().NodeCount == 4 && Wave().ChannelCount == 14);
}

void WriteValues(TourState& tour) {
    ClickAt(Part(tour, "DispParaListView"), InList("clk"));
    Click(Part(tour, "ValueAresBtn12"));
    Step(tour, "a clock over the whole channel",
         Reads("clk", 0, 255, [](std::int32_t dot) { return dot % 2; }));

    ClickAt(Part(tour, "DispParaListView"), InList("count"));
    WriteCount(tour, {"f0", "3", "255", "2"}, "counting");
    Step(tour, "a counter from F0 by 3 that begins again behind FF",
         Reads("count", 0, 255, [](std::int32_t dot) { return 0xF0 + dot / 2 % 6 * 3; }));

    Drag(Part(tour, "DigitWavePic"), At("data", 4), At("data", 9));
    Step(
        tour, "a drag selects dots 4 to 9",
        Wave().WaveSelection && Wave().Nodes[2].SelectStart == 4 && Wave().Nodes[2].SelectEnd == 9);
    Picture(tour, tour.Window.get(), "digital-span");
    WithDialog([&] { Click(Part(tour, "ValueAresBtn13")); },
               [&](QWidget* dialog) {
                   Pick(Control(dialog, "RadixCmb"), 0);
                   FillIn(dialog, {{"NumTxt", "1010"}});
                   Picture(tour, dialog, "arbitrary-value");
                   Click(Control(dialog, "OkAresBtn"));
               });
    Step(tour, "the value stands in the span only",
         Reads("data", 0, 255, [](std::int32_t dot) { return dot >= 4 && dot <= 9 ? 10 : 0; }));
}

void EvaluateByPosition(TourState& tour) {
    const QPoint sync = At("sync", 2);
    WithDialog([&] { DoubleClick(Part(tour, "DigitWavePic"), sync); },
               [&](QWidget* dialog) {
                   static_cast<QPushButton*>(Control(dialog, "ValueAresBtn"))
                       ->menu()
                       ->actions()[1]
                       ->trigger();
                   FillIn(dialog, {{"TimeStartTxt", "8"}, {"TimeEndTxt", "15"}});
                   Picture(tour, dialog, "evaluate");
                   Click(Control(dialog, "OkAresBtn"));
               });
    Step(tour, "a pulse by typed positions",
         Reads("sync", 0, 255, [](std::int32_t dot) { return dot >= 8 && dot <= 15 ? 1 : 0; }));
    Click(Part(tour, "UndoAresBtn"));
    const bool undone = Value("sync", 8) == 0;
    Click(Part(tour, "ResumeAresBtn"));
    Step(tour, "undo and resume exchange both states", undone && Value("sync", 8) == 1);
}

void LookAround(TourState& tour) {
    Picture(tour, tour.Window.get(), "digital");
    Click(Part(tour, "ExpandAllAresBtn"));
    Step(tour, "both buses open", Wave().ListRows.size() == 16);
    Choose(tour, "mnuDigitView_ShowTime");
    Picture(tour, tour.Window.get(), "digital-expanded");
    Choose(tour, "mnuDigitView_ShowTime");
    Click(Part(tour, "CloseAllAresBtn"));

    Click(Part(tour, "NextPageAtn"));
    const std::int32_t page = Wave().FirstDot;
    Click(Part(tour, "NextPageAtn"));
    Step(tour, "two pages on", page == Wave().VisibleDots && Wave().FirstDot == 2 * page);
    Click(Part(tour, "FrontPageAtn"));
    Click(Part(tour, "FrontPageAtn"));
    Step(tour, "and back", Wave().FirstDot == 0);

    Click(Part(tour, "ZoomInAresBtn"));
    Picture(tour, tour.Window.get(), "digital-zoomed-in");
    for (int i = 0; i < 5; ++i) Click(Part(tour, "ZoomOutAresBtn"));
    Step(tour, "zoomed out to the whole waveform",
         Wave().VisibleDots >= 256 && !Part(tour, "ZoomOutAresBtn")->isEnabled());
    Picture(tour, tour.Window.get(), "digital-zoomed-out");
    Choose(tour, "mnuDigitViewZoomDisable");

    QWidget* ruler = Part(tour, "DigitBackWavePic");
    const int handle = qRound(Wave().CaliperPixel);
    Drag(ruler, {handle, qRound(CaliperHandleY)}, {At("clk", 7).x(), qRound(CaliperHandleY)});
    Step(tour, "the caliper reads the values under it",
         Wave().Caliper == 7 && Wave().Nodes[1].ValueText == "F9H" &&
             Wave().Nodes[2].ValueText == "1010B");
}

void SpeakChinese(TourState& tour) {
    Choose(tour, "MnuHelp_Lang_Ch");
    Picture(tour, tour.Window.get(), "digital-chinese");
    ClickAt(Part(tour, "DispParaListView"), InList("count"));
    WithDialog([&] { Click(Part(tour, "ValueAresBtn14")); },
               [&](QWidget* dialog) { Picture(tour, dialog, "digital-chinese-counting"); });
    Choose(tour, "MnuHelp_Lang_En");
}

}  // namespace

void EditDigitalWaves(TourState& tour) {
    MakeDocument(tour);
    WithDialog([&] { Click(Part(tour, "ValueAresBtn9")); },
               [&](QWidget* box) { Picture(tour, box, "digital-select-first"); });
    InsertNodes(tour);
    WriteValues(tour);
    EvaluateByPosition(tour);
    LookAround(tour);
    SpeakChinese(tour);
    const QWidget* analog = Part(tour, "WaveFrm0");
    DiscardDocument(tour);
    Step(tour, "closed, and the analog tools are back",
         DigitDocCount == 0 && !ActiveIsDigital && analog->isVisible() &&
             Part(tour, "WaveBar")->isVisible() && !Part(tour, "ValueBar")->isVisible());
}
