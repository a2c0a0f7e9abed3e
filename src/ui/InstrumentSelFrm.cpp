#include "ui/InstrumentSelFrm.h"

#include "link/ConnectFuncBox.h"
#include "platform/qt/QtText.h"

#include <QComboBox>

namespace {

constexpr std::uint8_t ModelCount = 3;
constexpr int FieldWidth = 304;  // pixels: the note on one line in either language
constexpr int NoteHeight = 20;

}  // namespace

InstrumentSelFrm::InstrumentSelFrm(QWidget* parent) : DialogBase("InstrumentSelFrm", parent) {
    OpenInstrumentSel(dialog_);
    models_ = Make<QComboBox>("ComboInstrumentType");
    models_->setFixedWidth(FieldWidth);
    for (std::uint8_t model = 0; model < ModelCount; ++model)
        models_->addItem(ToQt(ModelName(model)));
    note_ = MakeLabel("lblMsgbox");
    note_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    note_->setFixedHeight(NoteHeight);
    QGridLayout* form = MakeForm();
    AddRow(form, MakeLabel("InstrumentLab", models_), models_, nullptr);
    AddRow(form, nullptr, note_, nullptr);
    LayOut(form, MakeButtonRow());
    connect(models_, &QComboBox::activated, this, [this](int model) {
        dialog_.Model = static_cast<std::uint8_t>(model);
        ShowFields();
    });
    ApplyTexts();
    ShowFields();
    models_->setFocus();
}

void InstrumentSelFrm::ShowFields() {
    models_->setCurrentIndex(dialog_.Model);
    note_->setText(ToQt(InstrumentNote(dialog_)));
}

void InstrumentSelFrm::accept() {
    ConfirmInstrumentSel(dialog_);
    DialogBase::accept();
}

void InstrumentSelFrm::done(int result) {
    CloseInstrumentSel();
    DialogBase::done(result);
}
