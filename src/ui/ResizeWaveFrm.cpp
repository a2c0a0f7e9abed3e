#include "ui/ResizeWaveFrm.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"

ResizeWaveFrm::ResizeWaveFrm(QWidget* parent) : NumberForm("ResizeWaveFrm", parent, OpenResize()) {
    AddNumber({"dottxt", "dotLab", "dotUp", "dotDn", NewDotsText, LeaveNewDots, SpinNewDots});
    AddNumber({"ampltxt", "amplLab", "amplUp", "amplDn", AmplPercentText, LeaveAmplPercent,
               SpinAmplPercent});
    Finish(MakeButtonRow());
}

void ResizeWaveFrm::ShowPreview(const ResizeDialog& dialog) {
    std::vector<WaveDot> dots;
    PreviewResize(dialog, dots);
    ShowOver(std::move(dots), SelectedDots(ActiveAnalog()));
}

void ResizeWaveFrm::accept() {
    LeaveFocusedBox();
    CloseAfter(ConfirmResize(dialog_));
}
