#include "app/TourHands.h"
#include "app/TourSteps.h"

#include "frame/GlobalDefineCode.h"

#include <cmath>
#include <QComboBox>

// The chapter on computing: a sine with noise is made by wave math and cleaned again by the
// filters, which the roughness of the wave shows; then it is resized, turned about and combined.

namespace {

const AnalogWaveRecord& Wave() {
    return ActiveAnalog();
}

double ValueAt(std::int32_t dot) {
    return Wave().DotArray[static_cast<std::size_t>(dot)].Y;
}

// Mean step from dot to dot.
double Roughness() {
    double sum = 0.0;
    for (std::int32_t dot = 1; dot < Wave().Dots; ++dot)
        sum += std::fabs(ValueAt(dot) - ValueAt(dot - 1));
    return sum / (Wave().Dots - 1);
}

void PickNext(QWidget* list, int times) {
    for (int i = 0; i < times; ++i) PressKey(list, Qt::Key_Down);
}

// Takes the picture once a preview that waits for the last key is there.
void PictureSettled(TourState& tour, QWidget* dialog, const char* name) {
    Settle(400);
    Picture(tour, dialog, name);
}

// OK of a dialog that may go on working for a moment.
void Confirm(QWidget* dialog) {
    Click(Control(dialog, "OkAresBtn"));
    for (int i = 0; i < 100 && dialog->isVisible(); ++i) Settle(20);
}

void ChooseNoise(QWidget* dialog) {
    WithDialog([&] { PickNext(Control(dialog, "SourceCmb"), 1); },
               [](QWidget* wave) {
                   PressKey(Control(wave, "WaveTypeCmb"), Qt::Key_Home);
                   PickNext(Control(wave, "WaveTypeCmb"), 6);
                   FillIn(wave, {{"ampltxt", "0.3"}});
                   Click(Control(wave, "OkAresBtn"));
               });
}

void AddNoise(TourState& tour) {
    InsertWave(tour, {"WaveAresBtn0", "2000", "3", "1.4", nullptr}, nullptr);
    Choose(tour, "MnuEdit_SelAll");
    WithDialog([&] { Choose(tour, "MnuMath_WaveMath"); },
               [&](QWidget* dialog) {
                   ChooseNoise(dialog);
                   PickNext(Control(dialog, "MathCmb"), 1);
                   PictureSettled(tour, dialog, "wave-math");
                   Confirm(dialog);
               });
    Step(tour, "wave math adds noise to a sine",
         Wave().Dots == 2000 && Wave().UndoAvailable && Roughness() > 0.05);
    Picture(tour, tour.Window.get(), "noisy");
}

void RemoveNoise(TourState& tour) {
    const double noisy = Roughness();
    WithDialog([&] { Choose(tour, "MnuMath_Filter_LowPass"); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"CutOffTxt", "60"}});
                   PictureSettled(tour, dialog, "low-pass");
                   Confirm(dialog);
               });
    Step(tour, "the low-pass takes the noise off",
         Roughness() < noisy / 4 && Near(ValueAt(500), -0.7, 0.1) && Wave().SegmentCount == 1);
    Picture(tour, tour.Window.get(), "filtered");
    Click(Part(tour, "UndoAresBtn"));
    Step(tour, "undo brings it back", Roughness() == noisy);
    WithDialog([&] { Choose(tour, "MnuMath_Filter_Smooth"); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"smoothdottxt", "50"}});
                   PictureSettled(tour, dialog, "smooth");
                   Confirm(dialog);
               });
    Step(tour, "so does smoothing", Roughness() < noisy / 4 && Wave().Dots == 2000);
}

void ResizeAndTurn(TourState& tour) {
    Choose(tour, "MnuEdit_SelAll");
    WithDialog([&] { Choose(tour, "MnuRework_Resize"); },
               [&](QWidget* dialog) {
                   FillIn(dialog, {{"dottxt", "1200"}, {"ampltxt", "60"}});
                   PictureSettled(tour, dialog, "resize");
                   Confirm(dialog);
               });
    Step(tour, "resize squeezes and scales", Wave().Dots == 1200 && Wave().SelEnd == 1199);
    const double first = ValueAt(100), last = ValueAt(1099);
    Choose(tour, "MnuRework_Mirror");
    Choose(tour, "MnuRework_Invert");
    Step(tour, "mirror and invert", ValueAt(100) == -last && ValueAt(1099) == -first);
    Choose(tour, "MnuMath_ABS");
    Choose(tour, "MnuMath_Win_Raisedcos");
    Step(tour, "absolute and raised cosine",
         ValueAt(0) == 0.0 && Near(ValueAt(1199), 0.0, 1e-12) && Wave().SegmentCount == 1);
    Picture(tour, tour.Window.get(), "windowed");
}

void CombineWindows(TourState& tour) {
    const QString windowed = QString::fromStdString(Wave().Name);
    const double envelope = ValueAt(410);
    NewDocument(tour, "2000", "2", nullptr);
    InsertWave(tour, {"WaveAresBtn0", "1500", "30", "1.6", nullptr}, nullptr);
    const double carrier = ValueAt(410);
    WithDialog([&] { Choose(tour, "MnuMath_WinMath"); },
               [&](QWidget* dialog) {
                   auto* math = qobject_cast<QComboBox*>(Control(dialog, "MathCmb"));
                   PressKey(math, Qt::Key_Home);
                   PickNext(math, math->findText(windowed));
                   PickNext(Control(dialog, "OperateCmb"), 3);
                   PictureSettled(tour, dialog, "window-math");
                   Confirm(dialog);
               });
    Step(tour, "window math multiplies two documents",
         ValueAt(0) == 0.0 && ValueAt(410) == carrier * envelope && Wave().UndoAvailable);
    Picture(tour, tour.Window.get(), "modulated");
}

void ShowInChinese(TourState& tour) {
    Choose(tour, "MnuEdit_SelAll");
    Choose(tour, "MnuHelp_Lang_Ch");
    for (const auto& [entry, picture] : {std::pair("MnuMath_WaveMath", "chinese-wave-math"),
                                         {"MnuMath_WinMath", "chinese-window-math"},
                                         {"MnuMath_Filter_LowPass", "chinese-low-pass"}})
        WithDialog([&, entry = entry] { Choose(tour, entry); },
                   [&, picture = picture](QWidget* dialog) {
                       PictureSettled(tour, dialog, picture);
                       PressKey(dialog, Qt::Key_Escape);
                   });
    Choose(tour, "MnuHelp_Lang_En");
}

}  // namespace

void ComputeWaves(TourState& tour) {
    const std::int16_t open = AnalogDocCount;
    NewDocument(tour, "2000", "2", nullptr);
    AddNoise(tour);
    RemoveNoise(tour);
    ResizeAndTurn(tour);
    CombineWindows(tour);
    ShowInChinese(tour);
    DiscardDocument(tour);
    DiscardDocument(tour);
    Step(tour, "the computed documents are closed without saving", AnalogDocCount == open);
}
