#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"
#include "platform/VisaApi.h"
#include "ui/DownLoadWaveFrm.h"
#include "ui/LinkWait.h"
#include "ui/MainWindowFixture.h"
#include "ui/SendWaveFrm.h"

#include <map>

namespace {

constexpr int Ever = 60000;  // milliseconds, far more than a test lasts

// The main window and an instrument on USB that answers by a table. Pauses of the link are cut to a
// millisecond unless a test says otherwise.
class LinkWindowTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        Link = LinkState();
        VisaApi& visa = TheVisa();
        visa.viOpenDefaultRM = [](auto...) { return VisaSuccess; };
        visa.viOpen = [](auto...) { return VisaSuccess; };
        visa.viSetAttribute = [](auto...) { return VisaSuccess; };
        visa.viClose = [](auto) { return VisaSuccess; };
        visa.viWrite = [this](auto, const std::uint8_t* bytes, std::uint32_t count, auto*) {
            if (count > 0) sent.emplace_back(bytes, bytes + count);
            return VisaSuccess;
        };
        visa.viRead = [this](auto, std::uint8_t* bytes, auto, auto* read) {
            const std::string& reply = replies[sent.back()];
            std::ranges::copy(reply, bytes);
            *read = static_cast<std::uint32_t>(reply.size());
            return VisaSuccess;
        };
        TheHost().Wait = [this](std::int32_t milliseconds) {
            if (onWait) onWait();
            WaitFor(std::min(milliseconds, 1));
        };
    }
    void TearDown() override {
        EXPECT_TRUE(!InputHeld() && QApplication::overrideCursor() == nullptr);
        TheVisa() = silentVisa;
        Link = LinkState();
        MainWindowTest::TearDown();
    }
    /// A document, and a connected KT1100 with two of four locations in use.
    void Connect() {
        replies["DATA:Catalog?"] = "\"SINC\",\"CARDIAC\",\"ALPHA\",\"BETA\"\n";
        replies["DATA:Nvolatile:FREE?"] = "2\n";
        Link.IsConnected = true;
        NewSine();
    }
    static void Open(QDialog& dialog) {
        Show(dialog);
        const auto* names = FindIn<QComboBox>(dialog, "cmbAllWave");
        ASSERT_TRUE(QTest::qWaitFor([&] { return names->count() > 0 && Link.WorkDepth == 0; }));
        QTest::qWait(1);
    }

    std::vector<std::string> sent;
    std::map<std::string, std::string> replies;
    std::function<void()> onWait;
    const VisaApi silentVisa = TheVisa();
};

// --- waits --------------------------------------------------------------------------------------

