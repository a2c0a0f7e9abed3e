// Connect, store, rename, activate, read back and delete against a running simulator, over USB and
// over its pseudo-terminal, with the bodies of all ports. A waveform sent over the serial line is
// read back over USB, since the simulator has both.
#include "analog/AnalogFixture.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "link/ConnectFuncBox.h"
#include "link/RS232FuncBox.h"
#include "link/SendWaveFuncBox.h"
#include "link/UploadFuncBox.h"
#include "link/USB_FuncBox.h"
#include "platform/qt/SerialPort.h"
#include "platform/Settings.h"
#include "platform/VisaLibrary.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

namespace {

struct RoadCase {
    std::uint8_t Transport;
    std::int32_t BaudRate, Dots;
    bool Pauses;
};

class RoadTest : public AnalogFixture, public testing::WithParamInterface<RoadCase> {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        InstrumentModel = 2;
        SetInstrumentLimits();
        UseSettingsStore(folder_.filePath("settings.ini").toStdString());
        StartSimulator();
        TheVisa() = LoadVisa();
        TheSerialPort() = QtSerialPort();
        TheSerialPort().OnEvent = RS232OnEvent;
        SaveSetting(LinkApplication, "RS232", "Device1",
                    folder_.filePath("tty-ROAD").toStdString());
        LoadLinkSettings();
        Link.IOType = GetParam().Transport;
        Link.BaudRate = GetParam().BaudRate;
        ticks_.callOnTimeout(CountReadTick);
        ticks_.start(100);
        TheHost().Pump = [] { QCoreApplication::processEvents(); };
        TheHost().AwaitEvent = [] {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        };
        TheHost().Wait = [](std::int32_t milliseconds) {
            QEventLoop loop;
            QTimer::singleShot(GetParam().Pauses ? milliseconds : 0, &loop, &QEventLoop::quit);
            loop.exec();
        };
    }
    void TearDown() override {
        TheSerialPort().Close();
        simulator_.terminate();
        simulator_.waitForFinished();
        UseSettingsStore("");
        AnalogFixture::TearDown();
    }

private:
    void StartSimulator() {
        qputenv("TIDEMARK_SIM_DIR", folder_.path().toUtf8());
        simulator_.setStandardOutputFile(QProcess::nullDevice());
        simulator_.start(TIDEMARK_SIM, {"--model", "KT3300", "--serial", "ROAD"});
        const QString port = folder_.filePath("tty-ROAD");
        for (int i = 0; i < 100 && !QFileInfo::exists(port); ++i) QThread::msleep(50);
        ASSERT_TRUE(QFileInfo::exists(port));
    }

    QTemporaryDir folder_;
    QProcess simulator_;
    QTimer ticks_;
};

std::vector<std::string> Catalogue(const SendDialog& dialog) {
    const auto first = dialog.Stored.AllWaveName.begin();
    return {first, first + dialog.Stored.AllWaveCount};
}

void PickByName(SendDialog& dialog, std::string_view name) {
    for (std::int16_t i = 0; i < dialog.Stored.AllWaveCount; ++i)
        if (dialog.Stored.AllWaveName[i] == name) PickStoredWave(dialog, i);
}

}  // namespace

