#include "ui/WindowMathFrm.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"
#include "platform/qt/QtText.h"
#include "ui/PlotPreview.h"

#include <QComboBox>
#include <QHBoxLayout>

namespace {

constexpr int NoteLines = 8;

}  // namespace

WindowMathFrm::WindowMathFrm(QWidget* parent)
    : DialogBase("WindowMathFrm", parent), dialog_(OpenWindowMath()) {
    BuildForm();
    ApplyTexts();
    ShowFields();
    source_->setFocus();
}

void WindowMathFrm::BuildForm() {
    QStringList names;
    for (const std::string& name : WindowMathNames(dialog_)) names << ToQt(name);
    QGridLayout* form = MakeForm();
    source_ = AddList(form, "SourceCmb", "SourceLab", names);
    math_ = AddList(form, "MathCmb", "MathLab", names);
    operation_ =
        AddList(form, "OperateCmb", "OperateLab", EntryTexts("OperateCmb", DotOperationCount));
    AddNote(form, NoteLines);
    form->setRowStretch(form->rowCount(), 1);
    preview_ = new PlotPreview(this);
    resume_ = MakeButton("ResumeAresBtn");
    QHBoxLayout* buttons = MakeButtonRow();
    buttons->insertWidget(0, resume_);
    LayOut(MakeHalves(form, MakePlot(preview_)), buttons);

    ConnectList(source_, ChooseSourceWindow);
    ConnectList(math_, ChooseMathWindow);
    ConnectList(operation_, ChooseWindowOperation);
    connect(resume_, &QPushButton::clicked, this, [this] {
        ResumeWindowMath(dialog_);
        ShowFields();
        operation_->setFocus();
    });
}

void WindowMathFrm::ConnectList(QComboBox* list, Choose choose) {
    connect(list, &QComboBox::activated, this, [this, choose](int place) {
        choose(dialog_, static_cast<std::int16_t>(place));
        ShowFields();
    });
}

void WindowMathFrm::ShowFields() {
    source_->setCurrentIndex(dialog_.Source);
    math_->setCurrentIndex(dialog_.Math);
    operation_->setCurrentIndex(dialog_.Operation);
    resume_->setEnabled(dialog_.Operation != NoOperation);
    ShowNote(WindowMathNote(dialog_), NoteSign::Warning);
    if (dialog_.Documents.empty()) return;
    preview_->ShowUnder(
        WholeWave(AnalogAt(dialog_.Documents[static_cast<std::size_t>(dialog_.Source)])));
    preview_->ShowDots(dialog_.PreviewDots);
}

void WindowMathFrm::accept() {
    CloseAfter(ConfirmWindowMath(dialog_));
}
