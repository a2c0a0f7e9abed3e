#include "app/TourHands.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QTimer>
#include <QWidget>

void Settle(int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    do QApplication::processEvents(QEventLoop::AllEvents, milliseconds);
    while (timer.elapsed() < milliseconds);
}

void Click(QWidget* widget) {
    const QPointF at = QRectF(widget->rect()).center();
    const QPointF global = widget->mapToGlobal(at);
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QApplication::sendEvent(widget, &release);
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

void WithDialog(const std::function<void()>& open, const std::function<void(QWidget*)>& act) {
    QWidget* const before = QApplication::activeModalWidget();
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || dialog == before || !dialog->isVisible()) return;
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