TEST_F(LinkWindowTest, WaitRepaintsAndTakesNoInputButTheCancel) {
    NewSine();
    Activate();
    Find("EditPointAresBtn")->click();
    const AnalogWaveRecord& wave = AnalogDocs[0];
    const QWidget* focus = window_->focusWidget();
    const auto* cancel = Find<QPushButton>("CancelWaitBtn");
    PaintCounter counter;
    Find("GridAresBtn")->installEventFilter(&counter);
    const auto press = [&] {
        ClickOn(Find("GridAresBtn"));
        ClickOn(Find<NumberBox>("txtValueX"));
        QTest::mouseClick(Find("HandDrawAresBtn"), Qt::LeftButton);
        QTest::keyClick(window_.get(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(window_.get(), Qt::Key_F, Qt::AltModifier);
    };
    for (const bool byKey : {false, true}) {
        const LinkWork work("Connecting...");
        EXPECT_TRUE(cancel->isVisible());
        QTimer::singleShot(50, window_.get(), [&] {
            counter.Paints = 0;
            Find("GridAresBtn")->update();
        });
        QTimer::singleShot(100, window_.get(), [&] {
            EXPECT_EQ(counter.Paints, 1);
            press();
            EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
            EXPECT_TRUE(wave.GridOn && !Link.Cancelled);
            if (byKey)
                QTest::keyClick(window_.get(), Qt::Key_Escape);
            else
                ClickOn(cancel);
        });
        QElapsedTimer since;
        since.start();
        WaitFor(Ever);
        EXPECT_TRUE(Link.Cancelled && Link.CommError);
        WaitFor(Ever);  // what follows a cancel does not wait
        EXPECT_LT(since.elapsed(), Ever / 4);
        QTimer::singleShot(0, window_.get(), press);  // comes when the work has been done
    }
    QTest::qWait(1);
    EXPECT_TRUE(!wave.HandDrawOn && !wave.HasSelection && window_->focusWidget() == focus);
    EXPECT_FALSE(cancel->isVisible());
    Key(Qt::Key_A);
    EXPECT_TRUE(wave.HasSelection);
}

TEST_F(LinkWindowTest, AwaitedEventsComeTenTimesASecond) {
    const LinkWork work("Waiting...");
    const std::int16_t ticks = Link.ReadTicks;
    QElapsedTimer since;
    since.start();
    while (Link.ReadTicks < ticks + 5 && since.elapsed() < Ever) AwaitEvent();
    EXPECT_TRUE(400 <= since.elapsed() && since.elapsed() < 5000) << since.elapsed();
}

TEST_F(LinkWindowTest, MessageBoxInsideWorkIsAnsweredAndTheHoldGoesOn) {
    WithDialog(ConnectInstrument, [](QWidget* box) {
        EXPECT_EQ(static_cast<QMessageBox*>(box)->text(), "Device not found");
        QTest::keyClick(box, Qt::Key_Return);
        EXPECT_TRUE(!box->isVisible() && InputHeld());
    });
    EXPECT_FALSE(Link.IsConnected);
}

// --- closing ------------------------------------------------------------------------------------

TEST_F(LinkWindowTest, ClosingTheWindowEndsTheWorkAndThenAsks) {
    NewSine();
    Script({Answer::Cancel});
    {
        const LinkWork work("Connecting...");
        QTimer::singleShot(20, window_.get(),
                           [&] { QTest::mouseClick(Find("ExitAbtn"), Qt::LeftButton); });
        WaitFor(Ever);
        EXPECT_TRUE(Link.Cancelled && window_->isVisible() && asked.empty());
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !asked.empty(); }));
    EXPECT_TRUE(window_->isVisible());
}

TEST_F(LinkWindowTest, ClosingTheWindowRejectsTheDialogThatWorks) {
    Connect();
    Script({Answer::No});
    SendWaveFrm dialog(SendAnalogKind, window_.get());
    dialog.setModal(true);
    Open(dialog);
    onWait = [&] {
        if (!Link.SendBusy) return;
        window_->close();
        EXPECT_TRUE(dialog.isVisible() && window_->isVisible());
    };
    Click(dialog, "OptionSave1");
    Click(dialog, "SaveAresBtn");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !window_->isVisible(); }));
    EXPECT_TRUE(!dialog.isVisible() && asked.size() == 1);
}

// --- the connection -----------------------------------------------------------------------------

TEST_F(LinkWindowTest, ConnectionIsShown) {
    replies["*IDN?"] = "NORVIK TECHNOLOGIES,KT3300,1,09.00.000\n";
    const QSize strip = Find<QWidget>("StatusStrip")->size();
    const auto* image = Find<QLabel>("ConnectImg");
    const auto* timer = Find<QTimer>("TimerConnect");
    for (const bool connected : {true, false}) {
        connected ? ConnectInstrument() : DisconnectInstrument();
        EXPECT_EQ(Find<QLabel>("lblLink")->text(),
                  connected ? "KT3300 connected" : "Not connected");
        EXPECT_EQ(Find("ConnectAresBtn")->toolTip().section(" (", 0, 0),
                  connected ? "Disconnect" : "Connect to instrument");
        EXPECT_TRUE(image->isVisible() == connected && timer->isActive() == connected);
        EXPECT_EQ(Find<QWidget>("StatusStrip")->size(), strip);
    }
}

// --- dialogs ------------------------------------------------------------------------------------

