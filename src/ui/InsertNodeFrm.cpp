#include "ui/InsertNodeFrm.h"

#include "frame/LoadLanguageCode.h"
#include "frame/StringFunc.h"
#include "platform/qt/QtText.h"

#include <QComboBox>

namespace {

std::string SelectedChannelsText(const std::string& count) {
    if (count == "1") return std::string(PickText("1 channel is selected.", "已选择 1 个通道。"));
    return WithNumbers(PickText("% channels are selected.", "已选择 % 个通道。"),
                       {WholeNumber(count)});
}

const char* TitleOf(NodeUse use) {
    if (use == NodeUse::Assemble) return "AssembleTitle";
    return use == NodeUse::Edit ? "EditTitle" : "";
}

}  // namespace

InsertNodeFrm::InsertNodeFrm(QWidget* parent)
    : DigitForm("InsertNodeFrm", parent), dialog_(OpenInsertNode()) {
    QGridLayout* form = MakeForm();
    NumberBox* name = MakeBox("DigitNameTxt", KeyKind::WaveName);
    name->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    name->setMaxLength(static_cast<int>(LongestNodeName));
    name->setText(ToQt(dialog_.Name));
    AddRow(form, MakeLabel("DigitNameLab", name), name, nullptr);
    connect(name, &NumberBox::textEdited, this,
            [this](const QString& typed) { dialog_.Name = typed.toStdString(); });

    QComboBox* radix = AddRadixList(form, "DigitRadixCmb", "DigitRadixLab");
    radix->setCurrentIndex(dialog_.Radix);
    connect(radix, &QComboBox::currentIndexChanged, this,
            [this](int chosen) { dialog_.Radix = static_cast<std::int16_t>(chosen); });

    NumberBox* count =
        AddDigits(form, "DigitBusTXt", "DigitBusLab", ChangeBusCount, &InsertNodeDialog::BusCount);
    connect(count, &NumberBox::left, this, [this, count] {
        LeaveBusCount(dialog_);
        count->setText(ToQt(dialog_.BusCount));
    });
    AddDigits(form, "DigitStartTxt", "DigitStartLab", ChangeStartNumber,
              &InsertNodeDialog::StartNumber);
    const bool assembles = dialog_.Use == NodeUse::Assemble;
    if (assembles) {
        count->setReadOnly(true);
        count->setFocusPolicy(Qt::NoFocus);
    }
    AddNote(form, 1);
    ShowNote(assembles ? SelectedChannelsText(dialog_.BusCount) : FreeChannelsText(),
             NoteSign::Nothing);
    LayOut(form, MakeButtonRow());
    ApplyTexts();
    setWindowTitle(RowText(TitleOf(dialog_.Use)));
    name->setFocus();
}

NumberBox* InsertNodeFrm::AddDigits(QGridLayout* form, const char* name, const char* label,
                                    void (*change)(InsertNodeDialog&, std::string_view),
                                    std::string InsertNodeDialog::*text) {
    NumberBox* box = MakeBox(name, KeyKind::Whole);
    box->setText(ToQt(dialog_.*text));
    AddRow(form, MakeLabel(label, box), box, nullptr);
    connect(box, &NumberBox::textEdited, this, [this, box, change, text](const QString& typed) {
        change(dialog_, typed.toStdString());
        box->ShowHeld(dialog_.*text);
    });
    return box;
}

void InsertNodeFrm::accept() {
    LeaveFocusedBox();
    EndWith(ConfirmInsertNode(dialog_));
}
