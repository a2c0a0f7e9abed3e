#include "ui/SmoothSetFrm.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"

SmoothSetFrm::SmoothSetFrm(QWidget* parent) : NumberForm("SmoothSetFrm", parent, OpenSmooth()) {
    AddNumber({"smoothdottxt", "smoothdotLab", "smoothdotUp", "smoothdotDn", SmoothDotText,
               LeaveSmoothDot, SpinSmoothDot});
    Finish(MakeButtonRow());
}

void SmoothSetFrm::ShowPreview(const SmoothDialog& dialog) {
    std::vector<WaveDot> dots;
    PreviewSmooth(dialog, dots);
    AnalogWaveRecord& wave = ActiveAnalog();
    ShowOver(std::move(dots), wave.HasSelection ? SelectedDots(wave) : WholeWave(wave));
}

void SmoothSetFrm::accept() {
    LeaveFocusedBox();
    CloseAfter(ConfirmSmooth(dialog_));
}
