#include "app/TourDigits.h"
#include "app/TourHands.h"
#include "digital/DigitFuncCode.h"
#include "digital/DigitView.h"

#include <QFile>

// The chapter on buses, clipboards and files of digital documents: two documents share a span and
// rows, one goes through a file.

namespace {

void ClickRow(const TourState& tour, const char* name) {
    ClickAt(Pic(tour, "DispParaListView"), InList(name));
}

// The row of a name and `more` rows below it.
void SelectRows(const TourState& tour, const char* name, int more) {
    ClickRow(tour, name);
    for (int i = 0; i < more; ++i)
        PressKey(Pic(tour, "DispParaListView"), Qt::Key_Down, Qt::ShiftModifier);
}

void MakeFirst(TourState& tour) {
    NewDigitalDocument(tour, "64", "0", nullptr);
    InsertNode(tour, "clk", "1", 0, nullptr);
    InsertNode(tour, "a", "1", 0, nullptr);
    InsertNode(tour, "b", "1", 0, nullptr);
    InsertNode(tour, "d", "4", 1, nullptr);
    ClickRow(tour, "clk");
    Click(Part(tour, "ValueAresBtn12"));
    Drag(Pic(tour, "DigitWavePic"), At("a", 4), At("a", 7));
    Click(Part(tour, "ValueAresBtn10"));
    ClickRow(tour, "d");
    WriteCount(tour, {"0", "1", "63", "1"}, nullptr);
}

void AssembleAndSplit(TourState& tour) {
    SelectRows(tour, "a", 1);
    WithDialog([&] { Click(Part(tour, "BranchToBusAresBtn")); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"DigitNameTxt", "pair"}});
                   Pick(Control(dialog, "DigitRadixCmb"), 0);
                   Picture(tour, dialog, "assemble-bus");
                   Click(Control(dialog, "OkAresBtn"));
               });
    Step(tour, "two channels are a bus, the first one is most significant",
         Names() == "clk pair d " && Wave().ChannelCount == 7 &&
             Reads("pair", 0, 11, [](int dot) { return dot >= 4 && dot <= 7 ? 2 : 0; }));
    ClickRow(tour, "d");
    Click(Part(tour, "BusToBranchAresBtn"));
    Step(tour, "a bus is split into its members",
         Names() == "clk pair d0 d1 d2 d3 " &&
             Reads("d1", 0, 63, [](int dot) { return dot >> 2 & 1; }));
    Picture(tour, tour.Window.get(), "split-bus");
}

void SortAndDrag(TourState& tour) {
    Click(Part(tour, "SortDescendAresBtn"));
    const bool falling = Names() == "pair d3 d2 d1 d0 clk ";
    Click(Part(tour, "SortAresBtn"));
    Step(tour, "sorted by name, both ways", falling && Names() == "clk d0 d1 d2 d3 pair ");
    QWidget* list = Pic(tour, "DispParaListView");
    const QPoint from = InList("pair"), to = InList("d0");
    Press(list, from);
    MoveTo(list, (from + to) / 2);
    MoveTo(list, to);
    Settle();
    Picture(tour, tour.Window.get(), "drag-row");
    Release(list, to);
    Step(tour, "a dragged row stands before the row where it was dropped",
         Names() == "clk pair d0 d1 d2 d3 ");
}

void EditNode(TourState& tour) {
    ClickRow(tour, "pair");
    WithDialog([&] { Choose(tour, "mnuDigitListPopMenu_Property"); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"DigitNameTxt", "sel"}, {"DigitBusTXt", "3"}});
                   Picture(tour, dialog, "node-properties");
                   Click(Control(dialog, "OkAresBtn"));
               });
    Step(tour, "a bus takes a new name and one channel more",
         Names() == "clk sel d0 d1 d2 d3 " && Wave().ChannelCount == 8 && Value("sel", 5) == 4);
}

// A span and all rows go into the clipboards; the second document takes both.
void CutAndCopy(TourState& tour) {
    SelectRows(tour, "clk", 5);
    Click(Part(tour, "CopyAresBtn"));
    Drag(Pic(tour, "DigitWavePic"), At("clk", 0), At("clk", 7));
    Click(Part(tour, "CutAresBtn"));
    Step(tour, "a span is cut, what follows stays in its place",
         Reads("clk", 0, 63, [](int dot) { return dot < 8 ? 0 : dot % 2; }));
}

