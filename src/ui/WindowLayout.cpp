#include "ui/WindowLayout.h"

// A tiling in columns is the only one that is computed. Rows are columns of the area turned over
// its diagonal.

namespace {

constexpr int CascadeStep = 33;  // shows the caption behind
constexpr int ReachableAcross = 80;
constexpr int ReachableDown = 33;  // the whole caption

struct Stretch {
    int From, Length;
};

// Part `index` of `parts` that share `length` to the last pixel.
Stretch ShareOf(int length, int parts, int index, int smallest) {
    const int from = length * index / parts;
    const int share = length * (index + 1) / parts - from;
    if (share >= smallest) return {from, share};
    return {qMax(0, qMin(from, length - smallest)), smallest};
}

int ColumnsFor(QSize area, QSize smallest, int count) {
    int usual = 1;
    while ((usual + 1) * (usual + 1) <= count) ++usual;
    for (int columns = usual; columns <= count; ++columns) {
        const int rows = (count + columns - 1) / columns;
        if (area.width() / columns >= smallest.width() && area.height() / rows >= smallest.height())
            return columns;
    }
    return usual;
}

// The last columns hold one window more where the count does not come out even.
QList<QRect> TileInColumns(QSize area, QSize smallest, int count) {
    QList<QRect> places;
    const int columns = ColumnsFor(area, smallest, count);
    for (int column = 0; column < columns; ++column) {
        const int rows = count / columns + (column >= columns - count % columns ? 1 : 0);
        const Stretch across = ShareOf(area.width(), columns, column, smallest.width());
        for (int row = 0; row < rows; ++row) {
            const Stretch down = ShareOf(area.height(), rows, row, smallest.height());
            places << QRect(across.From, down.From, across.Length, down.Length);
        }
    }
    return places;
}

QList<QRect> TileInRows(QSize area, int count) {
    QList<QRect> places = TileInColumns(area.transposed(), SmallestTile.transposed(), count);
    for (QRect& place : places) place = QRect(place.y(), place.x(), place.height(), place.width());
    return places;
}

// Two thirds of the area. When the lower edge is reached the next run starts a step further right.
QRect CascadePlace(QSize area, int index) {
    const QSize size =
        QSize(area.width() * 2 / 3, area.height() * 2 / 3).expandedTo(SmallestWindow);
    const int stepsDown = qMax(0, area.height() - size.height()) / CascadeStep + 1;
    const int stepsAcross = qMax(0, area.width() - size.width()) / CascadeStep + 1;
    const int down = index % stepsDown;
    const int across = (down + index / stepsDown) % stepsAcross;
    return {QPoint(across, down) * CascadeStep, size};
}

QRect IconPlace(QSize area, int index) {
    const int width = IconSize.width() + IconGap;
    const int inRow = qMax(1, (area.width() - IconGap) / width);
    const int left = IconGap + index % inRow * width;
    const int up = (index / inRow + 1) * (IconSize.height() + IconGap);
    return {QPoint(left, area.height() - up), IconSize};
}

}  // namespace

QList<QRect> PlaceWindows(WindowArrangement kind, QSize area, int count) {
    if (count <= 0) return {};
    if (kind == WindowArrangement::Horizontal) return TileInColumns(area, SmallestTile, count);
    if (kind == WindowArrangement::Vertical) return TileInRows(area, count);
    QList<QRect> places;
    for (int i = 0; i < count; ++i)
        places << (kind == WindowArrangement::Icons ? IconPlace(area, i) : CascadePlace(area, i));
    return places;
}

QPoint KeepReachable(const QRect& window, QSize area) {
    const int leftmost = ReachableAcross - window.width();
    const int rightmost = area.width() - ReachableAcross;
    const int lowest = area.height() - ReachableDown;
    return {qMax(leftmost, qMin(window.x(), rightmost)), qMax(0, qMin(window.y(), lowest))};
}
