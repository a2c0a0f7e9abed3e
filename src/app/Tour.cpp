#include "app/Tour.h"

#include "app/StartProgram.h"
#include "app/TourHands.h"
#include "app/TourSteps.h"
#include "files/RecoveryFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/ProgramFolder.h"
#include "platform/Settings.h"
#include "ui/ActionTable.h"
#include "ui/Mainfrm.h"

#include <cmath>
#include <cstdio>
#include <QAction>
#include <QDir>

// Every step acts through controls and checks the records behind them: a step that shows the
// right window over the wrong data fails.

namespace {

void ShowStart(TourState& tour) {
    Picture(tour, tour.Window.get(), "start");
    Step(tour, "the program starts without a document", AnalogDocCount == 0);
    const QAction* save = tour.Window->Actions()->Find("MnuFile_Save");
    Step(tour, "commands on documents are closed", !save->isEnabled());
}

void MakeWave(TourState& tour) {
    NewDocument(tour, "4096", "2", "property");
    Step(tour, "a new waveform of 4096 dots", AnalogDocCount == 1 && AnalogDocs[0].MaxDots == 4096);
    Picture(tour, tour.Window.get(), "new");
    InsertFourWaves(tour, true);
    Step(tour, "sine, sinc, square and decay",
         AnalogDocs[0].Dots == 3500 && AnalogDocs[0].SegmentCount == 4);
    Picture(tour, tour.Window.get(), "waves");
}

void EditWave(TourState& tour) {
    const AnalogWaveRecord& wave = AnalogDocs[0];
    const std::vector<WaveDot> before = DotsOf(wave);
    Choose(tour, "MnuEdit_SelAll");
    Step(tour, "everything is selected", wave.HasSelection && wave.SelEnd == 3499);
    Picture(tour, tour.Window.get(), "selected");
    Click(Part(tour, "CutAresBtn"));
    Step(tour, "cut leaves an empty waveform", wave.Dots == 0 && ClipDotCount == 3500);
    Click(Part(tour, "PasteAresBtn"));
    Step(tour, "paste brings the dots back", SameDots(wave, before, 0.0));
    Click(Part(tour, "UndoAresBtn"));
    Step(tour, "undo takes the paste away", wave.Dots == 0);
    Click(Part(tour, "ResumeAresBtn"));
    Step(tour, "resume brings it again", SameDots(wave, before, 0.0));
    Choose(tour, "MnuView_ShowTime");
    Choose(tour, "MnuView_DotLink");
    Picture(tour, tour.Window.get(), "dots-over-time");
    Choose(tour, "MnuView_ShowTime");
    Choose(tour, "MnuView_DotLink");
}

void ChangeProperty(TourState& tour) {
    WithDialog([&] { Choose(tour, "MnuRework_property"); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"ampltxt", "4"}});
                   Click(Control(dialog, "OkAresBtn"));
               });
    const AnalogWaveRecord& wave = AnalogDocs[0];
    double top = 0.0;
    for (const WaveDot& dot : DotsOf(wave)) top = std::max(top, dot.Y * wave.Vpp / 2);
    Step(tour, "twice the range, the same volts", wave.Vpp == 4.0 && std::fabs(top - 0.95) < 0.01);
    Picture(tour, tour.Window.get(), "property-changed");
}

void OpenFile(TourState& tour, const QString& path) {
    WithDialog([&] { Click(Part(tour, "OpenAresBtn")); },
               [&](QWidget* dialog) { AnswerFileDialog(dialog, path); });
}

// The instrument's codes always fill its 4096 places: each dot is held until the next.
std::vector<WaveDot> Spread(const std::vector<WaveDot>& dots) {
    std::vector<WaveDot> places(4096);
    for (std::size_t i = 0; i < places.size(); ++i)
        places[i] = dots[i * dots.size() / places.size()];
    return places;
}

void SaveAndOpen(TourState& tour, const char* ending, double within, bool spread) {
    const QString path = tour.Folder.filePath(QString("waveform.") + ending);
    QFile::remove(path);
    WithDialog([&] { Choose(tour, "MnuFile_SaveAs"); },
               [&](QWidget* dialog) { AnswerFileDialog(dialog, path); });
    const std::vector<WaveDot> dots = DotsOf(AnalogDocs[0]);
    Click(Control(Part(tour, "WaveFrm0"), "ExtBtn"));
    Settle();
    const bool closed = AnalogDocCount == 0;
    OpenFile(tour, path);
    const std::string what = std::string("saved as .") + ending + ", closed and opened again";
    Step(tour, what.c_str(),
         closed && AnalogDocCount == 1 && dots.size() == 3500 &&
             SameDots(AnalogDocs[0], spread ? Spread(dots) : dots, within));
}

