#include "ui/LowPassSetFrm.h"

#include "calculus/RunEdit.h"
#include "frame/GlobalDefineCode.h"

#include <QStackedLayout>

// The preview filters the whole wave, which takes too long to be done with every key: it waits
// until the keys pause. The work itself blocks the window, so it begins only when the window has
// told so: the message is painted before accept() returns, and the timer lets it reach the screen.

namespace {

constexpr int KeyPause = 150;   // milliseconds
constexpr int PaintPause = 50;  // milliseconds
constexpr int NoteLines = 2;

}  // namespace

LowPassSetFrm::LowPassSetFrm(QWidget* parent) : NumberForm("LowPassSetFrm", parent, OpenLowPass()) {
    timer2_.setObjectName(QStringLiteral("Timer2"));
    for (QTimer* timer : {&pause_, &timer2_}) timer->setSingleShot(true);
    connect(&pause_, &QTimer::timeout, this, &LowPassSetFrm::FilterPreview);
    connect(&timer2_, &QTimer::timeout, this, &LowPassSetFrm::Run);
    AddNumber(
        {"CutOffTxt", "CutOffLab", "CutOffUp", "CutOffDn", CutOffText, LeaveCutOff, SpinCutOff});
    AddNote(form_, NoteLines);
    Finish(MakeButtons(), WholeWave(ActiveAnalog()));
    FilterPreview();
}

QLayout* LowPassSetFrm::MakeButtons() {
    auto* page = new QWidget(this);
    QHBoxLayout* row = MakeButtonRow();
    row->setContentsMargins(0, 0, 0, 0);
    page->setLayout(row);
    buttons_ = new QStackedLayout;
    buttons_->addWidget(page);
    buttons_->addWidget(MakeLabel("MessageLab"));
    return buttons_;
}

void LowPassSetFrm::ShowPreview(const LowPassDialog& dialog) {
    ShowNote(LowPassNote(dialog), NoteSign::Nothing);
    pause_.start(KeyPause);
}

void LowPassSetFrm::FilterPreview() {
    pause_.stop();
    std::vector<WaveDot> dots;
    PreviewLowPass(*previewed_, dots);
    preview_->ShowDots(std::move(dots));
}

void LowPassSetFrm::accept() {
    if (waiting_) return;
    LeaveFocusedBox();
    if (!PrepareLowPass(dialog_)) {
        reject();
        return;
    }
    ShowWaiting();
    timer2_.start(PaintPause);
}

void LowPassSetFrm::ShowWaiting() {
    waiting_ = true;
    for (QWidget* control : findChildren<NumberBox*>()) control->setEnabled(false);
    for (QWidget* control : findChildren<SpinButton*>()) control->setEnabled(false);
    pause_.stop();
    buttons_->setCurrentIndex(1);
    setCursor(Qt::WaitCursor);
    repaint();
}

void LowPassSetFrm::Run() {
    RunLowPass(dialog_);
    waiting_ = false;
    NumberForm::accept();
}

void LowPassSetFrm::reject() {
    if (!waiting_) NumberForm::reject();
}
