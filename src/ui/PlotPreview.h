#pragma once
// Shows a computed wave on a small plot: the whole of it, amplitudes -1 to 1, painted by the
// painter of the documents at the screen's own pixels.
#include "kernel/wavecalc.h"
#include "platform/Surface.h"

#include <QWidget>
#include <vector>

class PlotPreview : public QWidget {
public:
    explicit PlotPreview(QWidget* parent);

    /// Takes the dots over and repaints. No dots leave the bare grid.
    void ShowDots(std::vector<WaveDot> dots);

    QSize sizeHint() const override { return {420, 260}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void PaintSurface(const QSize& pixels);

    std::vector<WaveDot> dots_;
    Surface surface_;
    bool stale_ = true;  // surface_ does not show dots_
};
