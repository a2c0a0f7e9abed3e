#include "ui/DialogBase.h"

#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"

#include <QComboBox>
#include <QFontMetrics>
#include <QHBoxLayout>

namespace {

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

NumberBox* DialogBase::MakeBox(const char* name, KeyKind kind) {
    auto* box = new NumberBox(kind, this);
    box->setObjectName(QLatin1String(name));
    return box;
}

QComboBox* DialogBase::MakeUnits(const char* name, const QStringList& units) {
    auto* list = new QComboBox(this);
    list->setObjectName(QLatin1String(name));
    list->addItems(units);
    list->setFixedWidth(DialogUnitWidth);
    return list;
}

QLabel* DialogBase::MakeLabel(const char* name, QWidget* buddy) {
    auto* label = new QLabel(this);
    label->setObjectName(QLatin1String(name));
    label->setBuddy(buddy);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return label;
}

SpinButton* DialogBase::MakeSpin(const char* name, bool up) {
    auto* spin = new SpinButton(up, this);
    spin->setObjectName(QLatin1String(name));
    spin->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    return spin;
}

QWidget* DialogBase::MakeSpinPair(SpinButton* up, SpinButton* down) {
    auto* pair = new QWidget(this);
    auto* row = new QHBoxLayout(pair);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(DialogUnitGap);
    row->addWidget(up);
    row->addWidget(down);
    pair->setFixedWidth(DialogUnitWidth);
    return pair;
}

void DialogBase::AddRow(QGridLayout* form, QLabel* label, QWidget* field, QWidget* unit) {
    const int row = form->rowCount();
    if (label != nullptr) form->addWidget(label, row, 0);
    form->addWidget(field, row, 2, 1, unit != nullptr ? 1 : 3);
    if (unit != nullptr) form->addWidget(unit, row, 4);
}

QLayout* DialogBase::MakeButtonRow() {
    auto* row = new QHBoxLayout;
    row->setSpacing(DialogRowGap);
    row->addStretch(1);
    for (const char* name : {"OkAresBtn", "CancelAresBtn"}) {
        auto* button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setAutoDefault(false);
        button->setFixedWidth(88);
        row->addWidget(button);
        const bool confirms = row->count() == 2;  // behind the stretch
        button->setDefault(confirms);
        connect(button, &QPushButton::clicked, this,
                confirms ? &DialogBase::accept : &DialogBase::reject);
    }
    return row;
}

void DialogBase::LeaveFocusedBox() {
    if (auto* box = qobject_cast<NumberBox*>(focusWidget())) box->Leave();
}
