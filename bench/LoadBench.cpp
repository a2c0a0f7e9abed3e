// The program under its full load: ten analog and ten digital documents of 1048576 dots, each with
// a snapshot for undo and a copy for recovery. Writes how long it takes to switch to another window
// until it is painted, and the peak of resident memory; bench/whole has the budgets.
#include "analog/AnalogDocument.h"
#include "app/StartProgram.h"
#include "calculus/StandardWaveFuncBox.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitEditFuncBox.h"
#include "digital/DigitValueFuncBox.h"
#include "digital/DigitView.h"
#include "digital/GlobalDigitDefineCode.h"
#include "files/RecoveryFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "platform/BackgroundWriter.h"
#include "ui/DocumentArea.h"
#include "ui/DocumentWindow.h"
#include "ui/Mainfrm.h"
#include "ui/Theme.h"

#include <sys/resource.h>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <random>

namespace {

constexpr std::int32_t Dots = 1048576;
constexpr std::int32_t SlowPeriod = 20000;
constexpr std::int16_t Windows = 2 * MaxDocuments;
constexpr int Step = 7;      // from window to window: all are reached, of either kind from either
constexpr int Switches = 5;  // to each window, in either arrangement

struct PaintCount : QObject {
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++Paints;
        return false;
    }
    int Paints = 0;
};

[[noreturn]] void GiveUp(const char* why) {
    std::fprintf(stderr, "tidemark_load: %s\n", why);
    std::exit(1);
}

void Settle() {
    while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
    }
}

// Noise, sine, ramp and square in segments of their own; each is an edit.
void OpenAnalog() {
    ActiveAnalogIndex = FirstFreeSlot(AnalogInUse);
    AnalogWaveRecord& wave = ActiveAnalog();
    wave.Vpp = 10.0;
    wave.Period = 1e-3;
    wave.Quantify = MaxQuantify;
    AllocateDots(wave, Dots);
    CreateAnalogDocument();
    for (const auto& [kind, part] : {std::pair(Noise, 4), {Sine, 2}, {Ramp, 8}, {Square, 8}}) {
        StandardWaveDialog dialog = OpenStandardWave(kind);
        dialog.Wave.DotCount = Dots / part;
        dialog.Wave.Cycles = 100;
        ConfirmStandardWave(dialog);
    }
    if (wave.Dots != Dots || !wave.UndoAvailable) GiveUp("an analog document is not full");
}

// 16 channels, by turns random and slow, all inverted by one edit. Odd ones are seen as a whole.
void OpenDigit(std::int16_t slot) {
    LoadedDigit loaded;
    loaded.Dots = Dots;
    loaded.Rate = 1e6;
    std::mt19937 random(1);  // NOLINT: the same picture each time
    for (std::int32_t i = 0; i < Dots; ++i)
        loaded.DigitSamples.push_back(static_cast<std::int32_t>(random() & 0x5555U) |
                                      (i / SlowPeriod % 2 * 0xAAAA));
    for (std::int16_t k = 0; k < MaxChannels; ++k) {
        DigitNode& node = loaded.Nodes.emplace_back();
        node.Name = "D" + std::to_string(k);
        node.Channels[0] = static_cast<std::uint8_t>(k);
        node.DataLength = Dots;
    }
    OpenLoadedDigit(std::move(loaded), "Load " + std::to_string(slot));
    SelectAllDigit();
    WriteSelection({.Operation = DigitOperation::Invert});
    if (slot % 2 == 1) ZoomDigit(slot, -20);
    if (DigitAt(slot).ChannelCount != MaxChannels || !DigitAt(slot).UndoAvailable)
        GiveUp("a digital document is not full");
}

// Milliseconds from the wish for a window until nothing is left to paint.
double SwitchTo(DocumentArea& area, QMdiSubWindow* frame) {
    PaintCount count;
    QWidget* picture = static_cast<DocumentWindow*>(frame->widget())->Picture();
    picture->installEventFilter(&count);
    QElapsedTimer time;
    time.start();
    area.setActiveSubWindow(frame);
    Settle();
    const auto took = static_cast<double>(time.nsecsElapsed()) * 1e-6;
    if (count.Paints == 0) GiveUp("a window was not painted");
    return took;
}

void AddSwitches(DocumentArea& area, std::vector<double>& times) {
    const QList<QMdiSubWindow*> frames = area.Frames();
    if (frames.size() != Windows) GiveUp("not all windows are open");
    for (int i = 1; i <= Switches * Windows; ++i)
        times.push_back(SwitchTo(area, frames[i * Step % Windows]));
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    ApplyTheme(app);
    const std::unique_ptr<Mainfrm> window(StartProgram());
    InstrumentModel = 2;  // of the longest waveforms
    SetInstrumentLimits();
    window->resize(1280, 800);
    for (std::int16_t i = 0; i < MaxDocuments; ++i) OpenAnalog();
    for (std::int16_t i = 0; i < MaxDocuments; ++i) OpenDigit(i);
    KeepSession();
    AwaitWrites();
    Settle();
    auto* area = window->findChild<DocumentArea*>();
    std::vector<double> times;
    AddSwitches(*area, times);
    window->ArrangeWindows(WindowArrangement::Cascade);
    Settle();
    AddSwitches(*area, times);
    std::ranges::sort(times);
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("%.0f %.0f %ld\n", times[times.size() / 2] * 1e3,
                times[times.size() * 95 / 100] * 1e3, usage.ru_maxrss);
    EndSession();
    return 0;
}
