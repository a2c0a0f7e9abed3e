#include "app/TourDigits.h"
#include "app/TourHands.h"

#include "frame/GlobalDefineCode.h"
#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

// The chapter on the instrument: a simulated KT3300 is connected, a waveform goes into its volatile
// memory and into a stored location, is renamed, read back and deleted there; a digital one is
// stored and read back. All pauses are real.

namespace {

constexpr char Resource[] = "USB0::0x0000::0x3300::TOUR::INSTR";
constexpr double Volts = 5.0;  // peak to peak

// A simulator of the tour's own, wherever another one may run.
class Simulator {
public:
    Simulator() {
        qputenv("TIDEMARK_SIM_DIR", folder_.path().toUtf8());
        process_.setStandardOutputFile(QProcess::nullDevice());
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QCoreApplication::applicationDirPath() + "/tidemark-sim",
                       {"--model", "KT3300", "--serial", "TOUR"});
        const QString socket = folder_.filePath(Resource);
        for (int i = 0; i < 100 && !QFileInfo::exists(socket); ++i) Settle(50);
    }
    ~Simulator() {
        Stop();
        qunsetenv("TIDEMARK_SIM_DIR");
    }
    void Stop() {
        process_.terminate();
        process_.waitForFinished();
    }

private:
    QTemporaryDir folder_;
    QProcess process_;
};

void PickEntry(QWidget* list, const char* entry) {
    auto* box = static_cast<QComboBox*>(list);
    PressKey(box, Qt::Key_Home);
    for (int i = 0; i < box->count() && box->currentText() != entry; ++i)
        PressKey(box, Qt::Key_Down);
}

void SaveTranscript(TourState& tour) {
    QWidget* window = Transcript(tour);
    Settle(300);  // it takes new lines five times a second
    Picture(tour, window, "transcript");
    const QString path = tour.Folder.filePath("transcript.txt");
    QFile::remove(path);
    WithDialog([&] { Click(Control(window, "SaveAresBtn")); },
               [&](QWidget* dialog) { AnswerFileDialog(dialog, path); });
    QFile file(path);
    const bool there = file.open(QIODevice::ReadOnly);
    const QByteArray text = there ? file.readAll() : QByteArray();
    Step(tour, "the transcript tells of every exchange",
         text.contains("  >  *IDN?\n") && text.contains("  <  NORVIK TECHNOLOGIE,KT3300") &&
             text.contains("  >  [65530 bytes] DATA:DAC16 Volatile,CON,32747,"));
    window->close();
}

bool SetUp(TourState& tour) {
    WithDialog([&] { Choose(tour, "MnuTool_InstrumenuSel"); },
               [&](QWidget* dialog) {
                   PickEntry(Control(dialog, "ComboInstrumentType"), "KT3300");
                   Picture(tour, dialog, "instrument");
                   Click(Control(dialog, "OkAresBtn"));
               });
    Step(tour, "waveforms are edited for a KT3300", MaxWaveDots == 1048576);
    WithDialog([&] { Choose(tour, "MnuTool_Com"); },
               [&](QWidget* dialog) {
                   Picture(tour, dialog, "communication");
                   Click(Control(dialog, "OkAresBtn"));
               });
    const bool found = Link.UsbResourceList[0] == Resource;
    Step(tour, "the simulated instrument is found on USB", found);
    return found;
}

void Connect(TourState& tour) {
    Click(Part(tour, "ConnectAresBtn"));
    Step(tour, "connected to a KT3300 with new firmware",
         Link.IsConnected && Link.ConnectedModel == 2 && !HasOldFirmware());
    Picture(tour, tour.Window.get(), "connected");
}

void Send(TourState& tour) {
    NewDocument(tour, "40000", "5", nullptr);
    InsertWave(tour, {"WaveAresBtn0", "40000", "2", "4", nullptr}, nullptr);
    const auto act = [&](QWidget* dialog) {
        Click(Control(dialog, "OptionSave1"));
        QTimer::singleShot(900, dialog, [&, dialog] { Picture(tour, dialog, "sending"); });
        Click(Control(dialog, "SaveAresBtn"));
        Step(tour, "sent into the volatile memory", !Link.CommError && !Link.SendBusy);
        Click(Control(dialog, "OptionSave0"));
        TypeInto(Control(dialog, "txtUserWaveName"), "tour");
        Picture(tour, dialog, "send");
        Click(Control(dialog, "SaveAresBtn"));
        Step(tour, "stored under a name in capitals",
             !Link.CommError && Entries(dialog, "cmbAllWave").contains("TOUR"));
        PickEntry(Control(dialog, "cmbAllWave"), "TOUR");
        Click(Control(dialog, "ButRename"));
        TypeInto(Control(dialog, "txtAllWaveName"), "tide");
        Picture(tour, dialog, "rename");
        Click(Control(dialog, "OkAresBtn"));
        Step(tour, "renamed in the instrument", Entries(dialog, "cmbAllWave").last() == "TIDE");
        Click(Control(dialog, "ButActivate"));
        Picture(tour, dialog, "stored");
        Click(Control(dialog, "ExitAresBtn"));
    };
    WithCatalogue(tour, "TransAresBtn", act);
}

