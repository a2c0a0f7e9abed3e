#include "ui/LinkWait.h"

#include "link/LinkWork.h"

#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QTimer>
#include <QWindow>
#include <vector>

// Input comes in twice: to the window of the system, which gives the focus to what is pressed, and
// then to the widget. Presses are stopped at the first, so that the focus stays; all else at the
// second, where it is known what it is for.
//
// A window is never closed while a wait stands on the stack, since the flow that waits still uses
// it. The wish is kept, the work cancelled, and the windows closed one by one when the flow has
// returned: each dialog runs an event loop of its own, which has to be left before the next.

namespace {

constexpr int CloseStep = 10;  // milliseconds from one closed dialog to the next

bool held = false;
std::vector<QEventLoop*> waits;  // innermost last
QPointer<QWidget> closing;       // to be closed when the work has ended

bool IsFree(const QWidget* widget) {
    if (widget == nullptr) return false;
    if (widget->objectName() == QLatin1String("CancelWaitBtn")) return true;
    if (qobject_cast<const QMessageBox*>(widget->window()) != nullptr) return true;
    for (; widget != nullptr; widget = widget->parentWidget())
        if (widget->objectName() == QLatin1String("CaptionBar")) return true;
    return false;
}

bool IsInput(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseMove:
            return static_cast<const QMouseEvent&>(event).buttons() != Qt::NoButton;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
        case QEvent::NativeGesture:
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

bool IsPress(QEvent::Type type) {
    return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
}

// Where a press on a window of the system goes to.
QWidget* WidgetUnder(const QWindow& window, const QEvent& press) {
    QWidget* top = QWidget::find(window.winId());
    if (top == nullptr) return nullptr;
    QWidget* child = top->childAt(static_cast<const QMouseEvent&>(press).position().toPoint());
    return child != nullptr ? child : top;
}

// What is accepted goes no further; a drop and a close have to be refused instead.
bool Swallow(QEvent* event) {
    const bool refused = event->type() == QEvent::Close || event->type() == QEvent::DragEnter ||
                         event->type() == QEvent::DragMove || event->type() == QEvent::Drop;
    event->setAccepted(!refused);
    return true;
}

void ShowPointer(bool isFree) {
    QApplication::changeOverrideCursor(isFree ? Qt::ArrowCursor : Qt::BusyCursor);
}

class InputFilter final : public QObject {
public:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (const auto* window = qobject_cast<const QWindow*>(watched))
            return IsPress(event->type()) && !IsFree(WidgetUnder(*window, *event)) &&
                   Swallow(event);
        const auto* widget = qobject_cast<const QWidget*>(watched);
        switch (event->type()) {
            case QEvent::Enter:
                ShowPointer(IsFree(widget));
                return false;
            case QEvent::Leave:
                ShowPointer(widget != nullptr && !widget->isWindow() &&
                            IsFree(widget->parentWidget()));
                return false;
            case QEvent::Close:
                return RefusesClose(widget, *event) && Swallow(event);
            default:
                return IsInput(*event) && Stops(widget, event);
        }
    }

private:
    // The main window keeps the wish and a message box is answered; dialogs stay.
    static bool RefusesClose(const QWidget* widget, const QEvent& event) {
        return event.spontaneous() && qobject_cast<const QDialog*>(widget) != nullptr &&
               !IsFree(widget);
    }

    static bool Stops(const QWidget* widget, QEvent* event) {
        const bool pressed = event->type() == QEvent::KeyPress;
        const bool escape = pressed && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
        const bool box = widget != nullptr && qobject_cast<QMessageBox*>(widget->window());
        if (escape && !box)
            CancelWait();
        else if (IsFree(widget))
            return false;
        return Swallow(event);
    }
};

InputFilter& TheFilter() {
    static InputFilter filter;
    return filter;
}

QEventLoop::ProcessEventsFlags Events() {
    return held ? QEventLoop::AllEvents : QEventLoop::ExcludeUserInputEvents;
}

void CloseNext() {
    if (held || closing == nullptr) return;  // the end of the next work begins anew
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        dialog->reject();
        QTimer::singleShot(CloseStep, closing, CloseNext);
        return;
    }
    QWidget* window = closing;
    closing = nullptr;
    window->close();
}

}  // namespace

bool InputHeld() {
    return held;
}

void HoldInput(bool begins) {
    if (begins == held) return;
    if (begins) {
        held = true;
        qApp->installEventFilter(&TheFilter());
        QApplication::setOverrideCursor(Qt::BusyCursor);
        return;
    }
    QCoreApplication::processEvents();  // what was pressed meanwhile must not run afterwards
    held = false;
    qApp->removeEventFilter(&TheFilter());
    QApplication::restoreOverrideCursor();
    if (closing != nullptr) QTimer::singleShot(0, closing, CloseNext);
}

void WaitFor(std::int32_t milliseconds) {
    if (held && Link.Cancelled) return;
    QEventLoop loop;
    // A coarse timer may be early, and the instrument needs its pauses whole.
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    waits.push_back(&loop);
    loop.exec(Events());
    waits.pop_back();
}

void PumpEvents() {
    QCoreApplication::processEvents(Events());
}

void AwaitEvent() {
    QCoreApplication::processEvents(Events() | QEventLoop::WaitForMoreEvents);
}

void CancelWait() {
    CancelLinkWork();
    if (held)
        for (QEventLoop* loop : waits) loop->quit();
}

void CloseAfterWork(QWidget* window) {
    closing = window;
    CancelWait();
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) box->reject();
}

QPushButton* MakeCancelWait(QWidget* parent) {
    auto* button = new QPushButton(parent);
    button->setObjectName(QStringLiteral("CancelWaitBtn"));
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::NoFocus);  // it comes and goes
    QObject::connect(button, &QPushButton::clicked, button, CancelWait);
    return button;
}
