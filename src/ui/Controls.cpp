#include "ui/Controls.h"

#include <QComboBox>

namespace {

constexpr int ListFrame = 36;  // what a list's arrow and margins take of its width

}  // namespace

void MakeBold(QWidget* text) {
    QFont bold = text->font();
    bold.setBold(true);
    text->setFont(bold);
}

void KeepPlace(QWidget* control) {
    QSizePolicy policy = control->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control->setSizePolicy(policy);
}

void ShowCursor(QWidget* picture, Qt::CursorShape shape) {
    if (picture->cursor().shape() != shape) picture->setCursor(shape);
}

void FillList(QComboBox* list, const QStringList& entries) {
    bool same = list->count() == entries.size();
    for (int i = 0; same && i < list->count(); ++i) same = list->itemText(i) == entries[i];
    if (same) return;
    list->clear();
    list->addItems(entries);
}

void AddShortened(QComboBox* list, const QStringList& entries, Qt::TextElideMode cut) {
    for (const QString& entry : entries) {
        const QString shown = list->fontMetrics().elidedText(entry, cut, list->width() - ListFrame);
        list->addItem(shown);
        if (shown != entry) list->setItemData(list->count() - 1, entry, Qt::ToolTipRole);
    }
}