TEST_F(LinkWindowTest, SendDialogShowsTheInstrumentAndSendsOnce) {
    Connect();
    SendWaveFrm dialog(SendAnalogKind, window_.get());
    Open(dialog);
    EXPECT_EQ(FindIn<QComboBox>(dialog, "cmbUserWave")->currentText(), "3");  // the free one
    EXPECT_EQ(FindIn<QLabel>(dialog, "UsedTxt")->text(), "2 of 4");
    auto* name = FindIn(dialog, "txtUserWaveName");
    EXPECT_TRUE(name->hasFocus());
    QTest::keyClicks(name, "my-wve");  // "-" is no character of a name
    name->setCursorPosition(3);
    QTest::keyClicks(name, "a");
    EXPECT_TRUE(name->text() == "MYWAVE" && name->cursorPosition() == 4);
    const auto* cancel = FindIn<QPushButton>(dialog, "CancelWaitBtn");
    const QSize size = dialog.size();
    int presses = 0;
    onWait = [&] {
        if (!Link.SendBusy) return;
        ++presses;
        Click(dialog, "SaveAresBtn");
        dialog.close();
        EXPECT_TRUE(dialog.isVisible() && cancel->isVisible() && dialog.size() == size);
    };
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_TRUE(presses > 5 && std::ranges::count(sent, "DATA:COPY MYWAVE") == 1);
    EXPECT_FALSE(cancel->isVisible());
    FindIn<QRadioButton>(dialog, "OptionSave1")->click();
    EXPECT_TRUE(!name->isEnabled() && dialog.close());
}

TEST_F(LinkWindowTest, RenamingTakesANameOnly) {
    Connect();
    SendWaveFrm dialog(SendAnalogKind, window_.get());
    Open(dialog);
    auto* name = FindIn(dialog, "txtAllWaveName");
    const auto open = [&](const char* control) {
        return FindIn<QWidget>(dialog, control)->isEnabled();
    };
    EXPECT_TRUE(open("ButActivate") && !open("ButDel") && !open("ButRename"));  // SINC
    Pick(dialog, "cmbAllWave", Qt::Key_End);
    EXPECT_TRUE(open("ButDel") && open("ButRename") && !open("OkAresBtn"));
    sent.clear();
    for (const auto& [key, text] : {std::pair(Qt::Key_Escape, "BETA"), {Qt::Key_Return, "GAMMA"}}) {
        Click(dialog, "ButRename");
        EXPECT_TRUE(name->hasFocus() && open("OkAresBtn") && open("CancelAresBtn"));
        EXPECT_TRUE(!open("cmbAllWave") && !open("ButDel") && !open("ButActivate"));
        QTest::keyClicks(name, "gamma");
        replies["DATA:Catalog?"] = "\"SINC\",\"CARDIAC\",\"ALPHA\",\"GAMMA\"\n";
        QTest::keyClick(name, key);
        EXPECT_EQ(name->text(), text);
        EXPECT_TRUE(dialog.isVisible() && !name->isEnabled() && open("cmbAllWave"));
    }
    EXPECT_EQ(sent.at(0), "DATA:REName BETA GAMMA");
}

TEST_F(LinkWindowTest, SilentInstrumentClosesTheDialogs) {
    Connect();
    replies.clear();
    for (const char* name :
         {"SendAnalogWaveFrm", "SendDigitWaveFrm", "DownLoadWaveFrm", "DownLoadDigitWaveFrm"}) {
        Script({Answer::Ok});
        EXPECT_FALSE(TheHost().RunDialog(name, 0));
        EXPECT_EQ(asked.size(), 1U) << name;
    }
}

TEST_F(LinkWindowTest, BuiltInWaveformsCannotBeUploaded) {
    Connect();
    DownLoadWaveFrm dialog(UploadAnalogKind, window_.get());
    Open(dialog);
    const auto* note = FindIn<QLabel>(dialog, "NoteTxt");
    const auto* load = FindIn<QPushButton>(dialog, "LoadAresBtn");
    Pick(dialog, "cmbAllWave", Qt::Key_Home);
    EXPECT_TRUE(!load->isEnabled() && note->text() == "Built-in waveforms cannot be uploaded.");
    Pick(dialog, "cmbAllWave", Qt::Key_End);
    EXPECT_TRUE(load->isEnabled() && note->text().isEmpty());
    QTest::keyClick(&dialog, Qt::Key_Return);  // the default button
    EXPECT_EQ(sent.back(), "DATA:LOAD BETA");
    EXPECT_EQ(note->text(), "The instrument has not sent the waveform.");
}

}  // namespace
