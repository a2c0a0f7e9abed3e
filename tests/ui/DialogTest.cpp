#include "analog/AnalogDocument.h"
#include "analog/DrawAnalogWave.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "ui/FlashFrm.h"
#include "ui/PropertyFrm.h"
#include "ui/StandardWaveFrm.h"
#include "ui/Theme.h"

#include <gtest/gtest.h>
#include <memory>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QPalette>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <set>
#include <stdexcept>

namespace {

// One open document of 4096 dots, 2 V, 10 us on a KT1100: 8..4096 dots, 4 mV..20 V, up to 5 MHz.
class DialogTest : public testing::Test {
protected:
    void SetUp() override {
        UseEnglish = 1;
        InstrumentModel = 0;
        InitialiseGlobals();
        ActiveAnalogIndex = 0;
        PropertyEditMode = true;
        AnalogWaveRecord& wave = ActiveAnalog();
        wave = AnalogWaveRecord{};
        ResetDocumentState(wave);
        AllocateDots(wave, 4096);
        wave.Vpp = 2.0;
        wave.Period = 1e-5;
        wave.Quantify = 12;
    }
    void TearDown() override {
        PropertyEditMode = false;
        UseEnglish = 1;
    }
    static void Show(QWidget& dialog) {
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }
};

template <typename Widget = NumberBox>
Widget* Find(const QWidget& dialog, const char* name) {
    auto* found = dialog.findChild<Widget*>(QLatin1String(name));
    if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return found;
}

void Type(NumberBox* box, const char* text) {
    box->setFocus();
    QTest::keyClicks(box, QLatin1String(text));
}

std::string TypeAndTab(NumberBox* box, const char* text) {
    Type(box, text);
    QTest::keyClick(box, Qt::Key_Tab);
    return box->text().toStdString();
}

struct TypedRow {
    const char* window;
    const char* box;
    const char* typed;
    const char* shown;
};

class TypedTest : public DialogTest, public testing::WithParamInterface<TypedRow> {};

TEST_P(TypedTest, IsHeldToItsBoundsOnLeaving) {
    const TypedRow& row = GetParam();
    std::unique_ptr<QDialog> dialog;
    if (std::string_view(row.window) == "PropertyFrm") {
        dialog = std::make_unique<PropertyFrm>();
    } else {
        dialog = std::make_unique<StandardWaveFrm>(nullptr, Square);
    }
    Show(*dialog);
    EXPECT_EQ(TypeAndTab(Find(*dialog, row.box), row.typed), row.shown);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, TypedTest,
    testing::Values(TypedRow{"PropertyFrm", "DotnumTxt", "7", "8"},
                    TypedRow{"PropertyFrm", "DotnumTxt", "4097", "4096"},
                    TypedRow{"PropertyFrm", "DotnumTxt", "1a.-2", "12"},  // keys dropped
                    TypedRow{"PropertyFrm", "ampltxt", "25", "20.0000"},
                    TypedRow{"PropertyFrm", "ampltxt", "1.5.5", "1.5500"},  // one point only
                    TypedRow{"PropertyFrm", "QuantTxt", "33", "32"},
                    TypedRow{"PropertyFrm", "Freqtxt", "6000", "5000.000000000"},  // KHz
                    TypedRow{"StandardWaveFrm", "DotnumTxt", "5000", "4096"},
                    TypedRow{"StandardWaveFrm", "phasetxt", "400", "359"},
                    TypedRow{"StandardWaveFrm", "ampltxt", "3", "2.0000"},
                    TypedRow{"StandardWaveFrm", "para1txt", "90", "80"}));

TEST_F(DialogTest, UnitListReadsTheNumberInTheNewUnit) {
    PropertyFrm dialog;
    Show(dialog);
    QTest::keyClick(Find<QComboBox>(dialog, "amplunitCmb"), Qt::Key_Down);
    EXPECT_EQ(Find(dialog, "ampltxt")->text(), "4.0");  // 2 mV lies below 4 mV
    QTest::keyClick(Find<QComboBox>(dialog, "FrequnitCmb"), Qt::Key_Up);
    EXPECT_EQ(Find(dialog, "Freqtxt")->text(), "5.000000000000");  // 100 MHz above 5 MHz
    const QSize size = dialog.size();
    Find<QAbstractButton>(dialog, "OptPer")->click();
    EXPECT_TRUE(Find(dialog, "Periodtxt")->isVisible());
    EXPECT_FALSE(Find(dialog, "Freqtxt")->isVisible());
    EXPECT_EQ(dialog.size(), size);
}

TEST_F(DialogTest, EnterGoesFromBoxToBoxAndThenConfirms) {
    PropertyFrm dialog;
    Show(dialog);
    Type(Find(dialog, "DotnumTxt"), "2000");
    for (const char* next : {"ampltxt", "Freqtxt", "QuantTxt", "OkAresBtn"}) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        EXPECT_EQ(dialog.focusWidget()->objectName(), next);
    }
    EXPECT_EQ(ActiveAnalog().MaxDots, 4096);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(ActiveAnalog().MaxDots, 2000);
    EXPECT_EQ(ActiveAnalog().Period, 1e-5);  // visited boxes lose no digit
    EXPECT_TRUE(PropertyConfirmed);
}

