#include "platform/Settings.h"
#include "ui/ControlWalk.h"
#include "ui/DownLoadWaveFrm.h"
#include "ui/EquationFrm.h"
#include "ui/LinkTranscriptFrm.h"
#include "ui/MainWindowFixture.h"
#include "ui/PropertyFrm.h"
#include "ui/SendWaveFrm.h"
#include "ui/StandardWaveFrm.h"

namespace {

// One open document of 4096 dots, 2 V, 10 us on a KT1100: 8..4096 dots, 4 mV..20 V, up to 5 MHz.
class DialogTest : public RecordsTest {
protected:
    void SetUp() override {
        RecordsTest::SetUp();
        PropertyEditMode = true;
        SaveSetting(ApplicationTitle, "Tidemark_Equation", "Count", "0");
        MakeDocument("").Quantify = 12;
    }
};

TEST_F(DialogTest, UnitListReadsTheNumberInTheNewUnitAndCancelLeavesTheDocument) {
    PropertyFrm dialog;
    Show(dialog);
    QTest::keyClick(FindIn<QComboBox>(dialog, "amplunitCmb"), Qt::Key_Down);
    EXPECT_EQ(FindIn(dialog, "ampltxt")->text(), "4.0");  // 2 mV lies below 4 mV
    QTest::keyClick(FindIn<QComboBox>(dialog, "FrequnitCmb"), Qt::Key_Up);
    EXPECT_EQ(FindIn(dialog, "Freqtxt")->text(), "5.000000000000");  // 100 MHz above 5 MHz
    FindIn<QAbstractButton>(dialog, "OptPer")->click();
    EXPECT_TRUE(FindIn(dialog, "Periodtxt")->isVisible() &&
                !FindIn(dialog, "Freqtxt")->isVisible());
    QTest::keyClick(Type(dialog, "DotnumTxt", "100"), Qt::Key_Escape);
    EXPECT_TRUE(!dialog.isVisible() && ActiveAnalog().MaxDots == 4096);
}

TEST_F(DialogTest, EnterGoesFromBoxToBoxAndThenConfirms) {
    PropertyFrm dialog;
    Show(dialog);
    Type(dialog, "DotnumTxt", "2000");
    for (const char* next : {"ampltxt", "Freqtxt", "QuantTxt", "OkAresBtn"}) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(dialog.focusWidget()->objectName(), next);
    }
    EXPECT_EQ(ActiveAnalog().MaxDots, 4096);
    Type(dialog, "QuantTxt", "14");
    dialog.accept();  // takes the box being typed in
    EXPECT_TRUE(ActiveAnalog().MaxDots == 2000 && ActiveAnalog().Quantify == 14);
    EXPECT_EQ(ActiveAnalog().Period, 1e-5);  // visited boxes lose no digit
}

TEST_F(DialogTest, HeldSpinButtonRepeatsAndCounts) {
    InstrumentModel = 2;
    ActiveAnalog().MaxDots = 3000;
    PropertyFrm dialog;
    Show(dialog);
    auto* up = FindIn<SpinButton>(dialog, "DotNumUp");
    Type(dialog, "DotnumTxt", "5000");
    QSignalSpy ticks(up, &SpinButton::tick);
    QTest::mousePress(up, Qt::LeftButton);
    EXPECT_EQ(FindIn(dialog, "DotnumTxt")->text(), "5100");  // the typed number was taken before
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.size() >= 3; }, 3000));
    QTest::mouseRelease(up, Qt::LeftButton);
    const qsizetype released = ticks.size();
    QTest::qWait(2 * SpinButton::NextDelay);
    EXPECT_EQ(ticks.size(), released);
    for (qsizetype i = 0; i < released; ++i) EXPECT_EQ(ticks[i][0].toInt(), i + 1);
}

TEST_F(DialogTest, RowsFollowTheTypeAndPreviewTheKeys) {
    StandardWaveFrm dialog(nullptr, Sine);
    Show(dialog);
    const QSize size = dialog.size();
    const QPoint place = FindIn(dialog, "offsettxt")->pos();
    const auto preview = [&] { return FindIn<QWidget>(dialog, "PicPreview")->grab().toImage(); };
    const QImage before = preview();
    Type(dialog, "ampltxt", "1");
    EXPECT_NE(preview(), before);  // while typing
    auto* kinds = FindIn<QComboBox>(dialog, "WaveTypeCmb");
    QTest::keyClick(kinds, Qt::Key_Home);
    for (std::int16_t kind = 0; kind < WaveKindCount; ++kind) {
        QTest::qWait(1);
        EXPECT_TRUE(dialog.size() == size && FindIn(dialog, "offsettxt")->pos() == place) << kind;
        EXPECT_EQ(FindIn(dialog, "ampltxt")->isEnabled(), kind != Dc && kind != None) << kind;
        EXPECT_EQ(FindIn(dialog, "Cyclestxt")->isEnabled(), kind < Noise || kind == Sinc) << kind;
        EXPECT_EQ(FindIn<QLabel>(dialog, "para1Lab")->text().isEmpty(), !FieldsOf(kind).Para1);
        EXPECT_EQ(FindIn(dialog, "para2txt")->isVisible(), kind == Pulse) << kind;
        QTest::keyClick(kinds, Qt::Key_Down);
    }
}

