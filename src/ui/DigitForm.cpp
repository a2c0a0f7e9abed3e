#include "ui/DigitForm.h"

#include "digital/RadixText.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"

#include <algorithm>
#include <QComboBox>

QComboBox* DigitForm::AddRadixList(QGridLayout* form, const char* name, const char* label) {
    QStringList radices;
    for (int i = 0; i < RadixCount; ++i)
        radices << ToQt(TextOf("RadixList", "RadixCmb" + std::to_string(i)));
    return AddList(form, name, label, radices);
}

void DigitForm::EndWith(DialogEnd end) {
    if (end != DialogEnd::Stay) {
        CloseAfter(end == DialogEnd::Done);
        return;
    }
    const QList<NumberBox*> boxes = findChildren<NumberBox*>();
    const auto empty = std::ranges::find_if(
        boxes, [](const NumberBox* box) { return box->isEnabled() && box->text().isEmpty(); });
    (empty != boxes.end() ? *empty : boxes.front())->setFocus();
}

ValueForm::ValueForm(const char* window, QWidget* parent, ValueBoxes& boxes)
    : DigitForm(window, parent), boxes_(boxes), form_(MakeForm()) {}

NumberBox* ValueForm::MakeValueBox(const char* name, ValueBox which) {
    NumberBox* box = MakeBox(name, KeyKind::Whole);
    Bind(box, which);
    connect(box, &NumberBox::textEdited, this, [this, box](const QString& typed) {
        ChangeValueBox(boxes_, bound_[box], typed.toStdString());
        box->ShowHeld(TextIn(boxes_, bound_[box]));
    });
    connect(box, &NumberBox::left, this, [this] {
        LeaveValueBoxes(boxes_);
        ShowBoxes();
    });
    return box;
}

NumberBox* ValueForm::AddValueBox(const char* name, const char* label, ValueBox which) {
    NumberBox* box = MakeValueBox(name, which);
    AddRow(form_, MakeLabel(label, box), box, nullptr);
    return box;
}

void ValueForm::AddRadix() {
    radix_ = AddRadixList(form_, "RadixCmb", "RadixLab");
    connect(radix_, &QComboBox::activated, this, [this](int radix) {
        ChangeValueRadix(boxes_, static_cast<std::int16_t>(radix));
        ShowBoxes();
    });
}

void ValueForm::Finish() {
    AddNote(form_, 1);
    LayOut(form_, MakeButtonRow());
    ApplyTexts();
    ShowBoxes();
}

void ValueForm::ShowBoxes() {
    radix_->setCurrentIndex(boxes_.Radix);
    for (const auto& [box, which] : bound_) {
        box->SetKind(InRadix(which) ? KeysOfRadix(boxes_.Radix) : KeyKind::Whole);
        box->setText(ToQt(TextIn(boxes_, which)));
    }
    ShowNote(ValueRangeText(boxes_), NoteSign::Nothing);
}