void ReadBack(TourState& tour) {
    const std::vector<WaveDot> sent = DotsOf(ActiveAnalog());
    const auto act = [&](QWidget* dialog) {
        PickEntry(Control(dialog, "cmbAllWave"), "TIDE");
        QTimer::singleShot(9000, dialog, [&, dialog] { Picture(tour, dialog, "reading"); });
        Click(Control(dialog, "LoadAresBtn"));
        Settle(50);
    };
    WithCatalogue(tour, "LoadAresBtn", act);
    const AnalogWaveRecord& read = ActiveAnalog();
    bool same = read.Dots == std::ssize(sent) && read.Vpp == 20.0;
    for (std::int32_t i = 0; same && i < read.Dots; ++i)  // volts, within a step of 14 bits
        same = Near(read.DotArray[i].Y * read.Vpp / 2, sent[i].Y * Volts / 2, Volts / 16383);
    Step(tour, "read back: the same volts in a new document", same && read.Name == "TIDE");
    Picture(tour, tour.Window.get(), "read-back");
    DiscardDocument(tour);
}

void CancelAndDelete(TourState& tour) {
    const auto act = [&](QWidget* dialog) {
        PickEntry(Control(dialog, "cmbAllWave"), "TIDE");
        Click(Control(dialog, "ButDel"));
        Step(tour, "deleted in the instrument", !Entries(dialog, "cmbAllWave").contains("TIDE"));
        TypeInto(Control(dialog, "txtUserWaveName"), "HALF");
        QTimer::singleShot(1000, dialog, [=] { Click(Control(dialog, "CancelWaitBtn")); });
        QElapsedTimer clock;
        clock.start();
        Click(Control(dialog, "SaveAresBtn"));
        Step(tour, "Cancel ends a transfer at once",
             clock.elapsed() < 2000 && !Link.SendBusy && Link.IsConnected);
        Click(Control(dialog, "ExitAresBtn"));
    };
    WithCatalogue(tour, "TransAresBtn", act);
    DiscardDocument(tour);
}

// The pattern goes into a location beside the analog ones, and comes back as sixteen channels.
void SendPattern(TourState& tour) {
    OpenPattern(tour);
    const std::vector<std::int32_t> sent = Wave().DigitSamples;
    const auto send = [&](QWidget* dialog) {
        TypeInto(Control(dialog, "txtUserWaveName"), "pattern");
        Click(Control(dialog, "SaveAresBtn"));
        Step(tour, "a digital waveform is stored beside the analog ones",
             !Link.CommError && Entries(dialog, "cmbAllWave").last() == "PATTERN");
        Picture(tour, dialog, "send-digital");
        Click(Control(dialog, "ExitAresBtn"));
    };
    WithCatalogue(tour, "TransAresBtn", send);
    const auto load = [&](QWidget* dialog) {
        PickEntry(Control(dialog, "cmbAllWave"), "PATTERN");
        Picture(tour, dialog, "read-digital");
        Click(Control(dialog, "LoadAresBtn"));
        Settle(50);
    };
    WithCatalogue(tour, "LoadDigitAresBtn", load);
    const DigitDocument& read = Wave();
    Step(tour, "read back: the same words in sixteen channels",
         DigitDocCount == 2 && read.Title == "PATTERN" && read.NodeCount == 16 &&
             read.DigitSamples == sent && read.Rate == DigitAt(0).Rate);
    Picture(tour, tour.Window.get(), "digital-read-back");
    for (int i = 0; i < 2; ++i) Click(Pic(tour, "ExtBtn"));
}

void Unplug(TourState& tour, Simulator& simulator) {
    Click(Part(tour, "ConnectAresBtn"));
    Step(tour, "disconnected", !Link.IsConnected);
    simulator.Stop();
    bool told = false;
    WithDialog([&] { Click(Part(tour, "ConnectAresBtn")); },
               [&](QWidget* box) {
                   told = Tells(box, "Device not found");
                   Picture(tour, box, "not-found");
               });
    Step(tour, "without the instrument a message says so", told && !Link.IsConnected);
}

}  // namespace

void UseTheInstrument(TourState& tour) {
    Simulator simulator;
    Click(Control(Transcript(tour), "RecordChk"));
    if (!SetUp(tour)) return;
    Connect(tour);
    Send(tour);
    ReadBack(tour);
    CancelAndDelete(tour);
    SendPattern(tour);
    MakeHelpPictures(tour);
    Unplug(tour, simulator);
    SaveTranscript(tour);
}