TEST_F(DialogTest, EquationAtFaultIsShownAndHolds) {
    EquationFrm dialog;
    Show(dialog);
    auto* text = FindIn<QLineEdit>(dialog, "ExpressionTxt");
    const auto* ok = FindIn<QPushButton>(dialog, "OkAresBtn");
    const auto* note = FindIn<QLabel>(dialog, "NoteTxt");
    const QSize size = dialog.size();
    QTest::keyClicks(text, QString::fromUtf8("3\u00B5+foo*x"));  // over the first one
    EXPECT_TRUE(!ok->isEnabled() && note->text() == "Column 4: \"foo\" is unknown");
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible() && text->selectedText() == "foo");
    QTest::keyClicks(text, "9");
    EXPECT_TRUE(ok->isEnabled());
    EXPECT_EQ(note->text(), "3641 of 4096 values lie beyond the rails and are clipped.");
    EXPECT_EQ(dialog.size(), size);  // above: 9 * n / 4095 + 0.000003 > 1 from n = 455 on
    Type(dialog, "DotnumTxt", "100");
    text->setFocus();
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(ActiveAnalog().Dots, 100);
}

// Every text stands in the table, in the language in use, and no two mnemonics meet.
void ExpectTexts(const QWidget& dialog) {
    const std::string window = dialog.objectName().toStdString();
    EXPECT_EQ(dialog.windowTitle().toStdString(), TextOf(window, ""));
    QStringList texts;
    for (const QWidget* control : dialog.findChildren<QWidget*>()) {
        QString text = control->accessibleName();
        const auto* button = qobject_cast<const QAbstractButton*>(control);
        if (const auto* label = qobject_cast<const QLabel*>(control)) text = label->text();
        if (button && !qobject_cast<const SpinButton*>(control)) text = button->text();
        const std::string name = control->objectName().toStdString();
        const bool list = name.ends_with("Cmb") && name != "WaveTypeCmb";  // has its label
        const bool speaks = button || list || name.starts_with("Pic");
        EXPECT_TRUE(!text.isEmpty() || !speaks) << name;
        if (text.isEmpty() || name.empty() || name.starts_with("para")) continue;
        if (qobject_cast<const QLabel*>(control) && name.ends_with("Txt")) continue;  // of values
        EXPECT_EQ(text.toStdString(), TextOf(window, name)) << window << ' ' << name;
        texts << text;
    }
    ExpectUniqueMnemonics(dialog.objectName(), texts);
    ExpectNames(dialog);
    ExpectTabOrder(const_cast<QWidget&>(dialog));
}

TEST_F(MainWindowTest, EveryDialogSpeaksTheLanguageInUseAndKeepsItsSize) {
    for (int i = 0; i < 2; ++i) NewSine();
    SelectDots(ActiveAnalog(), 10, 49);
    NewDigit();
    std::map<QString, QSize> sizes;
    const auto expect = [&](const QWidget& dialog) {
        ExpectTexts(dialog);
        EXPECT_EQ(sizes.emplace(dialog.objectName(), dialog.sizeHint()).first->second,
                  dialog.sizeHint());
    };
    for (UseEnglish = 0; UseEnglish <= 1; ++UseEnglish) {
        for (const char* name :
             {"ResizeWaveFrm", "WaveMathFrm", "WindowMathFrm", "LowPassSetFrm", "SmoothSetFrm",
              "CommunicateSettingFrm", "InstrumentSelFrm", "PropertyFrm", "ArbitraryValueFrm",
              "CountFrm", "InsertNodeFrm", "DigitPropertyFrm", "EvaluateFrm"})
            WithDialog([&] { TheHost().RunDialog(name, 0); },
                       [&](QWidget* dialog) {
                           EXPECT_EQ(dialog->objectName(), name);
                           for (auto* values : dialog->findChildren<QLabel*>("lblMsgbox"))
                               values->clear();
                           for (auto* mode : dialog->findChildren<QPushButton*>("ValueAresBtn"))
                               mode->setObjectName("ValueAresBtn0");
                           expect(*dialog);
                       });
        ExpectTexts(EquationFrm());
        expect(LinkTranscriptFrm());
        for (const SendKind* kind : {&SendAnalogKind, &SendDigitKind}) expect(SendWaveFrm(*kind));
        for (const UploadKind* kind : {&UploadAnalogKind, &UploadDigitKind})
            expect(DownLoadWaveFrm(*kind));
        for (std::int16_t kind = 0; kind < WaveKindCount; ++kind)
            ExpectTexts(StandardWaveFrm(nullptr, kind));
    }
}

}  // namespace
