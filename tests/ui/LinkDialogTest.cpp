#include "link/ConnectFuncBox.h"
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
    static void Pick(const QWidget& dialog, const char* name, Qt::Key key) {
        auto* list = FindIn<QComboBox>(dialog, name);
        list->setFocus();
        QTest::keyClick(list, key);
    }
    static void Click(const QWidget& dialog, const char* name) {
        FindIn<QAbstractButton>(dialog, name)->click();
    }
};

TEST_F(LinkDialogTest, OnlyTheSectionOfTheTransportIsOpen) {
    const char* const options[] = {"USBOption", "GPIBOption", "RS232Option"};
    const char* const fields[] = {"cmbDevice", "AddressTxt", "PortCmb"};
    for (std::uint8_t saved = 0; saved < 4; ++saved) {
        Link.IOType = saved;
        CommunicateSettingFrm dialog;
        Show(dialog);
        const int type = saved % 3;  // an unknown one means USB
        EXPECT_EQ(dialog.focusWidget()->objectName(), fields[type]);
        for (const int open : {type, (type + 1) % 3}) {
            Click(dialog, options[open]);
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(FindIn<QWidget>(dialog, fields[i])->isEnabled(), i == open) << i << open;
        }
        dialog.accept();
        EXPECT_EQ(Link.IOType, type == 1 ? 2 : 0);  // GPIB is not kept
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
    plugged = {"USB0::1::KT::C::INSTR", "TCPIP0::1", "USB0::1::KT::D::INSTR", plugged[1]};
    Click(dialog, "RescanAresBtn");
    EXPECT_EQ(Shown(dialog, "cmbDevice"), plugged[3]);
    EXPECT_EQ(Link.UsbResourceIndex, 2);
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
    const auto shows = [&](int count, const char* last) {
        return QTest::qWaitFor(
            [&] { return view->blockCount() == count && view->toPlainText().endsWith(last); });
    };
    NoteText(LinkWay::Sent, "unheard");
    Click(window, "RecordChk");
    NoteText(LinkWay::Received, "KT\n");
    EXPECT_TRUE(shows(1, "  <  KT<0A>"));
    window.close();
    for (int i = 1; i < 500; ++i) NoteText(LinkWay::Sent, std::to_string(i));
    LinkTranscriptFrm::ShowOver(&main);
    EXPECT_TRUE(shows(500, " 499") && bar->value() == bar->maximum());
    bar->setValue(7);  // who reads further up is left there
    NoteText(LinkWay::Sent, "more");
    EXPECT_TRUE(shows(501, " more") && bar->value() == 7);
    for (std::size_t i = 0; i < MostTranscriptLines; ++i) NoteText(LinkWay::Sent, "last");
    EXPECT_TRUE(shows(MostTranscriptLines, " last"));
    Click(window, "ClearAresBtn");
    NoteText(LinkWay::Sent, "again");
    EXPECT_TRUE(shows(1, " again"));
    SwitchTranscript(false);
    ClearTranscript();
}

TEST_F(LinkDialogTest, TextsComeFromTheTableAndKeepTheSize) {
    std::map<QString, QSize> sizes;
    for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish) {
        const CommunicateSettingFrm setting;
        const InstrumentSelFrm selection;
        const LinkTranscriptFrm transcript;
        FindIn<QLabel>(selection, "lblMsgbox")->clear();  // tells of values
        for (const auto* dialog : std::vector<const QDialog*>{&setting, &selection, &transcript}) {
            ExpectTexts(*dialog);
            const QSize size = dialog->sizeHint();
            EXPECT_EQ(sizes.emplace(dialog->objectName(), size).first->second, size);
        }
    }
}

}  // namespace
