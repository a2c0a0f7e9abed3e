#include "platform/Surface.h"

#include "platform/qt/QtText.h"
#include "platform/qt/SurfaceImage.h"
#include "platform/SafeFile.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <QBuffer>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <utility>
#include <vector>

// The image is RGB32, the format in which not-exclusive-or drawing undoes itself exactly. Single
// pixels, column runs, boxes, upright and level lines write the rows directly: a painter takes
// several times as long for a box in another mode than copying, and for dashes. Everything else
// goes through QPainter with pens of width 1, the only ones that are fast.
struct SurfaceData {
    QImage Image;
    double Scale = 1.0;
    DrawMode Mode = DrawMode::Copy;
    std::vector<QPoint> Points;       // reused by Polyline
    std::vector<std::int32_t> Cover;  // reused by FillColumns, all zero between calls
};

namespace {

constexpr QRgb Opaque = 0xFF000000U;

QRgb* RowOf(SurfaceData& data, std::int32_t y) {
    return reinterpret_cast<QRgb*>(data.Image.scanLine(y));
}

void UseMode(QPainter& painter, const SurfaceData& data) {
    if (data.Mode == DrawMode::NotXor)
        painter.setCompositionMode(QPainter::RasterOp_NotSourceXorDestination);
}

QFont TextFont(const SurfaceData& data, double size) {
    QFont font;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(size * data.Scale))));
    return font;
}

// Mixes `colour` into `under` by `weight` in 0..256, channel by channel.
QRgb Blend(QRgb under, QRgb colour, std::uint32_t weight) {
    const std::uint32_t rest = 256 - weight;
    const std::uint32_t redBlue =
        ((under & 0xFF00FFU) * rest + (colour & 0xFF00FFU) * weight) >> 8 & 0xFF00FFU;
    const std::uint32_t green =
        ((under & 0x00FF00U) * rest + (colour & 0x00FF00U) * weight) >> 8 & 0x00FF00U;
    return Opaque | redBlue | green;
}

constexpr double DashOn = 5.0, DashOff = 4.0;  // logical pixels

// An upright or level line, in copy mode, from the lower to the higher end.
void DrawStraight(SurfaceData& data, QPoint from, QPoint to, QRgb colour, bool dashed) {
    const auto [left, right] = std::minmax({from.x(), to.x()});
    const auto [top, bottom] = std::minmax({from.y(), to.y()});
    const bool level = top == bottom;
    const QRect box = QRect(QPoint(left, top), QPoint(right, bottom)) & data.Image.rect();
    if (box.isEmpty()) return;
    const auto on = static_cast<int>(std::lround(DashOn * data.Scale));
    const int period = on + static_cast<int>(std::lround(DashOff * data.Scale));
    const auto stride = data.Image.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    const int skipped = level ? box.left() - left : box.top() - top;
    QRgb* pixel = RowOf(data, box.top()) + box.left();
    const int count = level ? box.width() : box.height();
    for (int i = 0; i < count; ++i, pixel += level ? 1 : stride)
        if (!dashed || (i + skipped) % period < on) *pixel = colour;
}

// Copies the columns first..last of an image whose top left corner comes to (x, y).
void CopyPart(SurfaceData& data, const QImage& from, int x, int y, int first, int last) {
    first = std::max({first, 0, -x});
    const int count = std::min({last, from.width() - 1, data.Image.width() - 1 - x}) - first + 1;
    if (count <= 0) return;
    const int end = std::min(from.height(), data.Image.height() - y);
    for (int row = std::max(0, -y); row < end; ++row) {
        const QRgb* line = reinterpret_cast<const QRgb*>(from.constScanLine(row)) + first;
        std::copy_n(line, count, RowOf(data, row + y) + x + first);
    }
}

