#include "ui/SmoothSetFrm.h"

#include "frame/GlobalDefineCode.h"

SmoothSetFrm::SmoothSetFrm(QWidget* parent) : NumberForm("SmoothSetFrm", parent, OpenSmooth()) {
    AddNumber({"smoothdottxt", "smoothdotLab", "smoothdotUp", "smoothdotDn", SmoothDotText,
               LeaveSmoothDot, SpinSmoothDot});
    Finish(MakeButtonRow(), SmoothedRun(ActiveAnalog()));
}

void SmoothSetFrm::ShowPreview(const SmoothDialog& dialog) {
    std::vector<WaveDot> dots;
    PreviewSmooth(dialog, dots);
    preview_->ShowDots(std::move(dots));
}

void SmoothSetFrm::accept() {
    LeaveFocusedBox();
    CloseAfter(ConfirmSmooth(dialog_));
}
