#include "ui/FlashFrm.h"

#include "analog/DrawAnalogWave.h"
#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"

#include <cmath>
#include <numbers>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QSvgRenderer>

// The picture is the plot itself in both chromes: its ground, its grid, and a tide that runs out
// over the lower half in the colour of the curve.

namespace {

constexpr int FlashWidth = 480;
constexpr int FlashHeight = 280;
constexpr int GridPitch = 40;
constexpr double WaterLine = 204.0;  // pixels from the top
constexpr double TideHeight = 44.0;  // amplitude at the left edge, pixels

QColor Opaque(Colour colour) {
    return {static_cast<QRgb>(colour)};
}

// A damped sine: three and a half swings that fade towards the right.
QPainterPath TidePath() {
    QPainterPath path;
    for (int x = 0; x <= FlashWidth; x += 2) {
        const double part = static_cast<double>(x) / FlashWidth;
        const double swing = std::sin(part * 7.0 * std::numbers::pi) * std::exp(-2.2 * part);
        const QPointF point(x, WaterLine - TideHeight * swing);
        if (x == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

QLabel* PlaceText(QWidget* flash, const char* name, const QRect& place, double points, Colour ink,
                  bool bold) {
    auto* label = new QLabel(flash);
    label->setObjectName(QLatin1String(name));
    label->setGeometry(place);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setText(ToQt(TextOf("FlashFrm", name)));
    label->setStyleSheet(QStringLiteral("color: %1; font-size: %2px; font-weight: %3;")
                             .arg(Opaque(ink).name())
                             .arg(points)
                             .arg(bold ? 600 : 400));
    return label;
}

}  // namespace

FlashFrm::FlashFrm() : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("FlashFrm"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFixedSize(FlashWidth, FlashHeight);
    PlaceText(this, "NameLab", QRect(116, 40, 340, 40), 32, 0xF1F5F8, true);
    PlaceText(this, "LineLab", QRect(116, 80, 340, 24), 14, ScreenColours.Label, false);
    QLabel* version =
        PlaceText(this, "VersionLab", QRect(24, 244, 432, 20), 12, ScreenColours.Label, false);
    version->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    version->setText(version->text().arg(QLatin1String(TIDEMARK_VERSION)));
    setWindowTitle(findChild<QLabel*>(QStringLiteral("NameLab"))->text());
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->geometry();
        move(area.left() + (area.width() - width()) / 2,
             area.top() + (area.height() - height()) / 2);
    }
}

void FlashFrm::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Opaque(ScreenColours.Back));
    painter.setPen(Opaque(ScreenColours.Grid));
    for (int x = GridPitch; x < width(); x += GridPitch) painter.drawLine(x, 0, x, height());
    for (int y = GridPitch; y < height(); y += GridPitch) painter.drawLine(0, y, width(), y);

    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath tide = TidePath();
    QPainterPath water = tide;
    water.lineTo(width(), height());
    water.lineTo(0, height());
    water.closeSubpath();
    QLinearGradient depth(0, WaterLine - TideHeight, 0, height());
    QColor surface = Opaque(ScreenColours.Curve), ground = surface;
    surface.setAlphaF(0.22F);
    ground.setAlphaF(0.0F);
    depth.setColorAt(0.0, surface);
    depth.setColorAt(1.0, ground);
    painter.fillPath(water, depth);
    painter.setPen(QPen(Opaque(ScreenColours.Curve), 2.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(tide);

    QSvgRenderer logo(QStringLiteral(":/icons/tidemark.svg"));
    logo.render(&painter, QRectF(32, 40, 64, 64));
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(Opaque(ScreenColours.Axis));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void FlashFrm::mousePressEvent(QMouseEvent* event) {
    event->accept();
}