// Adds the steps of a run's coverage, 256 for a whole pixel, to a column: the running sum of the
// steps is the coverage of each row.
void AddRun(std::vector<std::int32_t>& steps, ColumnRun run, std::int32_t height, std::int32_t& low,
            std::int32_t& high) {
    const float top = std::max(run.Top, 0.0F);
    const float bottom = std::min(run.Bottom, static_cast<float>(height));
    if (!(top < bottom)) return;
    const auto edge = [&](float at, std::int32_t sign) {
        const auto row = static_cast<std::int32_t>(at);
        const auto part = static_cast<std::int32_t>((at - static_cast<float>(row)) * 256.0F);
        steps[static_cast<std::size_t>(row)] += sign * (256 - part);
        steps[static_cast<std::size_t>(row) + 1] += sign * part;
        return row;
    };
    low = std::min(low, edge(top, 1));
    high = std::max(high, edge(bottom, -1));
}

}  // namespace

const QImage& ImageOf(const Surface& surface) {
    static const QImage none;
    return surface.IsNull() ? none : surface.Data()->Image;
}

Surface::Surface() = default;
Surface::~Surface() = default;
Surface::Surface(Surface&&) noexcept = default;
Surface& Surface::operator=(Surface&&) noexcept = default;

bool Surface::Create(std::int32_t width, std::int32_t height, double scale) {
    data_.reset();
    if (width <= 0 || height <= 0) return false;
    QImage image(width, height, QImage::Format_RGB32);
    if (image.isNull()) return false;
    image.fill(Opaque);
    data_ = std::make_unique<SurfaceData>();
    data_->Image = std::move(image);
    data_->Scale = scale;
    return true;
}

void Surface::Free() {
    data_.reset();
}
std::int32_t Surface::Width() const {
    return data_ ? data_->Image.width() : 0;
}
std::int32_t Surface::Height() const {
    return data_ ? data_->Image.height() : 0;
}
double Surface::Scale() const {
    return data_ ? data_->Scale : 1.0;
}

void Surface::Fill(Colour colour) {
    if (data_) data_->Image.fill(Opaque | colour);
}

void Surface::CopyFrom(const Surface& source, std::int32_t x, std::int32_t y) {
    if (data_ && !source.IsNull())
        CopyPart(*data_, source.data_->Image, x, y, 0, source.Width() - 1);
}

void Surface::CopyColumns(const Surface& source, std::int32_t left, std::int32_t right) {
    if (data_ && !source.IsNull()) CopyPart(*data_, source.data_->Image, 0, 0, left, right);
}

void Surface::SetMode(DrawMode mode) {
    if (data_) data_->Mode = mode;
}

void Surface::Line(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                   Colour colour, bool dashed) {
    if (!data_) return;
    if ((x1 == x2 || y1 == y2) && data_->Mode == DrawMode::Copy) {
        DrawStraight(*data_, {x1, y1}, {x2, y2}, Opaque | colour, dashed);
        return;
    }
    QPainter painter(&data_->Image);
    UseMode(painter, *data_);
    QPen pen(QColor::fromRgb(colour), 1);
    if (dashed) pen.setDashPattern({DashOn * data_->Scale, DashOff * data_->Scale});
    painter.setPen(pen);
    painter.drawLine(x1, y1, x2, y2);
}

void Surface::Polyline(std::span<const PixelPoint> points, Colour colour) {
    if (!data_ || points.empty()) return;
    data_->Points.clear();
    for (const PixelPoint& point : points) data_->Points.emplace_back(point.X, point.Y);
    QPainter painter(&data_->Image);
    UseMode(painter, *data_);
    painter.setPen(QPen(QColor::fromRgb(colour), 1));
    painter.drawPolyline(data_->Points.data(), static_cast<int>(data_->Points.size()));
}

void Surface::Points(std::span<const PixelPoint> points, Colour colour) {
    if (!data_) return;
    const auto width = static_cast<std::uint32_t>(Width());
    const auto height = static_cast<std::uint32_t>(Height());
    const auto stride = static_cast<std::size_t>(data_->Image.bytesPerLine()) / sizeof(QRgb);
    QRgb* pixels = RowOf(*data_, 0);
    for (const PixelPoint& point : points) {
        const auto x = static_cast<std::uint32_t>(point.X);
        const auto y = static_cast<std::uint32_t>(point.Y);
        if (x < width && y < height) pixels[y * stride + x] = Opaque | colour;
    }
}

