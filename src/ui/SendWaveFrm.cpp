#include "ui/SendWaveFrm.h"

#include "calculus/PropertyFuncBox.h"
#include "digital/DigitPropertyFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/GlobalDefineCode.h"
#include "link/LinkWork.h"
#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/HintLabel.h"
#include "ui/Theme.h"
#include "ui/WaitPanel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>
#include <QVBoxLayout>

// From top to bottom: what is sent, where it is stored, what is stored already, and what the link
// does. Whatever a control changes, Refresh shows the whole record anew; work of the link calls it
// as well, at each step.

namespace {

constexpr int FieldsWidth = 384;  // pixels, from the fields' left to the dialog's right margin
constexpr int NameWidth = 168;    // twelve capitals
constexpr int HelpLines = 2;
constexpr int LineHeight = 20;  // whatever the script, whose fonts differ in height
constexpr int HeadGap = 4;
constexpr QSize MarkSize = {20, 20};
constexpr int FewLocations = 4;  // the controls of more have names of their own

// A location of the instrument: filled while it holds a waveform, an empty frame while it is free.
class StoreMark final : public QWidget {
public:
    StoreMark(const QString& name, int number, QWidget* parent)
        : QWidget(parent), number_(QString::number(number)) {
        setObjectName(name);
        setFixedSize(MarkSize);
    }

    void ShowUsed(bool used) {
        used_ = used;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        const ChromePalette& chrome = CurrentChrome();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(
            QPen(used_ ? chrome.accent : chrome.dim, 1.2, used_ ? Qt::SolidLine : Qt::DashLine));
        painter.setBrush(used_ ? QBrush(chrome.accent) : Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 4, 4);
        QFont small = font();
        small.setPixelSize(11);
        painter.setFont(small);
        painter.setPen(used_ ? chrome.base : chrome.dim);
        painter.drawText(rect(), Qt::AlignCenter, number_);
    }

private:
    QString number_;
    bool used_ = false;
};

constexpr UnitRow BitRates[] = {
    {RateUnits[0], 1e6, {}}, {RateUnits[1], 1e3, {}}, {RateUnits[2], 1.0, {}}};

// A value in the largest unit that it fills; the last one for smaller values.
QString Quantity(double value, std::span<const UnitRow> units) {
    const auto fills = [&](const UnitRow& unit) { return value >= unit.Factor; };
    const auto found = std::ranges::find_if(units, fills);
    const UnitRow& unit = found != units.end() ? *found : units.back();
    return QString::number(value / unit.Factor, 'g', 6) + " " + ToQt(unit.Name);
}

// "3500 dots · 2 Vpp · 100 KHz"
QString WaveText(const AnalogWaveRecord& wave, const QString& pattern) {
    const QString frequency = Quantity(1.0 / wave.Period, FrequencyUnits);
    return pattern.arg(wave.Dots).arg(QString::number(wave.Vpp, 'g', 6), frequency);
}

// "4096 dots · 16 channels · 100 Kbps"
QString WaveText(const DigitDocument& document, const QString& pattern) {
    return pattern.arg(document.Dots)
        .arg(document.ChannelCount)
        .arg(Quantity(document.Rate, BitRates));
}

}  // namespace

// A box for a name. The record may cut or fold what is typed: its text comes back at the cursor.
class SendWaveFrm::NameBox final : public NumberBox {
public:
    explicit NameBox(QWidget* parent) : NumberBox(KeyKind::WaveName, parent) {
        setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        setFixedWidth(NameWidth);
    }

    void ShowText(const QString& shown) {
        if (text() == shown) return;
        const int cursor = text().size() == shown.size() ? cursorPosition() : -1;
        setText(shown);
        if (cursor >= 0) setCursorPosition(cursor);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
            return NumberBox::keyPressEvent(event);
        event->accept();  // the default button must not act as well
        emit returnPressed();
    }
};

SendWaveFrm::SendWaveFrm(const SendKind& kind, QWidget* parent) : LinkDialog(kind.Window, parent) {
    dialog_.Kind = &kind;
    auto* rows = new QVBoxLayout;
    rows->setSpacing(DialogRowGap * 2);
    rows->addWidget(MakeSummary());
    rows->addLayout(MakeStoreRows());
    rows->addLayout(MakeManageRows());
    close_ = MakeButton("ExitAresBtn");
    connect(close_, &QPushButton::clicked, this, &SendWaveFrm::reject);
    LayOut(rows, MakeBottom({close_}));
    allName_->setEnabled(false);
    ApplyTexts();
    Refresh();
}