TEST_F(DialogTest, OkTakesTheBoxBeingTypedIn) {
    PropertyFrm dialog;
    Show(dialog);
    Type(Find(dialog, "QuantTxt"), "14");
    dialog.accept();
    EXPECT_EQ(ActiveAnalog().Quantify, 14);
}

TEST_F(DialogTest, EscapeLeavesTheDocument) {
    PropertyFrm property;
    Show(property);
    Type(Find(property, "DotnumTxt"), "100");
    QTest::keyClick(property.focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(property.isVisible());
    EXPECT_EQ(ActiveAnalog().MaxDots, 4096);
    EXPECT_FALSE(PropertyConfirmed);

    StandardWaveFrm wave(nullptr, Sine);
    Show(wave);
    Type(Find(wave, "DotnumTxt"), "100");
    Find<QAbstractButton>(wave, "CancelAresBtn")->click();
    EXPECT_EQ(wave.result(), QDialog::Rejected);
    EXPECT_EQ(ActiveAnalog().Dots, 0);
}

TEST_F(DialogTest, HeldSpinButtonRepeatsAndCounts) {
    InstrumentModel = 2;
    ActiveAnalog().MaxDots = 3000;
    PropertyFrm dialog;
    Show(dialog);
    auto* up = Find<SpinButton>(dialog, "DotNumUp");
    Type(Find(dialog, "DotnumTxt"), "5000");
    QSignalSpy ticks(up, &SpinButton::tick);
    QElapsedTimer held;
    held.start();
    QTest::mousePress(up, Qt::LeftButton);
    EXPECT_EQ(ticks.size(), 1);  // and the typed number was taken before
    EXPECT_EQ(Find(dialog, "DotnumTxt")->text(), "5100");
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks.size() >= 3; }, 3000));
    EXPECT_GE(held.elapsed(), SpinButton::FirstDelay + SpinButton::NextDelay - 20);
    QTest::mouseRelease(up, Qt::LeftButton);
    const qsizetype released = ticks.size();
    QTest::qWait(2 * SpinButton::NextDelay);
    EXPECT_EQ(ticks.size(), released);
    for (qsizetype i = 0; i < released; ++i) EXPECT_EQ(ticks[i][0].toInt(), i + 1);

    TypeAndTab(Find(dialog, "DotnumTxt"), "5000");
    emit up->tick(11);  // the second band
    EXPECT_EQ(Find(dialog, "DotnumTxt")->text(), "5500");
}

TEST_F(DialogTest, CyclesFollowTheDots) {
    StandardWaveFrm dialog(nullptr, Sine);
    Show(dialog);
    TypeAndTab(Find(dialog, "DotnumTxt"), "8");
    EXPECT_EQ(TypeAndTab(Find(dialog, "Cyclestxt"), "5"), "4");
    TypeAndTab(Find(dialog, "DotnumTxt"), "7");
    EXPECT_EQ(Find(dialog, "Cyclestxt")->text(), "3");
}

// The row of the preview in which the curve crosses its middle column.
int CurveRow(const StandardWaveFrm& dialog) {
    const QImage image = Find<QWidget>(dialog, "PicPreview")->grab().toImage();
    for (int y = 1; y < image.height() - 1; ++y) {
        const QColor pixel = image.pixelColor(image.width() / 2, y);
        if (pixel.red() > 110 && pixel.blue() < 110) return y;
    }
    return -1;
}