void Surface::FillBox(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
                      Colour colour) {
    if (!data_ || right < left || bottom < top) return;
    const QRect box = QRect(QPoint(left, top), QPoint(right, bottom)) & data_->Image.rect();
    if (box.isEmpty()) return;
    const QRgb source = Opaque | colour;
    for (int y = box.top(); y <= box.bottom(); ++y) {
        QRgb* const row = RowOf(*data_, y) + box.left();
        if (data_->Mode == DrawMode::Copy)
            std::fill_n(row, box.width(), source);
        else
            for (int x = 0; x < box.width(); ++x) row[x] = ~(row[x] ^ source) | Opaque;
    }
}

void Surface::FillColumns(std::int32_t x0, std::span<const ColumnRun> runs, std::int32_t samples,
                          Colour colour) {
    if (!data_ || samples < 1) return;
    const std::int32_t height = Height();
    const auto stride = static_cast<std::size_t>(data_->Image.bytesPerLine()) / sizeof(QRgb);
    const QRgb solid = Opaque | colour;
    const std::int32_t whole = 256 * samples - samples;  // less what rounding may lose
    std::vector<std::int32_t>& steps = data_->Cover;
    steps.resize(static_cast<std::size_t>(height) + 2);
    QRgb* origin = RowOf(*data_, 0);
    for (std::size_t i = 0; i + static_cast<std::size_t>(samples) <= runs.size();
         i += static_cast<std::size_t>(samples)) {
        const std::int32_t x = x0 + static_cast<std::int32_t>(i) / samples;
        if (x < 0 || x >= Width()) continue;
        std::int32_t low = height, high = -1;
        for (const ColumnRun& run : runs.subspan(i, static_cast<std::size_t>(samples)))
            AddRun(steps, run, height, low, high);
        std::int32_t cover = 0;
        QRgb* pixel = origin + static_cast<std::size_t>(low) * stride + x;
        for (std::int32_t row = low; row <= high; ++row, pixel += stride) {
            cover += std::exchange(steps[static_cast<std::size_t>(row)], 0);
            if (row == height || cover <= 0) continue;
            *pixel = cover >= whole
                         ? solid
                         : Blend(*pixel, solid, static_cast<std::uint32_t>(cover / samples));
        }
        steps[static_cast<std::size_t>(high) + 1] = 0;
    }
}

void Surface::Text(std::int32_t x, std::int32_t y, std::string_view text, Colour colour,
                   TextAlign align, double size) {
    if (!data_) return;
    QPainter painter(&data_->Image);
    const QFont font = TextFont(*data_, size);
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(colour));
    const QString shown = ToQt(text);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(shown);
    double left = x;
    if (align == TextAlign::Centre) left -= std::round(width / 2.0);
    if (align == TextAlign::Right) left -= width;
    const double base = y + std::round(metrics.capHeight() / 2.0);
    painter.drawText(QPointF(std::round(left), base), shown);
}

std::int32_t Surface::TextWidth(std::string_view text, double size) const {
    if (!data_) return 0;
    const QString shown = ToQt(text);
    return static_cast<std::int32_t>(
        std::ceil(QFontMetricsF(TextFont(*data_, size)).horizontalAdvance(shown)));
}

Colour Surface::Pixel(std::int32_t x, std::int32_t y) const {
    if (!data_ || !data_->Image.valid(x, y)) return 0;
    return data_->Image.pixel(x, y) & 0xFFFFFFU;
}

std::string Surface::SaveBitmap(const std::string& path) const {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!data_ || !data_->Image.save(&buffer, "bmp")) return FileErrorText(ENOMEM);
    const int error =
        WriteFileSafely(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return error == 0 ? std::string() : FileErrorText(error);
}
