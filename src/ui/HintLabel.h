#pragma once
// A text that gives way where its place is narrow; its tip then has all of it.
#include <QLabel>
#include <QPainter>
#include <QStyle>

class HintLabel : public QLabel {
public:
    using QLabel::QLabel;
    QSize minimumSizeHint() const override { return {20, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
        style()->drawItemText(&painter, rect(), Qt::AlignVCenter | Qt::AlignLeft, palette(),
                              isEnabled(), shown, foregroundRole());
        setToolTip(shown == text() ? QString() : text());
    }
};
