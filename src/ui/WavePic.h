#pragma once
// The plot area of a document window: draws the back surface and the plot at the screen's own
// pixels.
#include <QWidget>

class WavePic : public QWidget {
    Q_OBJECT
public:
    WavePic(std::int16_t slot, QWidget* parent);

signals:
    void ContextAsked(QPoint global);

protected:
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void PaintHint(QPainter& painter);

    std::int16_t slot_;
};
