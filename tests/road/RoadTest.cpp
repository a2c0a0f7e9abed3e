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
#include "platform/TempFolder.h"
#include "platform/VisaLibrary.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QThread>
#include <QTimer>

namespace {

struct RoadCase {
    bool Digital;
    std::uint8_t Transport;
    std::int32_t BaudRate, Dots;
    bool Pauses;
};

class RoadTest : public AnalogFixture,
                 public testing::WithParamInterface<RoadCase>,
                 protected TempFolder {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        DigitDocTable = {};
        DigitDocUsed.fill(false);
        DigitDocCount = 0;
        InstrumentModel = 2;
        SetInstrumentLimits();
        UseSettingsStore(PathOf("settings.ini"));
        setenv("TIDEMARK_SIM_DIR", folder.c_str(), 1);
        simulator.setStandardOutputFile(QProcess::nullDevice());
        simulator.start(TIDEMARK_SIM, {"--model", "KT3300", "--serial", "ROAD"});
        const std::string port = PathOf("tty-ROAD");
        for (int i = 0; i < 100 && !std::filesystem::exists(port); ++i) QThread::msleep(50);
        ASSERT_TRUE(std::filesystem::exists(port));
        TheVisa() = LoadVisa();
        TheSerialPort() = QtSerialPort();
        TheSerialPort().OnEvent = RS232OnEvent;
        SaveSetting(LinkApplication, "RS232", "Device1", port);
        LoadLinkSettings();
        Link.IOType = GetParam().Transport;
        Link.BaudRate = GetParam().BaudRate;
        ticks.callOnTimeout(CountReadTick);
        ticks.start(100);
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
        simulator.terminate();
        simulator.waitForFinished();
        UseSettingsStore("");
        AnalogFixture::TearDown();
    }
    static void MakeAnalog(std::int32_t dots) {
        AnalogWaveRecord& wave = MakeDocument("c", dots, dots);
        for (std::int32_t i = 0; i < dots; ++i)
            wave.DotArray[i].Y = std::sin(i * 0.01) * (i % 3 == 0 ? -1.0 : 1.0);
        wave.Vpp = 8.0;
        wave.Period = 0.001;
    }
    static void MakeDigital(std::int32_t dots) {
        LoadedDigit wave;
        wave.Dots = dots;
        wave.Rate = 250000.0;
        for (std::int32_t i = 0; i < dots; ++i) wave.DigitSamples.push_back(i * 7919 & 0xFFFF);
        for (std::uint8_t n = 0; n < 16; ++n) {
            DigitNode& node = wave.Nodes.emplace_back();
            node.Channels[0] = n;
            node.DataLength = dots;
        }
        ASSERT_TRUE(OpenLoadedDigit(wave, "there"));
    }

    QProcess simulator;
    QTimer ticks;
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
    const auto& [digital, transport, baud, dots, pauses] = GetParam();
    digital ? MakeDigital(dots) : MakeAnalog(dots);
    ScanUsbResources();
    ConnectInstrument();
    ASSERT_TRUE(Link.IsConnected);
    EXPECT_TRUE(Link.ConnectedModel == 2 && !HasOldFirmware());

    SendDialog dialog;
    DownLoadDialog upload;
    if (digital) dialog.Kind = &SendDigitKind;
    if (digital) upload.Kind = &UploadDigitKind;
    OpenSend(dialog);
    ASSERT_FALSE(dialog.CloseAsked);
    const std::vector<std::string> before = Catalogue(dialog);
    PickStoreTarget(dialog, 1);
    ChangeUserWaveName(dialog, "road");
    SaveToInstrument(dialog);
    PickByName(dialog, "ROAD");
    BeginRename(dialog);
    ChangeAllWaveName(dialog, "WAY");
    ConfirmRename(dialog);
    std::vector<std::string> after = before;
    after.emplace_back("WAY");
    ASSERT_EQ(Catalogue(dialog), after);
    PickByName(dialog, "WAY");
    ActivateChosenWave(dialog);

    Link.IOType = UsbLink;
    OpenDownLoad(upload);
    ASSERT_THAT(upload.AllWaveName,
                testing::IsSupersetOf({digital ? "VOLATILE" : "CARDIAC", "WAY"}));
    upload.AllIndex = static_cast<std::int16_t>(std::ranges::find(upload.AllWaveName, "WAY") -
                                                upload.AllWaveName.begin());
    LoadChosenWave(upload);
    ASSERT_EQ(digital ? DigitDocCount : AnalogDocCount, 2) << upload.Note;
    if (digital) {
        const DigitDocument& read = ActiveDigit();
        EXPECT_TRUE(read.Title == "WAY" && read.Rate == 250000.0 && read.Dots == dots);
        ASSERT_EQ(std::ssize(read.DigitSamples), dots);
        for (std::int32_t i = 0; i < dots; ++i)
            ASSERT_EQ(read.DigitSamples[i], i * 7919 & 0xFFFF) << i;
    } else {
        const AnalogWaveRecord& read = ActiveAnalog();
        EXPECT_TRUE(read.Name == "WAY" && read.Vpp == 20.0 && read.Period == 0.001);
        ASSERT_EQ(read.Dots, dots);
        for (std::int32_t i = 0; i < dots; ++i)  // half a step of 14 bits over 8 volts
            ASSERT_NEAR(read.DotArray[i].Y * 10.0, AnalogDocs[0].DotArray[i].Y * 4.0,
                        4.0001 / 16383)
                << i;
    }

    Link.IOType = transport;
    PickByName(dialog, "WAY");
    DeleteChosenWave(dialog);
    EXPECT_EQ(Catalogue(dialog), before);
    DisconnectInstrument();
    EXPECT_THAT(asked, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Quick, RoadTest,
                         testing::Values(RoadCase{false, UsbLink, 9600, 40000, false},
                                         RoadCase{false, UsbLink, 9600, 1, false},
                                         RoadCase{false, SerialLink, 9600, 4096, false},
                                         RoadCase{false, SerialLink, 115200, 4096, false},
                                         RoadCase{true, UsbLink, 9600, 40000, false},
                                         RoadCase{true, UsbLink, 9600, 1, false}));
INSTANTIATE_TEST_SUITE_P(RealPauses, RoadTest,
                         testing::Values(RoadCase{false, SerialLink, 9600, 4096, true},
                                         RoadCase{false, SerialLink, 115200, 4096, true}));

int main(int count, char** arguments) {
    QCoreApplication app(count, arguments);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