QWidget* SendWaveFrm::MakeSummary() {
    const bool digital = dialog_.Kind == &SendDigitKind;
    const QString pattern = RowText("SummaryInfo");
    const QString texts[] = {
        ToQt(digital ? ActiveDigit().Title : ActiveAnalog().Name),
        digital ? WaveText(ActiveDigit(), pattern) : WaveText(ActiveAnalog(), pattern)};
    auto* summary = new QWidget(this);
    auto* lines = new QVBoxLayout(summary);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(HeadGap);
    for (const bool first : {true, false}) {
        auto* line = new HintLabel(summary);
        line->setObjectName(first ? "NameTxt" : "SummaryTxt");
        line->setTextFormat(Qt::PlainText);
        line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        line->setFixedHeight(LineHeight);
        line->setText(texts[first ? 0 : 1]);
        if (first)
            MakeBold(line);
        else
            line->setProperty("dim", true);
        lines->addWidget(line);
    }
    return summary;
}

QLayout* SendWaveFrm::MakeStoreRows() {
    QGridLayout* form = MakeForm();
    AddHead(form, "StoreHead");
    AddTargets(form);
    locations_ = MakeList("cmbUserWave", PickLocation);
    AddRow(form, MakeLabel("cmbUserWaveLab", locations_), locations_, nullptr);
    AddMarks(form);
    userName_ = MakeNameBox("txtUserWaveName", ChangeUserWaveName, EnterUserWaveName);
    save_ = MakeAct("SaveAresBtn", SaveToInstrument);
    auto* line = new QHBoxLayout;
    line->setSpacing(DialogRowGap);
    line->addWidget(userName_);
    line->addStretch(1);
    line->addWidget(save_);
    form->addWidget(MakeLabel("txtUserWaveNameLab", userName_), form->rowCount(), 0);
    form->addLayout(line, form->rowCount() - 1, 2, 1, 3);
    AddHelp(form, "StoreHelp");
    return form;
}

QLayout* SendWaveFrm::MakeManageRows() {
    QGridLayout* form = MakeForm();
    AddHead(form, "ManageHead");
    waves_ = MakeList("cmbAllWave", PickStoredWave);
    AddRow(form, MakeLabel("cmbAllWaveLab", waves_), waves_, nullptr);
    allName_ = MakeNameBox("txtAllWaveName", ChangeAllWaveName, ConfirmRename);
    confirm_ = MakeAct("OkAresBtn", ConfirmRename);
    cancel_ = MakeAct("CancelAresBtn", CancelRename);
    activate_ = MakeAct("ButActivate", ActivateChosenWave);
    rename_ = MakeAct("ButRename", BeginRename);
    delete_ = MakeAct("ButDel", DeleteChosenWave);
    auto* name = new QHBoxLayout;
    name->addWidget(allName_);
    name->addStretch(1);
    auto* acts = new QHBoxLayout;
    for (QPushButton* button : {confirm_, cancel_}) {
        KeepPlace(button);
        name->addWidget(button);
    }
    for (QPushButton* button : {activate_, rename_, delete_}) acts->addWidget(button);
    acts->addStretch(1);
    for (QHBoxLayout* line : {name, acts}) line->setSpacing(DialogRowGap);
    form->addWidget(MakeLabel("txtAllWaveNameLab", allName_), form->rowCount(), 0);
    form->addLayout(name, form->rowCount() - 1, 2, 1, 3);
    form->addLayout(acts, form->rowCount(), 2, 1, 3);
    AddHelp(form, "ManageHelp");
    return form;
}

void SendWaveFrm::AddTargets(QGridLayout* form) {
    auto* row = new QHBoxLayout;
    row->setSpacing(DialogRowGap * 2);
    for (const int entry : {0, 1}) {
        auto* target = Make<QRadioButton>(entry == 0 ? "OptionSave0" : "OptionSave1");
        connect(target, &QRadioButton::clicked, this,
                [this, entry] { Do([&] { PickStoreTarget(dialog_, entry == 0 ? 1 : 0); }); });
        row->addWidget(target);
        targets_[entry] = target;
    }
    row->addStretch(1);
    form->addWidget(MakeCaption("OptionSaveLab"), form->rowCount(), 0);
    form->addLayout(row, form->rowCount() - 1, 2, 1, 3);
}

void SendWaveFrm::AddMarks(QGridLayout* form) {
    const bool many = Link.StoreLocationCount > FewLocations;
    auto* row = new QHBoxLayout;
    row->setSpacing(HeadGap);
    for (int i = 0; i < Link.StoreLocationCount; ++i) {
        const QString name = QLatin1String(many ? "imgStoreStatusMul" : "imgStoreStatus");
        marks_.push_back(new StoreMark(name + QString::number(i), i + 1, this));
        row->addWidget(marks_.back());
    }
    used_ = Make<QLabel>("UsedTxt");
    used_->setFixedHeight(LineHeight);
    used_->setProperty("dim", true);
    row->addSpacing(DialogRowGap);
    row->addWidget(used_);
    row->addStretch(1);
    form->addWidget(MakeCaption(many ? "lblLocationMul" : "lblLocation"), form->rowCount(), 0);
    form->addLayout(row, form->rowCount() - 1, 2, 1, 3);
}

