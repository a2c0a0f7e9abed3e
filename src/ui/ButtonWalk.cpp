#include "ui/ButtonWalk.h"

#include <algorithm>
#include <QKeyEvent>
#include <QToolButton>

// One button of a row takes the Tab key, the one of the last visit. Where its command closes, the
// first open one takes its place.

namespace {

bool IsOpen(const QToolButton* button) {
    return button->isEnabled() && button->isVisible();
}

}  // namespace

ButtonWalk::ButtonWalk(const QList<QWidget*>& parts, Tab tab, QObject* parent)
    : QObject(parent), tab_(tab) {
    for (const QWidget* part : parts) {
        QList<QToolButton*> row =
            part->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly);
        // A tool bar makes the arrow to what does not fit before its buttons.
        std::stable_partition(row.begin(), row.end(), [](const QToolButton* button) {
            return button->objectName() != "qt_toolbar_ext_button";
        });
        buttons_ << row;
    }
    for (QToolButton* button : buttons_) {
        button->setFocusPolicy(Qt::NoFocus);
        button->installEventFilter(this);
        connect(button, &QObject::destroyed, this, &ButtonWalk::Forget);
    }
    MoveTabStop();
}

void ButtonWalk::Forget(QObject* gone) {
    buttons_.removeIf([gone](const QToolButton* button) { return button == gone; });
    if (used_ == gone) used_ = nullptr;
}

QList<QToolButton*> ButtonWalk::Open() const {
    QList<QToolButton*> open = buttons_;
    open.removeIf([](const QToolButton* button) { return !IsOpen(button); });
    return open;
}

QToolButton* ButtonWalk::Stop() const {
    if (used_ != nullptr && IsOpen(used_)) return used_;
    const QList<QToolButton*> open = Open();
    return open.isEmpty() ? nullptr : open.first();
}

bool ButtonWalk::HasFocus() const {
    return std::ranges::any_of(buttons_, [](const QToolButton* each) { return each->hasFocus(); });
}

void ButtonWalk::Use(QToolButton* button) {
    if (tab_ == Tab::Stops && used_ != button) {
        if (used_ != nullptr) used_->setFocusPolicy(Qt::NoFocus);
        if (button != nullptr) button->setFocusPolicy(Qt::TabFocus);
    }
    used_ = button;
}

void ButtonWalk::MoveTabStop() {
    if (used_ == nullptr || !IsOpen(used_)) Use(Stop());
}

bool ButtonWalk::Step(QToolButton* from, int key) {
    const QList<QToolButton*> open = Open();
    const qsizetype last = open.size() - 1, at = open.indexOf(from);
    const std::pair<int, qsizetype> steps[] = {{Qt::Key_Left, std::max<qsizetype>(at - 1, 0)},
                                               {Qt::Key_Right, std::min(at + 1, last)},
                                               {Qt::Key_Home, 0},
                                               {Qt::Key_End, last}};
    for (const auto& [each, to] : steps) {
        if (each != key || at < 0) continue;
        open[to]->setFocus(Qt::TabFocusReason);
        return true;
    }
    return false;
}

bool ButtonWalk::eventFilter(QObject* watched, QEvent* event) {
    auto* button = qobject_cast<QToolButton*>(watched);
    if (button == nullptr) return false;  // it is being destroyed
    switch (event->type()) {
        case QEvent::FocusIn:
            Use(button);
            return false;
        case QEvent::EnabledChange:
        case QEvent::Show:
        case QEvent::Hide:
            MoveTabStop();
            return false;
        case QEvent::KeyPress:
            break;
        default:
            return false;
    }
    const auto* press = static_cast<QKeyEvent*>(event);
    const int key = press->key();
    if (key == Qt::Key_Escape) {
        emit Left();
        return true;
    }
    if (key != Qt::Key_Space && key != Qt::Key_Return && key != Qt::Key_Enter)
        return Step(button, key);
    if (!press->isAutoRepeat() && button->isEnabled()) button->click();
    if (!IsOpen(button)) emit Left();
    return true;
}
