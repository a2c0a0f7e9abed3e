#pragma once
// Shows a computed wave on a small plot: the whole of it, amplitudes -1 to 1, painted by the
// painter of the documents at the screen's own pixels.
#include "kernel/wavecalc.h"
#include "platform/Surface.h"

#include <QWidget>
#include <span>
#include <vector>

class PlotPreview : public QWidget {
public:
    explicit PlotPreview(QWidget* parent, const char* name = "PicPreview",
                         const QSize& least = {420, 260});

    // Both take the dots over and repaint. They begin at the left, wherever in a document they come
    // from, and the longer run fills the width. No dots leave the bare grid.
    void ShowDots(std::vector<WaveDot> dots);
    /// A second curve on the same scale, quiet and behind the first.
    void ShowUnder(std::span<const WaveDot> dots);

    QSize sizeHint() const override { return least_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Take(std::vector<WaveDot>& run, std::vector<WaveDot> dots);
    void PaintSurface(const QSize& pixels);

    QSize least_;
    std::vector<WaveDot> dots_, under_;
    Surface surface_;
    bool stale_ = true;  // surface_ does not show dots_ and under_
};

/// A key to a plot: a piece of its ground with one of its two curves.
class CurveKey : public QWidget {
public:
    CurveKey(bool under, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    bool under_;
};
