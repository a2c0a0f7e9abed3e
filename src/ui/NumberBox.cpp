#include "ui/NumberBox.h"

#include "platform/qt/QtText.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPushButton>
#include <QValidator>

namespace {

class KeyValidator final : public QValidator {
public:
    explicit KeyValidator(NumberBox* box) : QValidator(box), box_(box) {}

    State validate(QString& text, int& /*cursor*/) const override {
        const bool grows = text.size() > box_->text().size();
        if (grows && static_cast<std::size_t>(text.size()) > box_->LongestText()) return Invalid;
        return AcceptsText(box_->Kind(), text.toStdString()) ? Acceptable : Invalid;
    }

private:
    const NumberBox* box_;
};

}  // namespace

int WidthOfDigits(const QWidget* widget, int digits) {
    return widget->fontMetrics().horizontalAdvance(QString(digits, QLatin1Char('0')));
}

NumberBox::NumberBox(KeyKind kind, QWidget* parent) : QLineEdit(parent), kind_(kind) {
    setValidator(new KeyValidator(this));
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void NumberBox::ShowHeld(const std::string& held) {
    if (text() != ToQt(held)) setText(ToQt(held));
}

void NumberBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    entered_ = event->reason() == Qt::MouseFocusReason;
    if (event->reason() != Qt::PopupFocusReason) selectAll();
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A context menu over the box and a change of window are no end of the typing.
    if (event->reason() == Qt::PopupFocusReason) return;
    if (event->reason() == Qt::ActiveWindowFocusReason) return;
    deselect();
    Leave();
}

void NumberBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // The press has put the cursor somewhere; unless the user dragged over digits, all of the
    // text is what the first key replaces.
    if (entered_ && !hasSelectedText()) selectAll();
    entered_ = false;
}

void NumberBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    FocusNextBox();
    if (hasFocus()) {  // the only stop of its window
        Leave();
        selectAll();
    }
}

// The next box behind this one; past the last, the button that confirms, so that a second Enter
// does so.
void NumberBox::FocusNextBox() {
    for (QWidget* next = nextInFocusChain(); next != this; next = next->nextInFocusChain()) {
        if (next->window() != window() || !next->isEnabled() || !next->isVisible()) continue;
        if (!(next->focusPolicy() & Qt::TabFocus)) continue;  // it only shows a number
        const auto* button = qobject_cast<QPushButton*>(next);
        const bool confirms =
            (button != nullptr && button->isDefault()) || next->property("apply").toBool();
        if (qobject_cast<NumberBox*>(next) || confirms) {
            next->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}
