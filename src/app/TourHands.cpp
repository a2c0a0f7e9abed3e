#include "app/TourHands.h"

#include <cstdlib>
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

void Settle(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    do QApplication::processEvents(QEventLoop::AllEvents, milliseconds);
    while (timer.elapsed() < milliseconds);
}

void Press(QWidget* widget, QPoint at, Qt::MouseButton button) {
    QMouseEvent press(QEvent::MouseButtonPress, at, widget->mapToGlobal(at), button, button,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

void MoveTo(QWidget* widget, QPoint at, Qt::MouseButton held) {
    QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, held,
                     Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

void Release(QWidget* widget, QPoint at, Qt::MouseButton button) {
    QMouseEvent release(QEvent::MouseButtonRelease, at, widget->mapToGlobal(at), button,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &release);
}

void ClickAt(QWidget* widget, QPoint at, Qt::MouseButton button) {
    Press(widget, at, button);
    Release(widget, at, button);
}

void Click(QWidget* widget) {
    ClickAt(widget, widget->rect().center());
}

void Drag(QWidget* widget, QPoint from, QPoint to) {
    Press(widget, from);
    for (int step = 1; step <= 8; ++step) MoveTo(widget, from + (to - from) * step / 8);
    Release(widget, to);
}

void DoubleClick(QWidget* widget, QPoint at) {
    ClickAt(widget, at);
    QMouseEvent press(QEvent::MouseButtonDblClick, at, widget->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
    Release(widget, at);
}

void TurnWheel(QWidget* widget, QPoint at, int notches, Qt::KeyboardModifiers modifiers) {
    for (int i = 0; i < std::abs(notches); ++i) {
        QWheelEvent turn(at, widget->mapToGlobal(at), {}, {0, notches > 0 ? 120 : -120},
                         Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(widget, &turn);
    }
}

void PressKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, modifiers);
    QApplication::sendEvent(widget, &release);
}

void TypeInto(QWidget* widget, const QString& text) {
    widget->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(widget)) edit->selectAll();
    for (const QChar character : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(character));
        QApplication::sendEvent(widget, &press);
    }
}

QWidget* Control(const QWidget* window, const char* name) {
    auto* widget = window->findChild<QWidget*>(name);
    if (widget == nullptr) qFatal("no control %s", name);
    return widget;
}

void WithDialog(const std::function<void()>& open, const std::function<void(QWidget*)>& act,
                const std::function<bool()>& isReady) {
    QWidget* const before = QApplication::activeModalWidget();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == before || !dialog->isVisible() || !isReady()) return;
        poll.stop();
        Settle();
        act(dialog);
        if (QApplication::activeModalWidget() == dialog) dialog->close();
    });
    poll.start(5);
    open();
    Settle();
}

void TakePicture(QWidget* window, const QString& path) {
    Settle();
    if (!window->grab().save(path)) qFatal("cannot save %s", qPrintable(path));
}
