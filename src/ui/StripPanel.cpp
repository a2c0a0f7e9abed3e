#include "ui/StripPanel.h"

#include "ui/HintLabel.h"

StripPanel::StripPanel(const char* name, const char* hint, QWidget* parent)
    : QWidget(parent), hint_(new HintLabel(this)), group_(new QWidget(this)) {
    setObjectName(QLatin1String(name));
    hint_->setObjectName(QLatin1String(hint));
    hint_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    line_ = new QHBoxLayout(group_);
    line_->setContentsMargins(0, 0, 0, 0);
    line_->setSpacing(StripUnitGap);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(2 * StripGap);
    row->addWidget(hint_);
    row->addWidget(group_, 1);
}

QLabel* StripPanel::AddField(const QString& caption, QWidget* field) {
    auto* label = new QLabel(group_);
    label->setObjectName(caption);
    if (line_->count() > 0) line_->addSpacing(StripGap);
    line_->addWidget(label);
    line_->addWidget(field);
    return label;
}
