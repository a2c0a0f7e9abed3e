#pragma once
// The main window beside a simulated KT3300 in a process of its own, with the bodies of all ports.
#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"
#include "link/RS232FuncBox.h"
#include "link/USB_FuncBox.h"
#include "platform/qt/SerialPort.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"
#include "platform/VisaLibrary.h"
#include "ui/LinkWait.h"
#include "ui/MainWindowFixture.h"

#include <QProcess>

// Whatever Qt or the simulator has to say fails the test, but for what the platform without a
// display cannot do. Pauses of the link are cut to a millisecond.
class RoadFixture : public MainWindowTest, protected TempFolder {
protected:
    void SetUp() override {
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) {
            if (!text.startsWith("This plugin does not")) ADD_FAILURE() << text.toStdString();
        });
        UseSettingsStore(PathOf("settings.ini"));
        QApplication::setQuitOnLastWindowClosed(false);
        MainWindowTest::SetUp();
        InstrumentModel = 2;
        SetInstrumentLimits();
        setenv("TIDEMARK_SIM_DIR", folder.c_str(), 1);
        simulator.setStandardOutputFile(QProcess::nullDevice());
        simulator.start(TIDEMARK_SIM, {"--model", "KT3300", "--serial", "ROAD"});
        const std::string port = PathOf("tty-ROAD");
        for (int i = 0; i < 100 && !std::filesystem::exists(port); ++i) QThread::msleep(50);
        ASSERT_TRUE(std::filesystem::exists(port));
        TheVisa() = LoadVisa();
        TheSerialPort() = QtSerialPort();
        TheSerialPort().OnEvent = RS232OnEvent;
        for (const char* device : {"Device1", "Device2", "Device3", "Device4"})
            SaveSetting(LinkApplication, "RS232", device, port);
        LoadLinkSettings();
        ScanUsbResources();
        TheHost().Wait = [](std::int32_t milliseconds) { WaitFor(std::min(milliseconds, 1)); };
    }
    void TearDown() override {
        MainWindowTest::TearDown();
        TheSerialPort().Close();
        simulator.terminate();
        simulator.waitForFinished();
        EXPECT_EQ(simulator.readAllStandardError().toStdString(), "");
        UseSettingsStore("");
        qInstallMessageHandler(nullptr);
    }
    void Do(const char* command) const {
        ASSERT_TRUE(Command(command)->isEnabled()) << command;
        Command(command)->trigger();
    }
    static void UseLink(std::uint8_t transport) {
        Link.IOType = transport;
        TheHost().RefreshCommands();
    }
    static QStringList Catalogue(const QWidget& dialog) {
        const auto* list = FindIn<QComboBox>(dialog, "cmbAllWave");
        QStringList names;
        for (int i = 0; i < list->count(); ++i) names << list->itemText(i);
        return names;
    }
    // Runs `act` on a dialog of the link once it has read the catalogue.
    void InDialog(const char* command, const std::function<void(QWidget&)>& act) const {
        QTimer poll;
        poll.callOnTimeout([&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || Link.WorkDepth > 0 || Catalogue(*dialog).empty()) return;
            poll.stop();
            act(*dialog);
            dialog->close();
        });
        poll.start(1);
        Do(command);
        ASSERT_FALSE(poll.isActive() || Link.CommError) << command;
    }
    // Volts or words of the active document.
    static std::vector<double> Content() {
        const AnalogWaveRecord& wave = ActiveAnalog();
        std::vector<double> values;
        if (ActiveIsDigital) std::ranges::copy(ActiveDigit().DigitSamples, back_inserter(values));
        for (std::int32_t i = 0; !ActiveIsDigital && i < wave.Dots; ++i)
            values.push_back(wave.DotArray[i].Y * wave.Vpp / 2);
        return values;
    }
    // The active document is stored as the last one, renamed, activated, read back, compared and
    // deleted.
    void SendThereAndBack(std::uint8_t transport) {
        const std::vector<double> sent = Content();
        const double scale = ActiveIsDigital ? ActiveDigit().Rate : ActiveAnalog().Period;
        // Half a step of 14 bits.
        const double within = ActiveIsDigital ? 0.0 : ActiveAnalog().Vpp / 2 * 1.00003 / 16383;
        QStringList before;
        Script({});
        UseLink(transport);
        Do("ConnectAresBtn");
        ASSERT_TRUE(Link.IsConnected && Link.ConnectedModel == 2 && !HasOldFirmware());
        InDialog("TransAresBtn", [&](QWidget& dialog) {
            before = Catalogue(dialog);
            Type(dialog, "txtUserWaveName", "road");
            Click(dialog, "SaveAresBtn");
            Pick(dialog, "cmbAllWave", Qt::Key_End);
            Click(dialog, "ButRename");
            Type(dialog, "txtAllWaveName", "way");
            Click(dialog, "OkAresBtn");
            EXPECT_EQ(Catalogue(dialog), before + QStringList("WAY"));
            Pick(dialog, "cmbAllWave", Qt::Key_End);
            Click(dialog, "ButActivate");
        });
        UseLink(UsbLink);
        InDialog(ActiveIsDigital ? "LoadDigitAresBtn" : "LoadAresBtn", [](QWidget& dialog) {
            Pick(dialog, "cmbAllWave", Qt::Key_End);
            Click(dialog, "LoadAresBtn");
        });
        const std::vector<double> read = Content();
        ASSERT_TRUE(AnalogDocCount + DigitDocCount == 2 && read.size() == sent.size());
        EXPECT_EQ(ActiveIsDigital ? ActiveDigit().Title : ActiveAnalog().Name, "WAY");
        EXPECT_EQ(ActiveIsDigital ? ActiveDigit().Rate : ActiveAnalog().Period, scale);
        for (std::size_t i = 0; i < read.size(); ++i) ASSERT_NEAR(read[i], sent[i], within) << i;
        CloseActive();
        UseLink(transport);
        InDialog("TransAresBtn", [&](QWidget& dialog) {
            Pick(dialog, "cmbAllWave", Qt::Key_End);
            Click(dialog, "ButDel");
            EXPECT_EQ(Catalogue(dialog), before);
        });
        Do("ConnectAresBtn");
        EXPECT_TRUE(!Link.IsConnected && asked.empty());
    }

    QProcess simulator;
};
