#pragma once
// Shows a computed wave on a small plot: the whole of it, amplitudes -1 to 1, painted by the
// painter of the documents at the screen's own pixels.
#include "kernel/wavecalc.h"
#include "platform/Surface.h"

#include <QWidget>
#include <vector>

class PlotPreview : public QWidget {
public:
    explicit PlotPreview(QWidget* parent, const char* name = "PicPreview",
                         const QSize& least = {420, 260});

    /// Takes the dots over and repaints. No dots leave the bare grid. `under` is a second curve on
    /// the same scale, quiet and behind the first; the longer one fills the width. Both begin at
    /// the left, wherever in a document they come from.
    void ShowDots(std::vector<WaveDot> dots, std::vector<WaveDot> under = {});

    QSize sizeHint() const override { return least_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
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
