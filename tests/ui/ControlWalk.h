#pragma once
// What the keyboard and a screen reader need of every control of a window.
#include <gtest/gtest.h>
#include <algorithm>
#include <QtWidgets>

inline std::string PathOf(const QWidget* control) {
    return (control->window()->objectName() + '/' + control->objectName()).toStdString();
}

// Whether the Tab key stops there in a window that is shown.
inline bool Stops(const QWidget* control) {
    return (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !control->focusProxy() &&
           control->isVisibleTo(control->window());
}

// A screen reader falls back to what a control shows, which is no name of a box or a list.
inline void ExpectNames(const QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(control);
        const bool part = button != nullptr || control->inherits("QToolBar") || Stops(control);
        if (control->window() != &window || !part) continue;
        bool named = !control->accessibleName().isEmpty() || (button && !button->text().isEmpty());
        for (const QLabel* label : window.findChildren<QLabel*>())
            named = named || (label->buddy() == control && !label->text().isEmpty());
        EXPECT_TRUE(named) << PathOf(control);
    }
}

// From the top left control Tab goes to the right and down until all were visited.
inline void ExpectTabOrder(QWidget& dialog) {
    dialog.grab();  // lays it out
    std::vector<std::pair<QRect, std::string>> order;
    for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain())
        if (Stops(at))
            order.emplace_back(QRect(at->mapTo(&dialog, QPoint()), at->size()), PathOf(at));
    const auto topLeft = std::ranges::min_element(
        order, {}, [](const auto& each) { return each.first.topLeft().manhattanLength(); });
    std::rotate(order.begin(), topLeft, order.end());
    for (std::size_t i = 1; i < order.size(); ++i) {
        const auto& [before, name] = order[i - 1];
        const QRect now = order[i].first;
        EXPECT_TRUE(now.left() > before.right() || now.top() > before.bottom()) << name;
    }
}
