#include "ui/ResizeWaveFrm.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"

ResizeWaveFrm::ResizeWaveFrm(QWidget* parent) : NumberForm("ResizeWaveFrm", parent, OpenResize()) {
    AddNumber({"dottxt", "dotLab", "dotUp", "dotDn", NewDotsText, LeaveNewDots, SpinNewDots});
    AddNumber({"ampltxt", "amplLab", "amplUp", "amplDn", AmplPercentText, LeaveAmplPercent,
               SpinAmplPercent});
    Finish(MakeButtonRow(), SelectedDots(ActiveAnalog()));
}

void ResizeWaveFrm::ShowPreview(const ResizeDialog& dialog) {
    std::vector<WaveDot> dots;
    PreviewResize(dialog, dots);
    preview_->ShowDots(std::move(dots));
}

void ResizeWaveFrm::accept() {
    LeaveFocusedBox();
    CloseAfter(ConfirmResize(dialog_));
}
