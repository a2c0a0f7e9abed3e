#include "ui/DownLoadWaveFrm.h"

#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/WaitPanel.h"

#include <QComboBox>

namespace {

constexpr int FieldsWidth = 340;  // pixels
constexpr int NoteLines = 2;

}  // namespace

DownLoadWaveFrm::DownLoadWaveFrm(const UploadKind& kind, QWidget* parent)
    : LinkDialog(kind.Window, parent) {
    dialog_.Kind = &kind;
    QGridLayout* form = MakeForm();
    form->setColumnMinimumWidth(2, FieldsWidth - DialogUnitGap - DialogUnitWidth);
    waves_ = AddList(form, "cmbAllWave", "cmbAllWaveLab", {});
    AddNote(form, NoteLines);
    load_ = MakeButton("LoadAresBtn");
    load_->setDefault(true);
    connect(load_, &QPushButton::clicked, this,
            [this] { Do([this] { LoadChosenWave(dialog_); }); });
    cancel_ = MakeButton("CancelAresBtn");
    connect(cancel_, &QPushButton::clicked, this, &DownLoadWaveFrm::reject);
    LayOut(form, MakeBottom({load_, cancel_}));
    ApplyTexts();
    Refresh();
    connect(waves_, &QComboBox::activated, this, [this](int index) {
        Do([&] { PickUploadWave(dialog_, static_cast<std::int16_t>(index)); });
    });
    waves_->setFocus();
}

void DownLoadWaveFrm::Begin() {
    OpenDownLoad(dialog_);
}

void DownLoadWaveFrm::Refresh() {
    QStringList names;
    for (const std::string& name : dialog_.AllWaveName) names << ToQt(name);
    FillList(waves_, names);
    waves_->setCurrentIndex(dialog_.AllIndex);
    const bool open = CanLoadWave(dialog_);
    load_->setEnabled(open);
    const bool builtIn = !open && !names.isEmpty();
    if (Working())
        ShowNote({}, NoteSign::Nothing);
    else if (builtIn && dialog_.Note.empty())
        ShowNote(RowText("BuiltInInfo").toStdString(), NoteSign::Nothing);
    else
        ShowNote(dialog_.Note, NoteSign::Warning);
    wait_->ShowWork(Working());
    cancel_->setEnabled(!Working());
}