TEST_P(RoadTest, AWaveformGoesThereAndBack) {
    using testing::ElementsAre, testing::Contains;
    AnalogWaveRecord& wave = MakeDocument("c", GetParam().Dots, GetParam().Dots);
    for (std::int32_t i = 0; i < wave.Dots; ++i)
        wave.DotArray[i].Y = std::sin(i * 0.01) * (i % 3 == 0 ? -1.0 : 1.0);
    wave.Vpp = 8.0;
    wave.Period = 0.001;
    ScanUsbResources();
    ConnectInstrument();
    ASSERT_TRUE(Link.IsConnected);
    EXPECT_TRUE(Link.ConnectedModel == 2 && !HasOldFirmware());

    SendDialog dialog;
    OpenSend(dialog);
    ASSERT_FALSE(dialog.CloseAsked);
    PickStoreTarget(dialog, 1);
    ChangeUserWaveName(dialog, "road");
    SaveToInstrument(dialog);
    PickByName(dialog, "ROAD");
    BeginRename(dialog);
    ChangeAllWaveName(dialog, "WAY");
    ConfirmRename(dialog);
    EXPECT_THAT(Catalogue(dialog), testing::AllOf(Contains("WAY"), testing::Not(Contains("ROAD"))));
    PickByName(dialog, "WAY");
    ActivateChosenWave(dialog);

    Link.IOType = UsbLink;
    DownLoadDialog upload;
    OpenDownLoad(upload);
    ASSERT_THAT(upload.AllWaveName, testing::IsSupersetOf({"CARDIAC", "WAY"}));
    upload.AllIndex = static_cast<std::int16_t>(std::ranges::find(upload.AllWaveName, "WAY") -
                                                upload.AllWaveName.begin());
    LoadChosenWave(upload);
    ASSERT_EQ(AnalogDocCount, 2) << upload.Note;
    const AnalogWaveRecord& read = ActiveAnalog();
    EXPECT_TRUE(read.Name == "WAY" && read.Vpp == 20.0 && read.Period == 0.001);
    ASSERT_EQ(read.Dots, wave.Dots);
    for (std::int32_t i = 0; i < read.Dots; ++i)  // half a step of 14 bits over 8 volts
        ASSERT_NEAR(read.DotArray[i].Y * 10.0, wave.DotArray[i].Y * 4.0, 4.0001 / 16383) << i;

    Link.IOType = GetParam().Transport;
    PickByName(dialog, "WAY");
    DeleteChosenWave(dialog);
    EXPECT_THAT(Catalogue(dialog), testing::Not(Contains("WAY")));
    DisconnectInstrument();
    EXPECT_THAT(asked, ElementsAre());
}

class DigitRoadTest : public RoadTest {  // over USB only
protected:
    void SetUp() override {
        RoadTest::SetUp();
        DigitDocTable = {};
        DigitDocUsed.fill(false);
        DigitDocCount = 0;
    }
};

TEST_P(DigitRoadTest, ADigitalWaveformGoesThereAndBack) {
    LoadedDigit wave;
    wave.Dots = GetParam().Dots;
    wave.Rate = 250000.0;
    for (std::int32_t i = 0; i < wave.Dots; ++i) wave.DigitSamples.push_back(i * 7919 & 0xFFFF);
    for (std::uint8_t n = 0; n < 16; ++n) {
        DigitNode& node = wave.Nodes.emplace_back();
        node.Channels[0] = n;
        node.DataLength = wave.Dots;
    }
    ASSERT_TRUE(OpenLoadedDigit(wave, "there"));
    ScanUsbResources();
    ConnectInstrument();
    SendDialog dialog;
    dialog.Kind = &SendDigitKind;
    OpenSend(dialog);
    ASSERT_FALSE(dialog.CloseAsked);
    const std::int16_t known = dialog.Stored.AllWaveCount;
    ChangeUserWaveName(dialog, "road");
    SaveToInstrument(dialog);
    PickByName(dialog, "ROAD");
    BeginRename(dialog);
    ChangeAllWaveName(dialog, "WAY");
    ConfirmRename(dialog);
    ASSERT_EQ(dialog.Stored.AllWaveCount, known + 1);

    DownLoadDialog upload;
    upload.Kind = &UploadDigitKind;
    OpenDownLoad(upload);
    upload.AllIndex = static_cast<std::int16_t>(std::ranges::find(upload.AllWaveName, "WAY") -
                                                upload.AllWaveName.begin());
    LoadChosenWave(upload);
    ASSERT_EQ(DigitDocCount, 2) << upload.Note;
    EXPECT_TRUE(ActiveDigit().Title == "WAY" && ActiveDigit().Rate == wave.Rate);
    EXPECT_EQ(ActiveDigit().DigitSamples, wave.DigitSamples);
    PickByName(dialog, "WAY");
    DeleteChosenWave(dialog);
    EXPECT_EQ(dialog.Stored.AllWaveCount, known);
    DisconnectInstrument();
    EXPECT_THAT(asked, testing::ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(Quick, RoadTest,
                         testing::Values(RoadCase{UsbLink, 9600, 40000, false},
                                         RoadCase{UsbLink, 9600, 1, false},
                                         RoadCase{SerialLink, 9600, 4096, false},
                                         RoadCase{SerialLink, 115200, 4096, false}));
INSTANTIATE_TEST_SUITE_P(Quick, DigitRoadTest,
                         testing::Values(RoadCase{UsbLink, 9600, 40000, false},
                                         RoadCase{UsbLink, 9600, 1, false}));
INSTANTIATE_TEST_SUITE_P(RealPauses, RoadTest,
                         testing::Values(RoadCase{SerialLink, 9600, 4096, true},
                                         RoadCase{SerialLink, 115200, 4096, true}));

int main(int count, char** arguments) {
    QCoreApplication app(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
