#include "ui/DigitPropertyFrm.h"

#include "platform/qt/QtText.h"

#include <QComboBox>

namespace {

constexpr int NoteLines = 2;

}  // namespace

DigitPropertyFrm::DigitPropertyFrm(QWidget* parent)
    : DigitForm("DigitPropertyFrm", parent), dialog_(OpenDigitProperty()) {
    QGridLayout* form = MakeForm();
    dots_ = MakeBox("DotnumTxt", KeyKind::Whole);
    dots_->setMinimumWidth(DialogFieldWidth);
    AddSpun(form, dots_, "DotnumLab", "DotNumUp", "DotNumDn", SpinDigitDots);
    AddRate(form);
    position_ = MakeBox("PositionTxt", KeyKind::Whole);
    AddSpun(form, position_, "PositionLab", "PositionUp", "PositionDown", SpinPosition);
    connect(dots_, &NumberBox::textEdited, this, [this](const QString& typed) {
        dots_->ShowHeld(ChangeDigitDots(typed.toStdString()));
    });
    connect(position_, &NumberBox::textEdited, this, [this](const QString& typed) {
        position_->ShowHeld(ChangePosition(dialog_, typed.toStdString()));
    });
    connect(rate_, &NumberBox::textEdited, this, [this](const QString& typed) {
        rate_->ShowHeld(ChangeRate(dialog_, typed.toStdString()));
    });
    OnLeft(dots_, LeaveDigitDots);
    OnLeft(rate_, LeaveRate);
    OnLeft(position_, LeavePosition);
    AddNote(form, NoteLines);
    ShowNote(std::string(DigitPropertyNote()), NoteSign::Warning);
    LayOut(form, MakeButtonRow());
    ApplyTexts();
    ShowFields();
    dots_->setFocus();
}

void DigitPropertyFrm::AddSpun(QGridLayout* form, NumberBox* box, const char* label, const char* up,
                               const char* down,
                               void (*spin)(DigitPropertyDialog&, std::int32_t, bool)) {
    QWidget* spins = MakeSpins(up, down, [this, spin](int count, bool rises) {
        spin(dialog_, count, rises);
        ShowFields();
    });
    AddRow(form, MakeLabel(label, box), box, spins);
}

void DigitPropertyFrm::AddRate(QGridLayout* form) {
    rate_ = MakeBox("Freqtxt", KeyKind::Real);
    QStringList units;
    for (const std::string_view unit : RateUnits) units << ToQt(unit);
    rateUnit_ = MakeUnits("FrequnitCmb", units);
    AddRow(form, MakeLabel("FreqLab", rate_), rate_, rateUnit_);
    connect(rateUnit_, &QComboBox::activated, this, [this](int unit) {
        ChangeRateUnit(dialog_, static_cast<std::int16_t>(unit), rate_->text().toStdString());
        ShowFields();
    });
}

void DigitPropertyFrm::OnLeft(NumberBox* box,
                              void (*leave)(DigitPropertyDialog&, std::string_view)) {
    connect(box, &NumberBox::left, this, [this, leave](const QString& typed) {
        leave(dialog_, typed.toStdString());
        ShowFields();
    });
}

void DigitPropertyFrm::ShowFields() {
    dots_->setText(QString::number(dialog_.Dots));
    rate_->setText(ToQt(dialog_.RateText));
    rateUnit_->setCurrentIndex(dialog_.RateUnit);
    position_->setText(QString::number(dialog_.Position));
}

void DigitPropertyFrm::accept() {
    LeaveFocusedBox();
    EndWith(ConfirmDigitProperty(dialog_));
}
