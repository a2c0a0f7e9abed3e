#include "ui/DigitPics.h"

#include "digital/DigitFuncCode.h"
#include "digital/DigitKeyFuncBox.h"
#include "digital/DigitMouseFuncBox.h"
#include "digital/DigitView.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/PlotPalette.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SurfaceImage.h"
#include "ui/Controls.h"
#include "ui/PicMouse.h"

#include <algorithm>
#include <cmath>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QPainter>
#include <QTimer>

namespace {

constexpr int ScrollWait = 80;  // milliseconds for a row, while a drag is held beside the list
constexpr int DropLine = 2, TagMargin = 4;
constexpr int KeyStep = 8;           // of the split, logical pixels
constexpr QPoint TagOffset{14, 10};  // from the pointer

struct Place {
    float X, Y;
};

Place PlaceOf(const QMouseEvent& event) {
    return {static_cast<float>(event.position().x()), static_cast<float>(event.position().y())};
}

ListAdd AddOf(Qt::KeyboardModifiers modifiers) {
    if (modifiers & Qt::ShiftModifier) return ListAdd::Range;
    return (modifiers & Qt::ControlModifier) ? ListAdd::Toggle : ListAdd::Replace;
}

}  // namespace

// --- what all parts do --------------------------------------------------------------------------

DigitPic::DigitPic(std::int16_t slot, Surface DigitDocument::*surface, std::int32_t top,
                   const char* menu, QWidget* parent)
    : QWidget(parent), slot_(slot), surface_(surface), top_(top), menu_(menu) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DigitPic::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QImage& image = ImageOf(DigitAt(slot_).*surface_);
    if (image.isNull()) return painter.fillRect(event->rect(), QColor::fromRgb(PlotBack));
    const double scale = devicePixelRatioF();
    painter.save();
    painter.scale(1.0 / scale, 1.0 / scale);
    painter.drawImage(0, -static_cast<int>(std::lround(top_ * scale)), image);
    painter.restore();
    if (!byKeys_) return;
    painter.setPen(QColor::fromRgb(PlotPointer));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// The wheel moves the rows, with Shift or sideways the dots; with Ctrl it zooms.
void DigitPic::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (event->buttons() != Qt::NoButton) return;
    const bool sideways = event->angleDelta().y() == 0;
    const int notches = TakeNotches(*event, wheel_);
    if (notches == 0) return;
    const DigitDocument& document = DigitAt(slot_);
    if (event->modifiers() & Qt::ControlModifier)
        ZoomDigit(slot_, notches);
    else if (sideways || event->modifiers() & Qt::ShiftModifier)
        ShowDotsFrom(slot_, document.FirstDot - notches * std::max(document.VisibleDots / 4, 1));
    else
        ShowRowsFrom(slot_,
                     std::max(document.FirstRow - notches * QApplication::wheelScrollLines(), 0));
}

bool DigitPic::StepCaliper(const QKeyEvent& event) const {
    const DigitDocument& document = DigitAt(slot_);
    const bool far = event.modifiers() & Qt::ControlModifier;
    const std::int32_t step = far ? std::max(document.VisibleDots / 10, 1) : 1;
    const std::pair<int, std::int32_t> dots[] = {{Qt::Key_Left, document.Caliper - step},
                                                 {Qt::Key_Right, document.Caliper + step},
                                                 {Qt::Key_Home, 0},
                                                 {Qt::Key_End, document.Dots - 1}};
    for (const auto& [key, dot] : dots) {
        if (event.key() != key) continue;
        StepCaliperByKey(slot_, dot);
        return true;
    }
    return false;
}

// Shift with the arrows draws a span, or adds rows to the one that stands.
bool DigitPic::StepSpan(const QKeyEvent& event) const {
    if (!(event.modifiers() & Qt::ShiftModifier)) return false;
    const DigitDocument& document = DigitAt(slot_);
    const bool far = event.modifiers() & Qt::ControlModifier;
    const std::int32_t step = far ? std::max(document.VisibleDots / 10, 1) : 1;
    struct SpanKey {
        int Key;
        std::int32_t Dots, Rows;
    };
    const SpanKey keys[] = {{Qt::Key_Left, -step, 0},
                            {Qt::Key_Right, step, 0},
                            {Qt::Key_Home, -document.Dots, 0},
                            {Qt::Key_End, document.Dots, 0},
                            {Qt::Key_Up, 0, -1},
                            {Qt::Key_Down, 0, 1}};
    for (const auto& [key, dots, rows] : keys) {
        if (event.key() != key || (rows != 0 && !document.WaveSelection)) continue;
        ExtendSpan(slot_, dots, rows);
        return true;
    }
    return false;
}