void ArrangeWindows(TourState& tour) {
    NewDocument(tour, "512", "1", nullptr);
    Choose(tour, "Mnuwin_Cascade");
    Picture(tour, tour.Window.get(), "cascade");
    Choose(tour, "Mnuwin_Vertical");
    const QWidget* first = Part(tour, "WaveFrm0");
    const QWidget* second = Part(tour, "WaveFrm1");
    Step(tour, "windows stand side by side",
         first->y() == second->y() && first->geometry().right() < second->x());
    Picture(tour, tour.Window.get(), "side-by-side");
    Click(Control(Part(tour, "WaveFrm2"), "ExtBtn"));
    Click(Control(Part(tour, "WaveFrm1"), "MaxBtn"));
    Settle();
    Step(tour, "maximised again", first->size() == second->size() && AnalogDocCount == 2);
}

void SpeakChinese(TourState& tour) {
    Choose(tour, "MnuHelp_Lang_Ch");
    Step(tour, "the language changes at run time", UseEnglish == 0);
    Picture(tour, tour.Window.get(), "chinese");
    WithDialog([&] { Click(Part(tour, "WaveAresBtn3")); },
               [&](QWidget* dialog) { Picture(tour, dialog, "chinese-standard-wave"); });
    WithDialog([&] { Choose(tour, "MnuRework_property"); },
               [&](QWidget* dialog) { Picture(tour, dialog, "chinese-property"); });
}

void OpenTen(TourState& tour) {
    while (AnalogDocCount < 10) {
        const std::int16_t count = AnalogDocCount;
        NewDocument(tour, "4096", "2", nullptr);
        if (AnalogDocCount == count) break;
    }
    Step(tour, "ten documents are open", AnalogDocCount == 10);
    bool told = false;
    WithDialog([&] { Click(Part(tour, "NewAnaWaveAresBtn")); },
               [&](QWidget* box) {
                   told = Tells(box, "波形文件数目达到上限");
                   Picture(tour, box, "ten-is-the-limit");
               });
    Step(tour, "the eleventh is declined with a message", told && AnalogDocCount == 10);
    Click(Control(Part(tour, "WaveFrm3"), "ExtBtn"));
    Settle();
    NewDocument(tour, "2048", "1", nullptr);
    Step(tour, "a closed slot is taken again", AnalogInUse[3] && AnalogDocs[3].MaxDots == 2048);
}

// No key of the dialogs may steer the tour, and nothing of it may be left with the user's
// documents, so it has stores of its own.
void UseOwnStores(const TourState& tour) {
    const QString store = tour.Folder.filePath("settings.ini");
    QFile::remove(store);
    UseSettingsStore(store.toStdString());
    const QString data = tour.Folder.filePath("data");
    QDir(data).removeRecursively();  // what a tour that was stopped has left would be offered
    UseDataFolder(data.toStdString());
}

void EndProgram(TourState& tour) {
    InsertWave(tour, {"WaveAresBtn6", "500", nullptr, nullptr, nullptr}, nullptr);
    WithDialog([&] { Click(Part(tour, "ExitAbtn")); },
               [&](QWidget* box) {
                   Picture(tour, box, "save-changes");
                   PressKey(box, Qt::Key_Escape);
               });
    Step(tour, "Cancel keeps the program and the changed document", AnalogInUse[3] == Flag(true));
    Choose(tour, "MnuHelp_Lang_En");
}

// Without a display the window system says of each window what it cannot do; all else is told.
void PrintMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support"))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

}  // namespace

int RunTour(const QString& folder) {
    qInstallMessageHandler(PrintMessage);
    TourState tour;
    QDir().mkpath(folder);
    tour.Folder.setPath(QDir(folder).absolutePath());
    UseOwnStores(tour);
    tour.Window.reset(StartProgram());
    tour.Window->resize(1280, 800);
    Settle(100);
    ShowStart(tour);
    MakeWave(tour);
    EditWave(tour);
    ChangeProperty(tour);
    SaveAndOpen(tour, "txt", 0.0, false);
    SaveAndOpen(tour, "csv", 0.0025, false);      // volts to three digits, below 1 V at Vpp 4
    SaveAndOpen(tour, "rdf", 1.0 / 16383, true);  // one step of the 14-bit codes
    OpenFile(tour, tour.Folder.filePath("waveform.txt"));
    Picture(tour, tour.Window.get(), "opened-again");
    DrawWithTheMouse(tour);
    ComputeWaves(tour);
    EditDigitalWaves(tour);
    EditBuses(tour);
    UseTheInstrument(tour);
    LookAroundTheEditor(tour);
    ArrangeWindows(tour);
    SpeakChinese(tour);
    OpenTen(tour);
    EndProgram(tour);
    EndSession();
    Step(tour, "nothing is left in the recovery store",
         QDir(tour.Folder.filePath("data/recovery")).isEmpty());
    std::printf("%d pictures in %s\n", tour.Pictures, qPrintable(tour.Folder.path()));
    return tour.Failed;
}
