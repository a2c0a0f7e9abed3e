#include "app/TourHands.h"
#include "app/TourSteps.h"

#include "files/RecoveryFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "platform/BackgroundWriter.h"
#include "platform/ProgramFolder.h"

#include <cmath>
#include <cstring>
#include <numbers>
#include <QFile>

// The chapter on what stands around the editor: a captured waveform is imported, printed into the
// preview, explained by the help, and brought back after a crash.

namespace {

const AnalogWaveRecord& Wave() {
    return ActiveAnalog();
}

// A capture of 1000 samples at 1 MHz on channel 1, 1 V a division, 25 counts each: a sine of 3 V.
QByteArray MakeCapture() {
    constexpr std::int32_t Count = 1000, Microvolts = 1000000;
    constexpr float Rate = 1e6F;
    QByteArray bytes(272, '\0');
    std::memcpy(bytes.data() + 28, &Count, sizeof Count);
    std::memcpy(bytes.data() + 36, &Microvolts, sizeof Microvolts);
    bytes[49] = 1;
    std::memcpy(bytes.data() + 100, &Rate, sizeof Rate);
    for (int i = 0; i < Count; ++i)
        bytes +=
            static_cast<char>(std::lround(125 + 75 * std::sin(4 * std::numbers::pi * i / Count)));
    return bytes;
}

void ImportCapture(TourState& tour) {
    const QString path = tour.Folder.filePath("capture.wfm");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(MakeCapture()) < 0)
        qFatal("cannot write %s", qPrintable(path));
    file.close();
    WithDialog([&] { Choose(tour, "MnuFile_ImportWave"); },
               [&](QWidget* dialog) { AnswerFileDialog(dialog, path); });
    Step(tour, "a captured sine of 3 V and 1 ms becomes a document",
         Wave().Dots == 1000 && Wave().Vpp == 6.0 && Near(Wave().Period, 1e-3, 1e-12) &&
             Near(Wave().DotArray[125].Y, 1.0, 0.0) && !Wave().Modified);
    Picture(tour, tour.Window.get(), "imported");
}

void PreviewPage(TourState& tour) {
    bool stands = false;
    WithDialog([&] { Choose(tour, "MnuFile_PrintView"); },
               [&](QWidget* dialog) {
                   Settle(300);
                   stands = dialog->objectName() == "PrintPreviewFrm";
                   Picture(tour, dialog, "print-preview");
               });
    Step(tour, "the page is shown before it is printed", stands);
    Click(Control(Part(tour, "WaveFrm1"), "ExtBtn"));
}

// What a run that died would have left: the store's folder, held by nobody.
void LeaveCrash(const QDir& recovery) {
    const QString own = recovery.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0);
    const QDir from(recovery.filePath(own)), to(recovery.filePath("run-crash"));
    recovery.mkpath("run-crash");
    for (const QString& name : from.entryList(QDir::Files))
        QFile::copy(from.filePath(name), to.filePath(name));
}

void ComeBackAfterCrash(TourState& tour) {
    NewDocument(tour, "2000", "2", nullptr);
    InsertWave(tour, {"WaveAresBtn0", "2000", "3", "1.5", nullptr}, nullptr);
    const std::vector<WaveDot> dots = DotsOf(Wave());
    KeepSession();
    AwaitWrites();
    const QDir recovery(QString::fromStdString(UserDataFolder() + "/recovery"));
    LeaveCrash(recovery);
    const std::int16_t open = AnalogDocCount;
    DiscardDocument(tour);
    Step(tour, "the document is gone", AnalogDocCount == open - 1);
    WithDialog(RestoreSession, [&](QWidget* box) {
        Picture(tour, box, "restore");
        AnswerBox(box, Answer::Yes);
    });
    Step(tour, "after a crash the next start brings it back",
         AnalogDocCount == open && SameDots(Wave(), dots, 0.0) && Wave().Modified &&
             !recovery.exists("run-crash"));
    DiscardDocument(tour);
}

}  // namespace

void LookAroundTheEditor(TourState& tour) {
    ImportCapture(tour);
    PreviewPage(tour);
    ComeBackAfterCrash(tour);
}
