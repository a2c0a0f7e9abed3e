#include "ui/LinkDialog.h"

#include "link/LinkWork.h"
#include "ui/WaitPanel.h"

#include <QHBoxLayout>

namespace {

LinkDialog* current = nullptr;

}  // namespace

LinkDialog::LinkDialog(const char* window, QWidget* parent)
    : DialogBase(window, parent), before_(current) {
    current = this;
    timer1_.setParent(this);
    timer1_.setObjectName(QStringLiteral("Timer1"));
    timer1_.setSingleShot(true);
    timer1_.callOnTimeout(this, &LinkDialog::reject);
}

LinkDialog::~LinkDialog() {
    current = before_;
}

LinkDialog* LinkDialog::Current() {
    return current;
}

bool LinkDialog::Working() {
    return Link.WorkDepth > 0 || Link.SendBusy;
}

void LinkDialog::reject() {
    if (!Working()) DialogBase::reject();
}

void LinkDialog::showEvent(QShowEvent* event) {
    DialogBase::showEvent(event);
    if (opened_) return;
    opened_ = true;
    QTimer::singleShot(0, this, &LinkDialog::Open);
}

void LinkDialog::Open() {
    repaint();
    Do([this] { Begin(); });
}

void LinkDialog::Do(const std::function<void()>& act) {
    act();
    Refresh();
    if (CloseAsked()) timer1_.start(0);
}

QLayout* LinkDialog::MakeBottom(std::initializer_list<QPushButton*> buttons) {
    wait_ = new WaitPanel(WaitPanel::Place::Dialog, "ProgressBar", this);
    for (QPushButton* button : buttons) wait_->AddButton(button);
    auto* row = new QHBoxLayout;
    row->addWidget(wait_);
    return row;
}

void LinkDialog::ApplyTexts() {
    DialogBase::ApplyTexts();
    wait_->ApplyTexts(RowText("CancelWaitBtn"), RowText("CancelWaitTip"));
}
