#include "ui/DialogBase.h"

#include "frame/LoadLanguageCode.h"
#include "platform/Host.h"
#include "platform/qt/QtText.h"
#include "ui/Controls.h"
#include "ui/PlotPreview.h"
#include "ui/Theme.h"

#include <algorithm>
#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QShortcut>

namespace {

constexpr int SignWidth = 20;  // pixels
constexpr int NoteSlack = 4;   // by which Chinese lines may be the higher ones
constexpr int ListWidth = DialogFieldWidth + DialogUnitGap + DialogUnitWidth;
constexpr int KeyGap = 16;     // between the keys of two curves
constexpr int KeyHeight = 16;  // whatever the script, whose fonts differ in height

int WidestLabel(const std::string& window, const QFontMetrics& metrics) {
    int widest = 0;
    for (const WindowText& row : WindowTexts()) {
        if (row.Window != window || row.Control.find("Lab") == std::string_view::npos) continue;
        if (row.Control.find("UnitLab") != std::string_view::npos) continue;
        for (const std::string_view text : {row.English, row.Chinese})
            widest = std::max(widest, metrics.size(Qt::TextShowMnemonic, ToQt(text)).width());
    }
    return widest;
}

}  // namespace

DialogBase::DialogBase(const char* window, QWidget* parent) : QDialog(parent) {
    setObjectName(QLatin1String(window));
    setModal(true);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

// No shortcut: in a tool window one would meet that of the main window, and neither would work.
void DialogBase::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::HelpContents))
        TheHost().ShowHelp(objectName().toStdString());
    else
        QDialog::keyPressEvent(event);
}

QString DialogBase::RowText(const QString& control) const {
    return ToQt(TextOf(objectName().toStdString(), control.toStdString()));
}

void DialogBase::ApplyTexts() {
    setWindowTitle(RowText({}));
    for (QWidget* control : findChildren<QWidget*>()) {
        const QString text = RowText(control->objectName());
        if (control->objectName().isEmpty() || text.isEmpty()) continue;
        if (auto* label = qobject_cast<QLabel*>(control)) {
            label->setText(text);
        } else if (auto* spin = qobject_cast<SpinButton*>(control)) {
            spin->setAccessibleName(text);
            spin->setToolTip(text);
        } else if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            button->setText(text);
        } else {
            control->setAccessibleName(text);
        }
    }
}

QGridLayout* DialogBase::MakeForm() const {
    auto* form = new QGridLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(0);
    form->setVerticalSpacing(DialogRowGap);
    form->setColumnMinimumWidth(0, WidestLabel(objectName().toStdString(), fontMetrics()));
    form->setColumnMinimumWidth(1, DialogRowGap);
    form->setColumnMinimumWidth(3, DialogUnitGap);
    form->setColumnMinimumWidth(4, DialogUnitWidth);
    form->setColumnStretch(2, 1);
    return form;
}

QComboBox* DialogBase::MakeUnits(const char* name, const QStringList& units) {
    auto* list = Make<QComboBox>(name);
    list->addItems(units);
    list->setFixedWidth(DialogUnitWidth);
    return list;
}