TEST_F(DialogTest, PreviewFollowsTheKeysAndOkInserts) {
    StandardWaveFrm dialog(nullptr, Dc);
    Show(dialog);
    TypeAndTab(Find(dialog, "DotnumTxt"), "100");
    const int height = Find<QWidget>(dialog, "PicPreview")->height();
    TypeAndTab(Find(dialog, "offsettxt"), "0");
    EXPECT_NEAR(CurveRow(dialog), height / 2, 2);
    Type(Find(dialog, "offsettxt"), "-0.5");
    EXPECT_EQ(Find(dialog, "offsettxt")->text(), "-0.5");
    EXPECT_NEAR(CurveRow(dialog), 8 + (height - 16) * 3 / 4, 2);
    Find<QAbstractButton>(dialog, "OkAresBtn")->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    ASSERT_EQ(ActiveAnalog().Dots, 100);
    EXPECT_DOUBLE_EQ(ActiveAnalog().DotArray[99].Y, -0.5);  // of 1 V, half of 2 V

    StandardWaveFrm none(nullptr, None);
    none.accept();
    EXPECT_EQ(none.result(), QDialog::Rejected);
    EXPECT_EQ(ActiveAnalog().Dots, 100);
}

TEST_F(DialogTest, NothingMovesWhenTheTypeChanges) {
    StandardWaveFrm dialog(nullptr, Sine);
    Show(dialog);
    const QSize size = dialog.size();
    const QPoint place = Find<QWidget>(dialog, "PicPreview")->pos();
    const QPoint box = Find(dialog, "offsettxt")->pos();
    for (std::int16_t kind = 0; kind < WaveKindCount; ++kind) {
        auto* kinds = Find<QComboBox>(dialog, "WaveTypeCmb");
        kinds->setFocus();
        QTest::keyClick(kinds, Qt::Key_Home);
        for (int i = 0; i < kind; ++i) QTest::keyClick(kinds, Qt::Key_Down);
        QTest::qWait(1);
        EXPECT_EQ(dialog.size(), size) << kind;
        EXPECT_EQ(Find<QWidget>(dialog, "PicPreview")->pos(), place) << kind;
        EXPECT_EQ(Find(dialog, "offsettxt")->pos(), box) << kind;
        EXPECT_EQ(Find(dialog, "ampltxt")->isEnabled(), kind != Dc && kind != None) << kind;
        EXPECT_EQ(Find(dialog, "Cyclestxt")->isEnabled(), kind < Noise || kind == Sinc) << kind;
        EXPECT_EQ(Find(dialog, "para2txt")->isVisible(), kind == Pulse) << kind;
    }
}

// Every text stands in the table, in the language in use, and no two mnemonics meet.
void ExpectTexts(const QDialog& dialog) {
    const std::string window = dialog.objectName().toStdString();
    EXPECT_EQ(dialog.windowTitle().toStdString(), TextOf(window, ""));
    std::set<QChar> mnemonics;
    for (const QWidget* control : dialog.findChildren<QWidget*>()) {
        QString text = control->accessibleName();
        if (const auto* label = qobject_cast<const QLabel*>(control)) text = label->text();
        if (const auto* button = qobject_cast<const QAbstractButton*>(control))
            if (!qobject_cast<const SpinButton*>(control)) text = button->text();
        const std::string name = control->objectName().toStdString();
        const bool needsText = qobject_cast<const QAbstractButton*>(control) != nullptr ||
                               control->objectName().endsWith(QLatin1String("unitCmb"));
        EXPECT_TRUE(!needsText || !text.isEmpty()) << window << ' ' << name;
        if (text.isEmpty() || name.empty() || name.starts_with("para")) continue;
        EXPECT_EQ(text.toStdString(), TextOf(window, name)) << window << ' ' << name;
        const qsizetype mark = text.indexOf(QLatin1Char('&'));
        if (mark < 0) continue;
        EXPECT_TRUE(mnemonics.insert(text[mark + 1].toUpper()).second) << window << ' ' << name;
    }
}

