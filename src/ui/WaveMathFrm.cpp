#include "ui/WaveMathFrm.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "ui/PlotPreview.h"
#include "ui/StandardWaveFrm.h"

#include <QComboBox>
#include <QVBoxLayout>

namespace {

constexpr QSize PictureSize = {420, 132};  // pixels
constexpr int NoteLines = 7;

}  // namespace

WaveMathFrm::WaveMathFrm(QWidget* parent)
    : DialogBase("WaveMathFrm", parent), dialog_(OpenWaveMath()) {
    BuildForm();
    ApplyTexts();
    ShowFields();
    source_->setFocus();
}

void WaveMathFrm::BuildForm() {
    QGridLayout* form = MakeForm();
    source_ = AddList(form, "SourceCmb", "SourceLab", EntryTexts("SourceCmb", MathSourceCount));
    operation_ = AddList(form, "MathCmb", "MathLab", EntryTexts("MathCmb", DotOperationCount));
    AddNote(form, NoteLines);
    form->setRowStretch(form->rowCount(), 1);
    operand_ = new PlotPreview(this, "PicSource", PictureSize);
    result_ = new PlotPreview(this, "PicResult", PictureSize);
    auto* pictures = new QVBoxLayout;
    pictures->setSpacing(DialogRowGap);
    for (PlotPreview* picture : {operand_, result_}) {
        picture->ShowUnder(SelectedDots(ActiveAnalog()));
        pictures->addLayout(MakePlot(picture));
    }
    resume_ = MakeButton("ResumeAresBtn");
    QHBoxLayout* buttons = MakeButtonRow();
    buttons->insertWidget(0, resume_);
    LayOut(MakeHalves(form, pictures), buttons);

    // Also when it is chosen again: the standard wave is then changed.
    connect(source_, &QComboBox::activated, this, &WaveMathFrm::ChooseSource);
    connect(operation_, &QComboBox::activated, this, [this](int operation) {
        ChooseMathOperation(dialog_, static_cast<std::int16_t>(operation));
        ShowFields();
    });
    connect(resume_, &QPushButton::clicked, this, [this] {
        ResumeWaveMath(dialog_);
        ShowFields();
        operation_->setFocus();
    });
}

void WaveMathFrm::ChooseSource(int source) {
    if (source == ClipBoardSource) {
        TakeClipboard(dialog_);
    } else {
        StandardWaveFrm wave(this, OpenOperandWave(dialog_.Wave));
        if (wave.exec() == Accepted) TakeStandardWave(dialog_, wave.Wave());
    }
    ShowFields();
}

void WaveMathFrm::ShowFields() {
    source_->setCurrentIndex(dialog_.Source);
    operation_->setCurrentIndex(dialog_.MathOperation);
    resume_->setEnabled(dialog_.MathOperation != NoOperation);
    ShowNote(WaveMathNote(dialog_), NoteSign::Warning);
    operand_->ShowDots(dialog_.MathSourceDots);
    result_->ShowDots(dialog_.MathResultDots);
}

void WaveMathFrm::accept() {
    CloseAfter(ConfirmWaveMath(dialog_));
}