// Alt with the arrows moves the selected nodes.
bool DigitPic::MoveNodes(const QKeyEvent& event) const {
    const bool up = event.key() == Qt::Key_Up;
    if (!(event.modifiers() & Qt::AltModifier) || (!up && event.key() != Qt::Key_Down))
        return false;
    StepSelectedNodes(slot_, up ? -1 : 1);
    return true;
}

bool DigitPic::StepRow(const QKeyEvent& event) const {
    const DigitDocument& document = DigitAt(slot_);
    const DigitTarget target = TargetAtRow(document, document.ClickRow);
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
            StepRowByKey(
                slot_, event.key() == Qt::Key_Up ? -1 : 1,
                (event.modifiers() & Qt::ShiftModifier) ? ListAdd::Range : ListAdd::Replace);
            return true;
        case Qt::Key_Plus:
        case Qt::Key_Minus:
            ExpandClickedRow(slot_, event.key() == Qt::Key_Plus);
            return true;
        case Qt::Key_Space:
            if (target.Node >= 0)
                ExpandClickedRow(slot_,
                                 !document.Nodes[static_cast<std::size_t>(target.Node)].Expanded);
            return true;
        default:
            return false;
    }
}

void DigitPic::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        EscapeDigit(slot_);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        EvaluateClickedRow(slot_);
    else if (!MoveNodes(*event) && !StepSpan(*event) && !StepCaliper(*event) && !StepRow(*event))
        QWidget::keyPressEvent(event);
}

void DigitPic::focusInEvent(QFocusEvent* event) {
    byKeys_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    update();
}

void DigitPic::focusOutEvent(QFocusEvent*) {
    byKeys_ = false;
    update();
}

// With the mouse the press itself opens the menu.
void DigitPic::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Mouse) emit ContextAsked(menu_, event->globalPos());
}

// --- the list -----------------------------------------------------------------------------------

DispParaPic::DispParaPic(std::int16_t slot, QWidget* parent)
    : DigitPic(slot, &DigitDocument::ListSurface, 0, "", parent) {
    setObjectName("DispParaPic");
}

DispParaListView::DispParaListView(std::int16_t slot, QWidget* parent)
    : DigitPic(slot, &DigitDocument::ListSurface, RulerHeight, "mnuDigitListPopMenu", parent) {
    setObjectName("DispParaListView");
    tag_ = new QLabel(this);
    tag_->setObjectName("dragflaglbl");
    tag_->setProperty("readout", true);
    tag_->setAttribute(Qt::WA_TransparentForMouseEvents);
    tag_->hide();
    scroll_ = new QTimer(this);
    scroll_->setObjectName("DragTimer");
    scroll_->setInterval(ScrollWait);
    connect(scroll_, &QTimer::timeout, this, &DispParaListView::ScrollDrag);
}

// The row that is held; with it go all selected nodes.
QString DispParaListView::DragText() const {
    const DigitDocument& document = DigitAt(Slot());
    const std::ptrdiff_t nodes = std::ranges::count_if(
        document.Nodes, [](const DigitNode& node) { return bool(node.WaveSelected); });
    const QString more = nodes > 1 ? " +" + QString::number(nodes - 1) : QString();
    const QString name = ToQt(TargetName(document, TargetAtRow(document, document.ListPressRow)));
    const int room = width() - 2 * TagMargin - 16 - tag_->fontMetrics().horizontalAdvance(more);
    return tag_->fontMetrics().elidedText(name, Qt::ElideMiddle, room) + more;
}

void DispParaListView::ShowDrag() {
    const DigitDocument& document = DigitAt(Slot());
    if (!document.ListDrag) {
        if (tag_->isHidden()) return;
        tag_->hide();
        scroll_->stop();
        unsetCursor();
        return;
    }
    if (tag_->isHidden()) {
        tag_->setText(DragText());
        tag_->adjustSize();
    }
    const QRect room = rect().adjusted(TagMargin, TagMargin, -TagMargin, -TagMargin);
    const QPoint wished = pointer_ + TagOffset;
    tag_->move(std::clamp(wished.x(), room.left(),
                          std::max(room.right() + 1 - tag_->width(), room.left())),
               std::clamp(wished.y(), room.top(),
                          std::max(room.bottom() + 1 - tag_->height(), room.top())));
    tag_->show();
    ShowCursor(this, document.ListDropNode >= 0 ? Qt::ClosedHandCursor : Qt::ForbiddenCursor);
    const bool beside = pointer_.y() < 0 || pointer_.y() >= height();
    if (beside && !scroll_->isActive()) scroll_->start();
    if (!beside) scroll_->stop();
}

void DispParaListView::ScrollDrag() {
    const DigitDocument& document = DigitAt(Slot());
    if (document.ListDrag) {
        ShowRowsFrom(Slot(), std::max(document.FirstRow + (pointer_.y() < 0 ? -1 : 1), 0));
        DispParaListView_MouseMove(Slot(), static_cast<float>(pointer_.y()));
    }
    ShowDrag();
}