TEST_F(DialogTest, TextsComeFromTheTableInBothLanguages) {
    for (const std::int32_t english : {1, 0}) {
        UseEnglish = english;
        ExpectTexts(PropertyFrm());
        for (std::int16_t kind = 0; kind < WaveKindCount; ++kind) {
            const StandardWaveFrm dialog(nullptr, kind);
            ExpectTexts(dialog);
            EXPECT_EQ(Find<QLabel>(dialog, "para1Lab")->text().isEmpty(), !FieldsOf(kind).Para1);
            EXPECT_FALSE(Find<QComboBox>(dialog, "WaveTypeCmb")->currentText().isEmpty());
        }
    }
    for (const WindowText& row : WindowTexts())
        EXPECT_EQ(row.English.find('&') == row.English.npos,
                  row.Chinese.find('&') == row.Chinese.npos)
            << row.Window << ' ' << row.Control;
}

TEST_F(DialogTest, TabReachesEveryEnabledControl) {
    StandardWaveFrm wave(nullptr, Pulse);
    PropertyFrm property;
    for (QDialog* dialog : {static_cast<QDialog*>(&wave), static_cast<QDialog*>(&property)}) {
        Show(*dialog);
        std::set<QWidget*> reached;
        for (int i = 0; i < 40; ++i) {
            reached.insert(dialog->focusWidget());
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
        }
        for (QWidget* control : dialog->findChildren<QWidget*>()) {
            // Options share one stop and are changed with the arrow keys.
            const bool isStop = control->isVisible() && control->isEnabled() &&
                                (control->focusPolicy() & Qt::TabFocus) != 0 &&
                                !control->inherits("QRadioButton");
            EXPECT_TRUE(!isStop || reached.contains(control))
                << control->objectName().toStdString();
        }
        dialog->hide();
    }
}

TEST(ThemeTest, ChromeFollowsTheDesktop) {
    QPalette night, day;
    night.setColor(QPalette::Window, Qt::black);
    night.setColor(QPalette::WindowText, Qt::white);
    day.setColor(QPalette::Window, Qt::white);
    day.setColor(QPalette::WindowText, Qt::black);
    EXPECT_EQ(ChooseChrome(night, true, ""), Chrome::Dark);
    EXPECT_EQ(ChooseChrome(day, true, ""), Chrome::Light);
    EXPECT_EQ(ChooseChrome(day, false, ""), Chrome::Dark);
    EXPECT_EQ(ChooseChrome(day, true, "dark"), Chrome::Dark);
    EXPECT_EQ(ChooseChrome(night, true, "light"), Chrome::Light);
}

// The colour of the most opaque pixel.
QColor InkOf(const QImage& image) {
    QColor ink(0, 0, 0, 0);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > ink.alpha()) ink = image.pixelColor(x, y);
    return ink;
}

TEST(ThemeTest, IconsAreTintedAndSharp) {
    const QIcon icon = ThemedIcon(QStringLiteral("Grid"));
    const QSize size(24, 24);
    const auto ink = [&](QIcon::Mode mode, QIcon::State state) {
        return InkOf(icon.pixmap(size, 2.0, mode, state).toImage());
    };
    EXPECT_EQ(icon.pixmap(size, 2.0).size(), QSize(48, 48));
    EXPECT_EQ(ink(QIcon::Normal, QIcon::Off).rgb(), CurrentChrome().text.rgb());
    EXPECT_EQ(ink(QIcon::Normal, QIcon::On).rgb(), CurrentChrome().accent.rgb());
    EXPECT_NEAR(ink(QIcon::Disabled, QIcon::Off).alphaF(), 0.45, 0.01);
    EXPECT_TRUE(ThemedIcon(QStringLiteral("NoSuchDrawing")).isNull());
}

TEST(FlashTest, StandsInTheMiddleAndIgnoresThePress) {
    FlashFrm flash;
    flash.show();
    const QSize screen = QGuiApplication::primaryScreen()->size();
    EXPECT_EQ(flash.pos(),
              QPoint((screen.width() - flash.width()) / 2, (screen.height() - flash.height()) / 2));
    EXPECT_FALSE(flash.isModal());
    QTest::mouseClick(&flash, Qt::LeftButton);
    EXPECT_TRUE(flash.isVisible());
}

}  // namespace
