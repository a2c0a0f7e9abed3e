#include "ui/WavePic.h"

#include "analog/DrawAnalogWave.h"
#include "analog/EditFuncBox.h"
#include "analog/EntryFuncBox.h"
#include "analog/KeyFuncBox.h"
#include "analog/LimitFuncBox.h"
#include "analog/MouseFuncBox.h"
#include "analog/ToolFuncBox.h"
#include "analog/ZoomFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/PlotPalette.h"
#include "platform/qt/QtText.h"
#include "platform/qt/SurfaceImage.h"
#include "ui/Controls.h"
#include "ui/PicMouse.h"

#include <algorithm>
#include <iterator>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>

namespace {

constexpr int Slack = 12;  // logical pixels around the plot that belong to it

// Light with a dark edge, so that it is seen on the plot and on the curve. The tip is the hot spot.
QCursor PencilCursor(qreal ratio) {
    QPixmap picture(QSize(24, 24) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainterPath pencil;
    pencil.addPolygon(QPolygonF({{1.5, 22.5}, {3.5, 16.0}, {16.5, 3.0}, {21.0, 7.5}, {8.0, 20.5}}));
    pencil.closeSubpath();
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x0B1015), 1.2));
    painter.setBrush(QColor(0xD5DDE3));
    painter.drawPath(pencil);
    painter.drawLine(QPointF(3.5, 16.0), QPointF(8.0, 20.5));
    painter.end();
    return QCursor(picture, 1, 22);
}

}  // namespace

WavePic::WavePic(std::int16_t slot, QWidget* parent) : QWidget(parent), slot_(slot) {
    setObjectName("WavePic");
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
}

QPoint WavePic::OnBack(const QPointF& place) const {
    return (place * devicePixelRatioF()).toPoint();
}

QPoint WavePic::OnPlot(const QPointF& place) const {
    const PixelPoint origin = PlotOrigin(devicePixelRatioF());
    return OnBack(place) - QPoint(origin.X, origin.Y);
}

bool WavePic::NearPlot(QPoint plot) const {
    const AnalogWaveRecord& wave = AnalogAt(slot_);
    const int slack = qRound(Slack * devicePixelRatioF());
    return QRect(0, 0, wave.PlotWidth, wave.PlotHeight)
        .adjusted(-slack, -slack, slack, slack)
        .contains(plot);
}

void WavePic::ShowToolCursor() {
    const Tool tool = ToolOf(AnalogAt(slot_));
    if (cursorTool_ == static_cast<int>(tool)) return;
    cursorTool_ = static_cast<int>(tool);
    switch (tool) {
        case Tool::HandDraw:
        case Tool::LineDraw:
            setCursor(PencilCursor(devicePixelRatioF()));
            break;
        case Tool::Select:
        case Tool::Idle:
            unsetCursor();
            break;
        default:
            setCursor(Qt::CrossCursor);
    }
}

void WavePic::mousePressEvent(QMouseEvent* event) {
    const QPoint back = OnBack(event->position()), plot = OnPlot(event->position());
    if (event->button() == Qt::LeftButton && PressScalePointer(slot_, back.x(), back.y())) return;
    if (NearPlot(plot)) WavePic_MouseDown(slot_, ButtonOf(event->button()), plot.x(), plot.y());
}

void WavePic::mouseMoveEvent(QMouseEvent* event) {
    const AnalogWaveRecord& wave = AnalogAt(slot_);
    const QPoint back = OnBack(event->position()), plot = OnPlot(event->position());
    if (wave.VPointerDragging || wave.HPointerDragging)
        DragScalePointer(slot_, back.x(), back.y());
    else
        WavePic_MouseMove(slot_, ButtonOf(event->buttons()), plot.x(), plot.y());
    const bool inside = QRect(0, 0, wave.PlotWidth, wave.PlotHeight).contains(plot);
    emit PointerMoved(inside ? QString::fromStdString(PointerText(wave, plot.x(), plot.y()))
                             : QString());
    if (event->buttons() == Qt::NoButton && ToolOf(wave) == Tool::Select) {
        const LimitLine line = LimitLineAt(wave, plot.x(), plot.y());
        ShowCursor(this, line == LimitLine::None ? Qt::ArrowCursor
                         : IsColumn(line)        ? Qt::SizeHorCursor
                                                 : Qt::SizeVerCursor);
    }
}

void WavePic::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint plot = OnPlot(event->position());
    if (event->button() == Qt::LeftButton) ReleaseScalePointer(AnalogAt(slot_));
    WavePic_MouseUp(slot_, ButtonOf(event->button()), plot.x(), plot.y());
}

void WavePic::mouseDoubleClickEvent(QMouseEvent* event) {
    const QPoint plot = OnPlot(event->position());
    if (event->button() == Qt::LeftButton && NearPlot(plot))
        WavePic_DblClick(slot_, plot.x(), plot.y());
}

