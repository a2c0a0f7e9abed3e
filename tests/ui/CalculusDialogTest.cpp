#include "analog/DrawAnalogWave.h"
#include "analog/ScreenColours.h"
#include "ui/LowPassSetFrm.h"
#include "ui/MainWindowFixture.h"
#include "ui/PlotPreview.h"
#include "ui/ResizeWaveFrm.h"
#include "ui/WaveMathFrm.h"

namespace {

// Two documents of 2 Vpp: 200 dots at 0.5, of which 50..149 are selected, and 100 dots at 0.75.
class CalculusDialogTest : public RecordsTest {
protected:
    void SetUp() override {
        RecordsTest::SetUp();
        Make(1, 100, 0.75, std::string(90, 'x'));
        Make(0, 200, 0.5, "First");
        SelectDots(wave_, 50, 149);
    }
    static void Make(std::int16_t slot, std::int32_t dots, double value, const std::string& name) {
        AnalogWaveRecord& wave = MakeDocument("c", dots, slot);
        wave.Name = name;
        for (std::int32_t i = 0; i < dots; ++i) wave.DotArray[i].Y = value;
    }
    double Y(int dot) const { return wave_.DotArray[dot].Y; }

    AnalogWaveRecord& wave_ = AnalogDocs[0];
};

QImage Picture(const QWidget& dialog, const char* name = "PicPreview") {
    return FindIn<QWidget>(dialog, name)->grab().toImage();
}

TEST_F(CalculusDialogTest, PreviewDrawsBothRunsOnOneScaleFromTheLeft) {
    PlotPreview preview(nullptr, "PicPreview", {416, 217});  // a plot of 400 by 201
    preview.resize(416, 217);
    std::vector<WaveDot> under(20, {0.0, -0.5});
    for (std::size_t i = 0; i < under.size(); ++i) under[i].X = 500.0 + static_cast<double>(i);
    preview.ShowDots(std::vector<WaveDot>(10, {0.0, 0.5}));
    preview.ShowUnder(under);
    const QImage picture = preview.grab().toImage();
    const auto contrast = [&](int x, int y) {
        return ContrastOf(picture.pixel(x + 8, y + 8) & 0xFFFFFFU, ScreenColours.Back);
    };
    // Dot 9 of 0..19 stands at 189 of 400.
    EXPECT_GT(contrast(170, 50), 10.0);
    EXPECT_LT(contrast(230, 50), 2.5);  // the grid at most
    for (const int x : {6, 394}) {
        EXPECT_GT(contrast(x, 150), 3.0) << x;
        EXPECT_LT(contrast(x, 150), contrast(170, 50) / 2.0) << x;
    }
}

TEST_F(CalculusDialogTest, ResizeByKeyboard) {
    ResizeWaveFrm dialog;
    Show(dialog);
    EXPECT_EQ(dialog.focusWidget()->objectName(), "dottxt");
    const QImage before = Picture(dialog);
    QTest::keyClicks(dialog.focusWidget(), "51");
    EXPECT_NE(Picture(dialog), before);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QTest::keyClicks(dialog.focusWidget(), "40");
    for (int i = 0; i < 2; ++i) QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(dialog.result() == QDialog::Accepted && wave_.Dots == 151);
    for (const int dot : {50, 100}) EXPECT_NEAR(Y(dot), 0.2, 1e-9) << dot;
}

TEST_F(CalculusDialogTest, StandardWaveBecomesTheOperandUnlessCancelled) {
    WaveMathFrm dialog;
    Show(dialog);
    const auto* source = FindIn<QComboBox>(dialog, "SourceCmb");
    const QSize size = dialog.size();
    const QImage before = Picture(dialog, "PicSource");
    const auto choose = [&](bool confirm) {
        WithDialog([&] { Pick(dialog, "SourceCmb", Qt::Key_Down); },
                   [&](QWidget* wave) {
                       EXPECT_FALSE(FindIn(*wave, "DotnumTxt")->isEnabled());
                       Pick(*wave, "WaveTypeCmb", Qt::Key_End);
                       Pick(*wave, "WaveTypeCmb", Qt::Key_Up);  // DC
                       Type(*wave, "offsettxt", "-0.75");
                       Click(*wave, confirm ? "OkAresBtn" : "CancelAresBtn");
                   });
    };
    choose(false);
    EXPECT_TRUE(source->currentIndex() == 0 && Picture(dialog, "PicSource") == before);
    choose(true);
    EXPECT_TRUE(source->currentIndex() == 1 && Picture(dialog, "PicSource") != before);
    const QImage alone = Picture(dialog, "PicResult");
    Pick(dialog, "MathCmb", Qt::Key_Down);
    EXPECT_NE(Picture(dialog, "PicResult"), alone);
    Click(dialog, "ResumeAresBtn");
    EXPECT_EQ(Picture(dialog, "PicResult"), alone);
    Pick(dialog, "MathCmb", Qt::Key_Down);
    EXPECT_TRUE(dialog.size() == size && Y(50) == 0.5);
    dialog.accept();
    for (const int dot : {50, 149}) EXPECT_NEAR(Y(dot), -0.25, 1e-6) << dot;
}

TEST_F(CalculusDialogTest, LowPassSaysSoBeforeTheWork) {
    for (int dot = 1; dot < 200; dot += 2) wave_.DotArray[dot].Y = -0.5;
    LowPassSetFrm dialog;
    Show(dialog);
    const QSize size = dialog.size();
    auto* message = FindIn<QLabel>(dialog, "MessageLab");
    PaintCounter counter;
    message->installEventFilter(&counter);
    const QImage before = Picture(dialog);
    for (int dot = 0; dot < 50; ++dot) wave_.DotArray[dot].Y = 0.9;  // seen when it filters anew
    QTest::keyClicks(Type(dialog, "CutOffTxt", "9"), "0");
    EXPECT_EQ(Picture(dialog), before);  // until the keys pause
    EXPECT_TRUE(QTest::qWaitFor([&] { return Picture(dialog) != before; }, 2000));
    dialog.accept();
    EXPECT_TRUE(counter.Paints == 1 && message->isVisible() && dialog.size() == size);
    EXPECT_FALSE(FindIn<QPushButton>(dialog, "OkAresBtn")->isVisible());
    QTest::keyClick(&dialog, Qt::Key_Escape);
    dialog.close();
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible() && Y(100) == 0.5);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, 2000));
    EXPECT_TRUE(dialog.result() == QDialog::Accepted && Y(100) != 0.5);
}

}  // namespace