QLabel* SendWaveFrm::MakeCaption(const char* name) {
    QLabel* label = MakeLabel(name);
    label->setFixedHeight(LineHeight);
    return label;
}

void SendWaveFrm::AddHead(QGridLayout* form, const char* name) {
    auto* head = Make<QLabel>(name);
    head->setFixedHeight(LineHeight);
    MakeBold(head);
    form->setColumnMinimumWidth(2, FieldsWidth - DialogUnitGap - DialogUnitWidth);
    form->addWidget(head, form->rowCount(), 0, 1, 5);
}

void SendWaveFrm::AddHelp(QGridLayout* form, const char* name) {
    auto* help = Make<QLabel>(name);
    help->setWordWrap(true);
    help->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    help->setFixedSize(FieldsWidth, HelpLines * LineHeight);
    help->setProperty("dim", true);
    form->addWidget(help, form->rowCount(), 2, 1, 3);
}

QComboBox* SendWaveFrm::MakeList(const char* name, void (*pick)(SendDialog&, std::int16_t)) {
    auto* list = Make<QComboBox>(name);
    list->setFixedWidth(NameWidth);
    connect(list, &QComboBox::activated, this, [this, pick](int index) {
        Do([&] { pick(dialog_, static_cast<std::int16_t>(index)); });
    });
    return list;
}

SendWaveFrm::NameBox* SendWaveFrm::MakeNameBox(const char* name,
                                               void (*change)(SendDialog&, std::string_view),
                                               Act enter) {
    auto* box = Make<NameBox>(name);
    connect(box, &NameBox::textEdited, this, [this, change](const QString& typed) {
        Do([&] { change(dialog_, typed.toStdString()); });
    });
    connect(box, &NameBox::returnPressed, this, [this, enter] { Do([&] { enter(dialog_); }); });
    return box;
}

QPushButton* SendWaveFrm::MakeAct(const char* name, Act act) {
    QPushButton* button = MakeButton(name);
    connect(button, &QPushButton::clicked, this, [this, act] { Do([&] { act(dialog_); }); });
    return button;
}

void SendWaveFrm::Begin() {
    OpenSend(dialog_);
    Refresh();
    (userName_->isEnabled() ? static_cast<QWidget*>(userName_) : save_)->setFocus();
}

void SendWaveFrm::Refresh() {
    RefreshStore();
    RefreshManage();
    wait_->ShowWork(Working());
    close_->setEnabled(!Working());
}

void SendWaveFrm::ShowName(NameBox* box, const std::string& name, bool open) {
    box->ShowText(ToQt(name));
    box->setEnabled(open);
}

void SendWaveFrm::RefreshStore() {
    QStringList entries;
    for (const std::string& entry : LocationEntries(dialog_)) entries << ToQt(entry);
    FillList(locations_, entries);
    locations_->setCurrentIndex(dialog_.UserIndex);
    targets_[StoresWave(dialog_) ? 0 : 1]->setChecked(true);
    targets_[0]->setEnabled(bool(dialog_.NonVolatileOpen));
    ShowName(userName_, dialog_.txtUserWaveName, CanNameLocation(dialog_));
    const int used = dialog_.Stored.UsedStoreCount;
    for (int i = 0; i < std::ssize(marks_); ++i)
        static_cast<StoreMark*>(marks_[i])->ShowUsed(i < used);
    used_->setText(RowText("UsedInfo").arg(used).arg(std::ssize(marks_)));
}

// While a new name is typed only its box and the two buttons beside it are open.
void SendWaveFrm::RefreshManage() {
    const bool renaming = bool(dialog_.Renaming), wasRenaming = allName_->isEnabled();
    QStringList names;
    for (std::int16_t i = 0; i < dialog_.Stored.AllWaveCount; ++i)
        names << ToQt(dialog_.Stored.AllWaveName[i]);
    FillList(waves_, names);
    waves_->setCurrentIndex(dialog_.AllIndex);
    waves_->setEnabled(!renaming);
    ShowName(allName_, dialog_.txtAllWaveName, renaming);
    activate_->setEnabled(!renaming && !names.isEmpty());
    for (QPushButton* button : {rename_, delete_})
        button->setEnabled(!renaming && CanManageWave(dialog_));
    for (QPushButton* button : {confirm_, cancel_}) {
        button->setEnabled(renaming);
        button->setVisible(renaming);
    }
    save_->setDefault(!renaming);
    confirm_->setDefault(renaming);
    if (renaming != wasRenaming) (renaming ? static_cast<QWidget*>(allName_) : waves_)->setFocus();
}

// Escape leaves the entry of a name first.
void SendWaveFrm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && dialog_.Renaming)
        Do([this] { CancelRename(dialog_); });
    else
        LinkDialog::keyPressEvent(event);
}