// The wheel zooms along the time axis, with Ctrl along the amplitudes; Shift pans.
void WavePic::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (event->buttons() != Qt::NoButton) return;
    const bool sideways = event->angleDelta().y() == 0;
    const int notches = TakeNotches(*event, wheel_);
    if (notches == 0) return;
    const QPoint plot = OnPlot(event->position());
    const bool upright = event->modifiers() & Qt::ControlModifier;
    if (sideways || event->modifiers() & Qt::ShiftModifier)
        PanByWheel(slot_, notches, upright);
    else
        ZoomByWheel(slot_, plot.x(), plot.y(), notches, upright);
}

bool WavePic::StepTrack(const QKeyEvent& event) const {
    const Tool tool = ToolOf(AnalogAt(slot_));
    if (tool != Tool::CursorTrack && tool != Tool::PointEdit) return false;
    const int one = (event.modifiers() & Qt::ShiftModifier) ? 10 : 1;
    const std::int32_t all = AnalogAt(slot_).MaxDots;
    const std::pair<int, std::int32_t> steps[] = {{Qt::Key_Left, -one},    {Qt::Key_Right, one},
                                                  {Qt::Key_PageUp, -100},  {Qt::Key_Home, -all},
                                                  {Qt::Key_PageDown, 100}, {Qt::Key_End, all}};
    for (const auto& [key, step] : steps) {
        if (event.key() != key) continue;
        StepTrackedDot(slot_, step);
        return true;
    }
    return false;
}

bool WavePic::ForwardKey(const QKeyEvent& event) {
    constexpr std::pair<int, PlotKey> keys[] = {
        {Qt::Key_Left, PlotKey::Left},     {Qt::Key_Right, PlotKey::Right},
        {Qt::Key_Up, PlotKey::Up},         {Qt::Key_Down, PlotKey::Down},
        {Qt::Key_Home, PlotKey::Home},     {Qt::Key_End, PlotKey::End},
        {Qt::Key_PageUp, PlotKey::PageUp}, {Qt::Key_PageDown, PlotKey::PageDown},
        {Qt::Key_Space, PlotKey::Space}};
    const auto* found = std::ranges::find(keys, event.key(), &std::pair<int, PlotKey>::first);
    if (found == std::end(keys)) return false;
    const Qt::KeyboardModifiers held = event.modifiers();
    const KeyState state = {.Shift = held.testFlag(Qt::ShiftModifier),
                            .Control = held.testFlag(Qt::ControlModifier),
                            .Alt = held.testFlag(Qt::AltModifier),
                            .Repeats = event.isAutoRepeat()};
    if (!WavePic_KeyDown(slot_, found->second, state)) return false;
    const AnalogWaveRecord& wave = AnalogAt(slot_);
    if (state.Alt)  // where the limit line now stands
        emit PointerMoved(QString::fromStdString(PointerText(wave, wave.TrackX, wave.TrackY)));
    return true;
}

void WavePic::keyPressEvent(QKeyEvent* event) {
    const AnalogWaveRecord& wave = AnalogAt(slot_);
    const Tool tool = ToolOf(wave);
    if (event->key() == Qt::Key_Escape && tool != Tool::Select)
        LeaveTool(slot_);
    else if (event->key() == Qt::Key_Escape && wave.HasSelection)
        DropSelection(slot_);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        emit EntryAsked();
    else if (!StepTrack(*event) && !ForwardKey(*event))
        QWidget::keyPressEvent(event);
}

void WavePic::focusInEvent(QFocusEvent* event) {
    byKeys_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    update();
}

void WavePic::focusOutEvent(QFocusEvent*) {
    byKeys_ = false;
    update();
}

void WavePic::leaveEvent(QEvent*) {
    emit PointerMoved({});
}

void WavePic::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const AnalogWaveRecord& wave = AnalogAt(slot_);
    const double scale = devicePixelRatioF();
    painter.save();
    painter.scale(1.0 / scale, 1.0 / scale);
    painter.drawImage(0, 0, ImageOf(wave.BackSurface));
    const PixelPoint plot = PlotOrigin(scale);
    painter.drawImage(plot.X, plot.Y, ImageOf(wave.PlotSurface));
    painter.restore();
    if (wave.InUse && wave.Dots == 0) PaintHint(painter);
    if (!byKeys_) return;
    painter.setPen(QColor::fromRgb(PlotPointer));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// A new document says what to do next, between two grid lines and quietly.
void WavePic::PaintHint(QPainter& painter) {
    const QColor dim = QColor::fromRgb(ScreenColours.Label);
    painter.setPen(dim);
    QFont font = painter.font();
    font.setPixelSize(15);
    painter.setFont(font);
    const QRect area = rect().adjusted(LabelGutter + WaveAreaLeft, WaveAreaTop, -38, -28);
    painter.drawText(area.adjusted(0, 0, 0, -area.height() * 3 / 8),
                     Qt::AlignCenter | Qt::TextWordWrap, ToQt(TextOf("WaveFrm", "hint")));
}

// With the mouse the press itself opens the menu, by the tool that is on.
void WavePic::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() != QContextMenuEvent::Mouse) emit ContextAsked(event->globalPos());
}
