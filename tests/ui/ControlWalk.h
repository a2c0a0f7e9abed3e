#pragma once
// What the keyboard and a screen reader need of every control of a window.
#include <gtest/gtest.h>
#include <QtWidgets>

inline std::string PathOf(const QWidget* control) {
    return (control->window()->objectName() + '/' + control->objectName()).toStdString();
}

// The stops of the Tab key that are seen, in the order of creation or of Tab.
inline bool Stops(const QWidget* control) {
    return (control->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !control->focusProxy() &&
           control->isVisibleTo(control->window());
}

// A screen reader falls back to what a control shows, which is no name of a box or a list.
inline void ExpectNames(const QWidget& window) {
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(control);
        if (button == nullptr && !Stops(control)) continue;
        bool named = !control->accessibleName().isEmpty() || (button && !button->text().isEmpty());
        for (const QLabel* label : window.findChildren<QLabel*>())
            named = named || (label->buddy() == control && !label->text().isEmpty());
        EXPECT_TRUE(named || control->window() != &window) << PathOf(control);
    }
}

// From the top left control Tab goes to the right and down until all were visited.
inline void ExpectTabOrder(QWidget& dialog) {
    dialog.grab();  // lays it out
    const auto place = [&](const QWidget* each) {
        return QRect(each->mapTo(&dialog, QPoint()), each->size());
    };
    std::vector<QWidget*> order;
    for (QWidget* at = dialog.nextInFocusChain(); at != &dialog; at = at->nextInFocusChain())
        if (Stops(at)) order.push_back(at);
    std::ranges::rotate(order, std::ranges::min_element(order, {}, [&](const QWidget* each) {
                            return place(each).topLeft().manhattanLength();
                        }));
    for (std::size_t i = 1; i < order.size(); ++i) {
        const QRect before = place(order[i - 1]), now = place(order[i]);
        EXPECT_TRUE(now.left() > before.right() || now.top() > before.bottom())
            << PathOf(order[i - 1]) << " -> " << PathOf(order[i]);
    }
}