void DispParaListView::paintEvent(QPaintEvent* event) {
    DigitPic::paintEvent(event);
    const DigitDocument& document = DigitAt(Slot());
    if (!document.ListDrag || document.ListDropNode < 0) return;
    const auto node = static_cast<std::size_t>(document.ListDropNode);
    const int row = node < document.Nodes.size() ? document.Nodes[node].Row
                                                 : static_cast<int>(document.ListRows.size());
    const int middle = static_cast<int>(std::lround((row - document.FirstRow) * RowHeight));
    const int top = std::clamp(middle - DropLine / 2, 0, std::max(height() - DropLine, 0));
    QPainter(this).fillRect(0, top, width(), DropLine, QColor::fromRgb(PlotPointer));
}

void DispParaListView::mousePressEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    DispParaListView_MouseDown(Slot(), ButtonOf(event->button()), x, y, AddOf(event->modifiers()));
}

void DispParaListView::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    pointer_ = event->position().toPoint();
    DispParaListView_MouseMove(Slot(), PlaceOf(*event).Y);
    ShowDrag();
}

void DispParaListView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) DispParaListView_MouseUp(Slot());
}

void DispParaListView::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    if (event->button() == Qt::LeftButton) DispParaListView_DblClick(Slot(), x, y);
}

// --- the ruler ----------------------------------------------------------------------------------

DigitBackWavePic::DigitBackWavePic(std::int16_t slot, QWidget* parent)
    : DigitPic(slot, &DigitDocument::ShownSurface, 0, "", parent) {
    setObjectName("DigitBackWavePic");
    setMouseTracking(true);
}

void DigitBackWavePic::mousePressEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    DigitBackWavePic_MouseDown(Slot(), ButtonOf(event->button()), x, y);
}

void DigitBackWavePic::mouseMoveEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    if (event->buttons() & Qt::LeftButton) DigitBackWavePic_MouseMove(Slot(), x);
    const bool held = DigitAt(Slot()).CaliperDrag || OnCaliperHandle(Slot(), x, y);
    ShowCursor(this, held ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

void DigitBackWavePic::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) DigitBackWavePic_MouseUp(Slot(), PlaceOf(*event).X);
}

// --- the picture --------------------------------------------------------------------------------

DigitWavePic::DigitWavePic(std::int16_t slot, QWidget* parent)
    : DigitPic(slot, &DigitDocument::ShownSurface, RulerHeight, "mnuDigitWavePicPopMenu", parent) {
    setObjectName("DigitWavePic");
    setMouseTracking(true);
}

void DigitWavePic::mousePressEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    DigitWavePic_MouseDown(Slot(), ButtonOf(event->button()), x, y);
}

void DigitWavePic::mouseMoveEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    DigitWavePic_MouseMove(Slot(), ButtonOf(event->buttons()), x, y);
    const DigitDocument& document = DigitAt(Slot());
    const bool inside =
        rect().contains(event->position().toPoint()) && PixelToDot(document, x) < document.Dots;
    emit PointerMoved(inside ? QString::fromStdString(DotText(document, document.MouseDot))
                             : QString());
}

void DigitWavePic::mouseReleaseEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    DigitWavePic_MouseUp(Slot(), ButtonOf(event->button()), x, y);
}

void DigitWavePic::mouseDoubleClickEvent(QMouseEvent* event) {
    const auto [x, y] = PlaceOf(*event);
    if (event->button() == Qt::LeftButton) DigitWavePic_DblClick(Slot(), x, y);
}

void DigitWavePic::leaveEvent(QEvent*) {
    emit PointerMoved({});
}

// --- between them -------------------------------------------------------------------------------

SeperateImage::SeperateImage(QWidget* parent) : QWidget(parent) {
    setObjectName("SeperateImage");
    setCursor(Qt::SizeHorCursor);
    setAttribute(Qt::WA_Hover);
}

void SeperateImage::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(PlotBack));
    const QColor line = QColor::fromRgb(underMouse() || hasFocus() ? PlotPointer : PlotAxis);
    const int wide = hasFocus() ? 3 : 1;
    painter.fillRect((width() - wide) / 2, 0, wide, height(), line);
}

void SeperateImage::mousePressEvent(QMouseEvent* event) {
    grip_ = event->position().toPoint().x();
}

void SeperateImage::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        emit Dragged(mapToParent(event->position().toPoint()).x() - grip_);
}

void SeperateImage::keyPressEvent(QKeyEvent* event) {
    const bool left = event->key() == Qt::Key_Left;
    if (!left && event->key() != Qt::Key_Right) return QWidget::keyPressEvent(event);
    emit Dragged(x() + (left ? -KeyStep : KeyStep));
}

void SeperateImage::focusInEvent(QFocusEvent*) {
    update();
}

void SeperateImage::focusOutEvent(QFocusEvent*) {
    update();
}
