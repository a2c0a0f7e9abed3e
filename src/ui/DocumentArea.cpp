#include "ui/DocumentArea.h"

#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/CaptionBar.h"
#include "ui/DocumentWindow.h"
#include "ui/Theme.h"
#include "ui/WindowLayout.h"

#include <algorithm>
#include <QMouseEvent>
#include <QPainter>

namespace {

using State = DocumentWindow::State;

// Moves and sizes come from the caption and the grips only: the toolkit would resize at the rim of
// a maximised window as well.
class DocumentFrame : public QMdiSubWindow {
public:
    // The ground comes from the palette: one of the style sheet does not count as opaque, and all
    // the windows behind this one would be painted with it.
    explicit DocumentFrame(QWidget* area) : QMdiSubWindow(area, Qt::FramelessWindowHint) {
        setBackgroundRole(QPalette::Button);
    }

    QRect LastNormal;  // before it was maximised or minimised; null: never normal

protected:
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseMoveEvent(QMouseEvent* event) override { event->accept(); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { event->accept(); }
};

State StateOf(const QMdiSubWindow* frame) {
    return WindowOf(frame)->ShownState();
}

void Place(QMdiSubWindow* frame, State state, const QRect& place) {
    const State before = StateOf(frame);
    if (before == State::Normal && state != State::Normal)
        static_cast<DocumentFrame*>(frame)->LastNormal = frame->geometry();
    WindowOf(frame)->ShowState(state);
    ShowEdgeGrips(frame, state == State::Normal);
    const bool sameSize = frame->size() == place.size();
    frame->setGeometry(place);
    // The border came or went: the content has changed its size though the window has not.
    if (sameSize && state != before) WindowOf(frame)->FollowSize();
}

}  // namespace

DocumentWindow* WindowOf(const QMdiSubWindow* frame) {
    return static_cast<DocumentWindow*>(frame->widget());
}

DocumentArea::DocumentArea(QWidget* parent) : QMdiArea(parent) {
    setObjectName("DocumentArea");
    setBackground(CurrentChrome().base);
    setActivationOrder(QMdiArea::ActivationHistoryOrder);
    connect(this, &QMdiArea::subWindowActivated, this, &DocumentArea::ShowActiveOne);
}

QMdiSubWindow* DocumentArea::AddDocument(DocumentWindow* window) {
    auto* frame = new DocumentFrame(this);
    frame->setWidget(window);
    window->setBackgroundRole(QPalette::Window);  // parts would have the frame's
    addSubWindow(frame);
    AddEdgeGrips(frame, SmallestWindow);
    connect(window, &DocumentWindow::ClosePressed, frame, &QWidget::close);
    connect(window, &DocumentWindow::CaptionPressed, this,
            [this, frame] { setActiveSubWindow(frame); });
    connect(window, &DocumentWindow::MinimisePressed, this, [this, frame] { Minimise(frame); });
    connect(window, &DocumentWindow::TogglePressed, this, [this, frame] { Toggle(frame); });
    connect(window, &DocumentWindow::Dragged, this, [this, frame](QPoint to) { Drag(frame, to); });
    return frame;
}

void DocumentArea::Open(QMdiSubWindow* frame) {
    auto* own = static_cast<DocumentFrame*>(frame);
    own->LastNormal = QRect();
    if (childMaximised_)
        Place(frame, State::Maximised, viewport()->rect());
    else
        Place(frame, State::Normal, NormalPlace(frame));
    const QRect place = frame->geometry();
    own->LastNormal = QRect();  // it was of the document before in this frame
    frame->widget()->show();
    frame->show();
    setActiveSubWindow(frame);
    frame->setGeometry(place);  // the area gives a window that is new a place of its own
}

void DocumentArea::Reveal(QMdiSubWindow* frame) {
    if (StateOf(frame) == State::Minimised) Place(frame, State::Normal, NormalPlace(frame));
    setActiveSubWindow(frame);
}

// Tiles keep the order of creation. A cascade follows the stack, so that every caption shows.
void DocumentArea::Arrange(WindowArrangement kind) {
    if (kind == WindowArrangement::Icons) return ArrangeIcons();
    const bool cascade = kind == WindowArrangement::Cascade;
    QList<QMdiSubWindow*> frames = Frames(cascade ? StackingOrder : CreationOrder);
    if (frames.isEmpty()) return;
    childMaximised_ = false;
    ArrangeIcons();
    frames.removeIf([](QMdiSubWindow* frame) { return StateOf(frame) == State::Minimised; });
    const QList<QRect> places = PlaceWindows(kind, Room(), static_cast<int>(frames.size()));
    for (qsizetype i = 0; i < frames.size(); ++i) Place(frames[i], State::Normal, places[i]);
}

QList<QMdiSubWindow*> DocumentArea::Frames(WindowOrder order) const {
    QList<QMdiSubWindow*> frames = subWindowList(order);
    frames.removeIf([this](QMdiSubWindow* frame) { return !frame->isVisibleTo(viewport()); });
    return frames;
}

void DocumentArea::ActivateUsedBefore(const QMdiSubWindow* left) {
    QMdiSubWindow* before = nullptr;
    for (QMdiSubWindow* other : Frames(ActivationHistoryOrder)) {
        if (other == left) continue;
        const bool haveNormal = before != nullptr && StateOf(before) != State::Minimised;
        if (StateOf(other) != State::Minimised || !haveNormal) before = other;
    }
    if (before != nullptr) setActiveSubWindow(before);
}

// Without a document the area says how to begin, quietly.
void DocumentArea::paintEvent(QPaintEvent* event) {
    QMdiArea::paintEvent(event);
    if (AnalogDocCount + DigitDocCount > 0) return;
    QPainter painter(viewport());
    QFont font = painter.font();
    font.setPixelSize(15);
    painter.setFont(font);
    painter.setPen(CurrentChrome().dim);
    painter.drawText(viewport()->rect(), Qt::AlignCenter, ToQt(TextOf("Mainfrm", "DocumentArea")));
}

void DocumentArea::resizeEvent(QResizeEvent* event) {
    QMdiArea::resizeEvent(event);
    for (QMdiSubWindow* frame : Frames()) {
        if (childMaximised_)
            frame->setGeometry(viewport()->rect());
        else
            frame->move(KeepReachable(frame->geometry(), viewport()->size()));
    }
    ArrangeIcons();
}

void DocumentArea::Minimise(QMdiSubWindow* frame) {
    Place(frame, State::Minimised, FreeIconPlace());
    ActivateUsedBefore(frame);
    ShowActiveOne();
}

// One window is maximised with all the others, and they become normal again together.
void DocumentArea::Toggle(QMdiSubWindow* frame) {
    if (StateOf(frame) == State::Minimised) return Reveal(frame);
    childMaximised_ = !childMaximised_;
    for (QMdiSubWindow* each : Frames()) {
        if (childMaximised_)
            Place(each, State::Maximised, viewport()->rect());
        else
            Place(each, State::Normal, NormalPlace(each));
    }
    setActiveSubWindow(frame);
}

void DocumentArea::Drag(QMdiSubWindow* frame, QPoint to) {
    if (!childMaximised_) frame->move(KeepReachable({to, frame->size()}, viewport()->size()));
}

void DocumentArea::ArrangeIcons() {
    const QList<QMdiSubWindow*> icons = Icons();
    const QList<QRect> places =
        PlaceWindows(WindowArrangement::Icons, viewport()->size(), static_cast<int>(icons.size()));
    for (qsizetype i = 0; i < icons.size(); ++i) icons[i]->setGeometry(places[i]);
}

// Icons stay above the windows, which would hide them for good.
void DocumentArea::ShowActiveOne() {
    for (QMdiSubWindow* frame : Frames()) WindowOf(frame)->ShowActive(frame == currentSubWindow());
    for (QMdiSubWindow* icon : Icons()) icon->raise();
}

QList<QMdiSubWindow*> DocumentArea::Icons() const {
    QList<QMdiSubWindow*> frames = Frames();
    frames.removeIf([](QMdiSubWindow* frame) { return StateOf(frame) != State::Minimised; });
    return frames;
}

// What the rows of icons leave for the other windows.
QSize DocumentArea::Room() const {
    QSize room = viewport()->size();
    const QList<QRect> icons =
        PlaceWindows(WindowArrangement::Icons, room, static_cast<int>(Icons().size()));
    if (!icons.isEmpty()) room.setHeight(icons.constLast().y() - IconGap);
    return room;
}

// Where the window was, else the first place of the cascade at which no other one starts.
QRect DocumentArea::NormalPlace(QMdiSubWindow* frame) const {
    const QRect last = static_cast<DocumentFrame*>(frame)->LastNormal;
    if (!last.isNull()) return {KeepReachable(last, viewport()->size()), last.size()};
    QList<QPoint> taken;
    for (const QMdiSubWindow* other : Frames())
        if (other != frame && StateOf(other) == State::Normal) taken << other->pos();
    const auto places =
        PlaceWindows(WindowArrangement::Cascade, Room(), static_cast<int>(taken.size()) + 1);
    for (const QRect& place : places)
        if (!taken.contains(place.topLeft())) return place;
    return places.constLast();
}

QRect DocumentArea::FreeIconPlace() const {
    const QList<QMdiSubWindow*> icons = Icons();
    const auto places = PlaceWindows(WindowArrangement::Icons, viewport()->size(),
                                     static_cast<int>(icons.size()) + 1);
    for (const QRect& place : places) {
        const auto covers = [&](const QMdiSubWindow* icon) {
            return icon->geometry().intersects(place);
        };
        if (std::none_of(icons.begin(), icons.end(), covers)) return place;
    }
    return places.constLast();
}
