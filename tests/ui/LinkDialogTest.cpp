#include "link/LinkTranscript.h"
#include "link/LinkWork.h"
#include "link/RS232FuncBox.h"
#include "platform/Settings.h"
#include "platform/VisaApi.h"
#include "ui/CommunicateSettingFrm.h"
#include "ui/InstrumentSelFrm.h"
#include "ui/LinkTranscriptFrm.h"
#include "ui/MainWindowFixture.h"

namespace {

std::vector<const char*> plugged;
std::size_t named = 0;  // by the scan
ViStatus NameNext(ViSession, char* to) {
    return std::strcpy(to, plugged[named++]), VisaSuccess;
}

// Two instruments on USB, a serial cable, and the serial ports at their usual devices.
class LinkDialogTest : public RecordsTest {
protected:
    void SetUp() override {
        RecordsTest::SetUp();
        Link = LinkState();
        plugged = {"USB0::1::KT::A::INSTR", "USB0::1::KT::B::INSTR"};
        TheVisa().viOpenDefaultRM = [](auto*) { return VisaSuccess; };
        TheVisa().viFindRsrc = [](auto, auto, auto, std::uint32_t* count, char* to) {
            named = 0;
            *count = static_cast<std::uint32_t>(plugged.size());
            return plugged.empty() ? VisaNotFound : NameNext(0, to);
        };
        TheVisa().viFindNext = NameNext;
        TheSerialPort().Devices = [] { return std::vector{SerialDevice{"/dev/ttyUSB0", "Cable"}}; };
        SaveSetting(LinkApplication, "RS232", "Device2", "/dev/ttyS1");
    }
    static QString Shown(const QWidget& dialog, const char* name) {
        return FindIn<QComboBox>(dialog, name)->currentText();
    }
};

TEST_F(LinkDialogTest, OnlyTheSectionOfTheTransportIsOpen) {
    const char* const options[] = {"USBOption", "GPIBOption", "RS232Option"};
    const char* const fields[] = {"cmbDevice", "AddressTxt", "PortCmb"};
    for (std::uint8_t saved = 0; saved < 4; ++saved) {
        Link.IOType = saved;
        CommunicateSettingFrm dialog;
        Show(dialog);
        EXPECT_EQ(dialog.focusWidget()->objectName(), fields[saved % 3]);  // unknown: USB
        const int open = (saved + 1) % 3;
        Click(dialog, options[open]);
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(FindIn<QWidget>(dialog, fields[i])->isEnabled(), i == open) << i << open;
        dialog.accept();
        EXPECT_EQ(Link.IOType, open == 2 ? 2 : 0);  // GPIB is not kept
    }
}

TEST_F(LinkDialogTest, EnterInTheBaudBoxKeepsTheSerialChoices) {
    Link.IOType = 2;
    Link.Port = "COM7";
    for (const bool confirmed : {false, true}) {
        CommunicateSettingFrm dialog;
        Show(dialog);
        EXPECT_EQ(Shown(dialog, "SerialDeviceCmb"), "/dev/ttyS6");  // absent, and kept
        for (const auto key : {Qt::Key_Home, Qt::Key_Down}) Pick(dialog, "PortCmb", key);
        EXPECT_EQ(Shown(dialog, "SerialDeviceCmb"), "/dev/ttyS1");
        for (const auto key : {Qt::Key_Home, Qt::Key_Tab}) Pick(dialog, "SerialDeviceCmb", key);
        QTest::keyClicks(dialog.focusWidget(), "5b.6 00");
        EXPECT_EQ(Shown(dialog, "BaudCmb"), "5600");
        QTest::keyClick(dialog.focusWidget(), confirmed ? Qt::Key_Return : Qt::Key_Escape);
        EXPECT_EQ(Link.Port, confirmed ? "COM2" : "COM7");
        EXPECT_EQ(DeviceOfPort(2), confirmed ? "/dev/ttyUSB0" : "/dev/ttyS1");
        EXPECT_EQ(Link.BaudRate, confirmed ? 5600 : 9600);
    }
}

TEST_F(LinkDialogTest, RescanKeepsWhatIsStillThere) {
    CommunicateSettingFrm dialog;
    Show(dialog);
    Pick(dialog, "cmbDevice", Qt::Key_Down);
    Click(dialog, "RS232Option");
    Pick(dialog, "SerialDeviceCmb", Qt::Key_Home);
    plugged = {"USB0::1::KT::C::INSTR", "TCPIP0::1", plugged[1]};
    Click(dialog, "RescanAresBtn");
    EXPECT_EQ(Shown(dialog, "cmbDevice"), plugged[2]);
    EXPECT_EQ(Shown(dialog, "SerialDeviceCmb"), "/dev/ttyUSB0  Cable");
}

TEST_F(LinkDialogTest, PickedInstrumentTellsItsDotsAndIsSavedAtTheEnd) {
    for (const bool confirmed : {true, false}) {
        InstrumentModel = 0;
        InstrumentSelFrm dialog;
        Show(dialog);
        const auto* note = FindIn<QLabel>(dialog, "lblMsgbox");
        Pick(dialog, "ComboInstrumentType", Qt::Key_End);
        EXPECT_EQ(note->text(), "Attention:Maximum editor point is 1048576!");
        EXPECT_LT(note->fontMetrics().horizontalAdvance(note->text()), note->width());
        Click(dialog, confirmed ? "OkAresBtn" : "CancelAresBtn");
        EXPECT_EQ(GetSetting(ApplicationTitle, "Tidemark_Instrument", "Instrument", ""),
                  confirmed ? "2" : "0");
    }
}

TEST_F(LinkDialogTest, TranscriptFollowsTheLinkWhileItRecords) {
    QWidget main;
    for (int i = 0; i < 2; ++i) LinkTranscriptFrm::ShowOver(&main);
    ASSERT_EQ(main.findChildren<LinkTranscriptFrm*>().size(), 1);
    auto& window = *main.findChild<LinkTranscriptFrm*>();
    auto* view = FindIn<QPlainTextEdit>(window, "TranscriptTxt");
    auto* bar = view->verticalScrollBar();
    const auto note = [&](std::size_t count, const char* line, int shown) {
        for (std::size_t i = 0; i < count; ++i) NoteText(LinkWay::Sent, line);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return view->blockCount() == shown && view->toPlainText().endsWith(line);
        })) << line;
    };
    NoteText(LinkWay::Sent, "unheard");
    Click(window, "RecordChk");
    note(499, "first", 499);
    EXPECT_EQ(bar->value(), bar->maximum());
    bar->setValue(7);  // who reads further up is left there
    note(1, "more", 500);
    EXPECT_EQ(bar->value(), 7);
    note(MostTranscriptLines, "last", MostTranscriptLines);
    Click(window, "ClearAresBtn");
    note(1, "again", 1);
    SwitchTranscript(false);
    ClearTranscript();
}

}  // namespace