QLabel* DialogBase::MakeLabel(const char* name, QWidget* buddy) {
    auto* label = Make<QLabel>(name);
    label->setBuddy(buddy);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

QWidget* DialogBase::MakeSpins(const char* up, const char* down,
                               const std::function<void(int, bool)>& tick) {
    auto* pair = new QWidget(this);
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(DialogUnitGap);
    for (const bool rises : {true, false}) {
        auto* spin = Make<SpinButton>(rises ? up : down, rises);
        spin->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        connect(spin, &SpinButton::tick, this, [tick, rises](int count) { tick(count, rises); });
        row->addWidget(spin);
    }
    pair->setFixedWidth(DialogUnitWidth);
    return pair;
}

void DialogBase::AddRow(QGridLayout* form, QLabel* label, QWidget* field, QWidget* unit) {
    const int row = form->rowCount();
    if (label != nullptr) form->addWidget(label, row, 0);
    form->addWidget(field, row, 2, 1, unit != nullptr ? 1 : 3);
    if (unit != nullptr) form->addWidget(unit, row, 4);
}

QComboBox* DialogBase::AddList(QGridLayout* form, const char* name, const char* label,
                               const QStringList& entries) {
    auto* list = Make<QComboBox>(name);
    list->setFixedWidth(ListWidth);
    AddShortened(list, entries, Qt::ElideMiddle);
    const auto showWhole = [list] {
        list->setToolTip(list->currentData(Qt::ToolTipRole).toString());
    };
    connect(list, &QComboBox::currentIndexChanged, list, showWhole);
    showWhole();
    AddRow(form, MakeLabel(label, list), list, nullptr);
    return list;
}

QStringList DialogBase::EntryTexts(const char* list, int count) const {
    QStringList texts;
    for (int i = 0; i < count; ++i) texts << RowText(QLatin1String(list) + QString::number(i));
    return texts;
}

void DialogBase::AddNote(QGridLayout* form, int lines) {
    sign_ = new QLabel(this);
    sign_->setFixedWidth(SignWidth);
    sign_->setAlignment(Qt::AlignRight | Qt::AlignTop);
    note_ = Make<QLabel>("NoteTxt");
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    note_->setFixedHeight(lines * fontMetrics().lineSpacing() + NoteSlack);
    note_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // no text widens the window
    const int row = form->rowCount();
    form->addWidget(sign_, row, 0, Qt::AlignRight | Qt::AlignTop);
    form->addWidget(note_, row, 2, 1, 3);
}

void DialogBase::ShowNote(const std::string& note, NoteSign sign) {
    const bool fault = sign == NoteSign::Fault;
    sign_->setStyleSheet(
        QStringLiteral("color: %1; font-weight: bold;").arg(SignColour(fault).name()));
    const bool bare = note.empty() || sign == NoteSign::Nothing;
    sign_->setText(bare ? QString() : QString(fault ? u'✕' : u'▲'));
    note_->setText(ToQt(note));
}

QPushButton* DialogBase::MakeButton(const char* name) {
    auto* button = Make<QPushButton>(name);
    button->setAutoDefault(false);
    button->setFixedWidth(88);
    return button;
}

QHBoxLayout* DialogBase::MakeButtonRow() {
    QPushButton* confirm = MakeButton("OkAresBtn");
    confirm->setDefault(true);
    connect(confirm, &QPushButton::clicked, this, &DialogBase::accept);
    QPushButton* cancel = MakeButton("CancelAresBtn");
    connect(cancel, &QPushButton::clicked, this, &DialogBase::reject);
    auto* row = new QHBoxLayout;
    row->setSpacing(DialogRowGap);
    row->addStretch(1);
    row->addWidget(confirm);
    row->addWidget(cancel);
    return row;
}

QLayout* DialogBase::MakePlot(PlotPreview* plot) {
    auto* column = new QVBoxLayout;
    column->setSpacing(DialogUnitGap);
    column->addWidget(plot, 1);
    auto* keys = new QHBoxLayout;
    keys->setSpacing(DialogUnitGap);
    for (const bool under : {false, true}) {
        const QString name = plot->objectName() + QLatin1String(under ? "UnderInfo" : "Info");
        if (RowText(name).isEmpty()) continue;
        if (!keys->isEmpty()) keys->addSpacing(KeyGap - DialogUnitGap);
        QLabel* text = MakeLabel(name.toLatin1().constData());
        text->setProperty("dim", true);
        text->setFixedHeight(KeyHeight);
        keys->addWidget(new CurveKey(under, this));
        keys->addWidget(text);
    }
    keys->addStretch(1);
    column->addLayout(keys);
    return column;
}

QLayout* DialogBase::MakeHalves(QLayout* left, QLayout* right) {
    auto* halves = new QHBoxLayout;
    halves->setSpacing(DialogMargin);
    halves->addLayout(left);
    halves->addLayout(right, 1);
    return halves;
}

void DialogBase::LayOut(QLayout* rows, QLayout* buttons) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
    column->setSpacing(DialogRowGap * 2);
    column->addLayout(rows);
    column->addLayout(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);
}

void DialogBase::LeaveFocusedBox() {
    if (auto* box = qobject_cast<NumberBox*>(focusWidget())) box->Leave();
}

void DialogBase::CloseAfter(bool changed) {
    if (changed)
        QDialog::accept();
    else
        QDialog::reject();
}

void GiveHelpKey(QDialog& dialog) {
    auto* key = new QShortcut(QKeySequence::HelpContents, &dialog);
    QObject::connect(key, &QShortcut::activated, &dialog, [] { TheHost().ShowHelp(""); });
}

bool HasDigit(const QString& typed) {
    return std::ranges::any_of(typed, [](QChar c) { return c.isDigit(); });
}
