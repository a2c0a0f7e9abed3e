#pragma once
// The plot area of a document window: draws the back surface and the plot at the screen's own
// pixels, and forwards mouse, wheel and keys to the procedures of the tools.
#include <cstdint>
#include <QWidget>

class WavePic : public QWidget {
    Q_OBJECT
public:
    WavePic(std::int16_t slot, QWidget* parent);

    /// The mouse pointer of the tool in use.
    void ShowToolCursor();

signals:
    /// The menu key asks for the context menu.
    void ContextAsked(QPoint global);
    /// What lies under the pointer; empty outside of the plot.
    void PointerMoved(const QString& text);
    /// Enter: the user wants to type what the tool sets.
    void EntryAsked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void PaintHint(QPainter& painter);
    QPoint OnBack(const QPointF& place) const;  // device pixels of the back surface
    QPoint OnPlot(const QPointF& place) const;  // of the plot
    bool NearPlot(QPoint plot) const;
    bool StepTrack(const QKeyEvent& event) const;
    bool ForwardKey(const QKeyEvent& event);

    std::int16_t slot_;
    bool byKeys_ = false;  // the focus came by the Tab key: it is shown
    int cursorTool_ = -1;  // the `Tool` whose mouse pointer is set
    int wheel_ = 0;        // eighths of a degree that are not yet a notch
};
