#pragma once
// The parts of a digital document's window that show its surfaces, each a stretch of one surface at
// the screen's own pixels. They forward mouse, wheel and keys to the procedures of the document.
#include <cstdint>
#include <QWidget>

class QLabel;
class QTimer;
class Surface;
struct DigitDocument;

// What all parts do: paint, wheel, keys.
class DigitPic : public QWidget {
    Q_OBJECT
public:
    /// Shows the surface from `top`, logical pixels. `menu` is the context menu of the menu key.
    DigitPic(std::int16_t slot, Surface DigitDocument::*surface, std::int32_t top, const char* menu,
             QWidget* parent);

signals:
    void ContextAsked(const QString& menu, QPoint global);

protected:
    std::int16_t Slot() const { return slot_; }
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool StepCaliper(const QKeyEvent& event) const;
    bool StepRow(const QKeyEvent& event) const;
    bool StepSpan(const QKeyEvent& event) const;
    bool MoveNodes(const QKeyEvent& event) const;

    std::int16_t slot_;
    Surface DigitDocument::*surface_;
    std::int32_t top_;
    const char* menu_;
    bool byKeys_ = false;  // the focus came by the Tab key: it is shown
    int wheel_ = 0;        // eighths of a degree that are not yet a notch
};

// The heads of the channel list, with the rows below as a child.
class DispParaPic : public DigitPic {
    Q_OBJECT
public:
    DispParaPic(std::int16_t slot, QWidget* parent);
};

// The rows of the list. While rows are dragged a tag with their name follows the pointer, and a
// line stands where they would drop.
class DispParaListView : public DigitPic {
    Q_OBJECT
public:
    DispParaListView(std::int16_t slot, QWidget* parent);

    /// Shows a drag of rows as the record has it, or that there is none.
    void ShowDrag();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QString DragText() const;
    void ScrollDrag();

    QLabel* tag_;
    QTimer* scroll_;  // moves the rows while the pointer is held above or below them
    QPoint pointer_;  // of a drag
};

// The ruler above the picture, with the handle of the caliper.
class DigitBackWavePic : public DigitPic {
    Q_OBJECT
public:
    DigitBackWavePic(std::int16_t slot, QWidget* parent);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

class DigitWavePic : public DigitPic {
    Q_OBJECT
public:
    DigitWavePic(std::int16_t slot, QWidget* parent);

signals:
    /// The dot under the pointer; empty outside of the waveform.
    void PointerMoved(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
};

// The line between list and picture, dragged or moved by the arrows.
class SeperateImage : public QWidget {
    Q_OBJECT
public:
    explicit SeperateImage(QWidget* parent);

signals:
    /// The split is wanted here, in the parent's pixels.
    void Dragged(int x);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int grip_ = 0;
};