void PasteElsewhere(TourState& tour) {
    NewDigitalDocument(tour, "64", "0", nullptr);
    InsertNode(tour, "x", "1", 0, nullptr);
    ClickAt(Pic(tour, "DigitWavePic"), At("x", 4));
    Click(Part(tour, "PasteAresBtn"));
    Step(tour, "the span stands in another document",
         Reads("x", 0, 15, [](int dot) { return dot >= 4 && dot < 12 ? dot % 2 : 0; }));
    Choose(tour, "MnuDigitEdit_Repaste");
    Step(tour, "the rows are pasted as new nodes",
         Names() == "x clk sel d0 d1 d2 d3 " && Wave().ChannelCount == 9 &&
             Reads("d3", 0, 63, [](int dot) { return dot & 1; }) && Value("sel", 5) == 4);
    bool told = false;
    WithDialog([&] { Choose(tour, "MnuDigitEdit_Repaste"); },
               [&](QWidget* box) {
                   told = Tells(box, "The channels is overflow!");
                   Picture(tour, box, "channels-overflow");
               });
    Step(tour, "eight more channels than seven are declined", told && Wave().ChannelCount == 9);
}

void EditAndFind(TourState& tour) {
    Choose(tour, "mnuDigitDrawPointEdit");
    Pick(Part(tour, "cmbName"), 2);
    FillIn(tour.Window.get(), {{"txtDigitX", "9"}, {"txtDigitY", "101"}});
    Click(Part(tour, "FindOkAresBtn"));
    Step(tour, "a typed value stands at its dot", Value("sel", 9) == 5 && Value("sel", 10) == 0);
    Picture(tour, tour.Window.get(), "point-edit");
    Click(Part(tour, "FindAresBtn"));
    TypeInto(Part(tour, "txtDigitX"), "5");
    Click(Part(tour, "FindOkAresBtn"));
    Step(tour, "find shows the value there",
         Wave().FindOn && !Wave().PointEditOn && Wave().FindBoxes.Value == "100B");
    Picture(tour, tour.Window.get(), "find");
    Choose(tour, "MnuHelp_Lang_Ch");
    Picture(tour, tour.Window.get(), "find-chinese");
    Choose(tour, "MnuHelp_Lang_En");
    Click(Part(tour, "FindAresBtn"));
}

void SaveAndOpen(TourState& tour) {
    const QString path = PatternFile(tour);
    QFile::remove(path);
    WithDialog([&] { Click(Part(tour, "SaveAresBtn")); },
               [&](QWidget* dialog) { AnswerFileDialog(dialog, path); });
    const DigitDocument& saved = Wave();
    const bool named = saved.Title == "pattern.DRIG" && !saved.Changed;
    const std::vector<std::int32_t> words = saved.DigitSamples;
    const std::string names = Names();
    Click(Pic(tour, "ExtBtn"));
    OpenPattern(tour);
    Step(tour, "saved, closed and opened again: the same pattern",
         named && DigitDocCount == 2 && Wave().DigitSamples == words && Names() == names &&
             !Wave().Changed);
    Picture(tour, tour.Window.get(), "digital-opened-again");
    Click(Pic(tour, "ExtBtn"));
}

}  // namespace

QString PatternFile(const TourState& tour) {
    return tour.Folder.filePath("pattern.DRIG");
}

void OpenPattern(TourState& tour) {
    WithDialog([&] { Click(Part(tour, "OpenDigitAresBtn")); },
               [&](QWidget* dialog) { AnswerFileDialog(dialog, PatternFile(tour)); });
}

void EditBuses(TourState& tour) {
    MakeFirst(tour);
    AssembleAndSplit(tour);
    SortAndDrag(tour);
    EditNode(tour);
    CutAndCopy(tour);
    PasteElsewhere(tour);
    EditAndFind(tour);
    SaveAndOpen(tour);
    DiscardDocument(tour);
    Step(tour, "both digital documents are closed", DigitDocCount == 0);
}
