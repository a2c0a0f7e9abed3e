#pragma once
// What the windows of all documents share: a caption strip with title and buttons, a border, and
// the document's content below. Place and state are the document area's to decide. A window shows
// the surfaces of its record and holds no state of the document.
#include <cstdint>
#include <QWidget>

class ButtonWalk;
class QLabel;
class QToolButton;
class QVBoxLayout;

class DocumentWindow : public QWidget {
    Q_OBJECT
public:
    enum class State { Maximised, Normal, Minimised };

    /// `tag` tells the windows apart: an analog slot, or a digital slot plus FirstDigitTag.
    DocumentWindow(std::int16_t tag, QWidget* parent);

    std::int16_t Tag() const { return tag_; }
    /// The slot of the document among those of its kind.
    std::int16_t Slot() const;

    State ShownState() const { return state_; }
    /// Sets border and buttons for a state. The size is set by the caller, `FollowSize` afterwards
    /// where it did not change.
    void ShowState(State state);
    /// A bright title and a border in the accent colour for the active window.
    void ShowActive(bool active);
    virtual void ApplyTexts();
    /// Fits the document's picture to the size of the window. A minimised one shows nothing of it:
    /// the surfaces wait as they are.
    void FollowSize();
    /// Sizes the record's surfaces to this window.
    virtual void LayOut() = 0;
    /// Shows the title from the record, with a mark behind that of a changed document.
    virtual void ShowTitle() = 0;
    /// Brings the record's surfaces to the screen.
    virtual void ShowPlot() { Picture()->update(); }
    /// The mouse pointer of the tool in use.
    virtual void ShowToolCursor() {}
    /// The Tab key must not wander into documents that lie behind the active one.
    virtual void LetTabIn(bool active);
    /// The widget that shows the document and takes the focus.
    virtual QWidget* Picture() const = 0;
    /// The buttons of the caption, for the keyboard.
    ButtonWalk* Buttons() const { return buttons_; }

    virtual bool IsOpen() const = 0;
    virtual bool IsChanged() const = 0;
    /// Asks to save a changed document; false when the window must stay.
    virtual bool QueryClose() = 0;
    /// The window has closed: frees the document.
    virtual void Closed() = 0;

signals:
    void CaptionPressed();
    void MinimisePressed();
    /// MaxBtn or a double click on the caption: maximise, or restore what is not normal.
    void TogglePressed();
    void ClosePressed();
    /// The caption is dragged: the frame's top left corner is wanted here, in the area.
    void Dragged(QPoint to);
    /// The menu key asks for a context menu.
    void ContextAsked(const QString& menu, QPoint global);
    /// The Tab key, which goes on in the main window: a window inside another one would keep it.
    void TabPressed(bool next);
    /// What lies under the pointer; empty outside of the plot.
    void PointerMoved(const QString& text);

protected:
    void SetContent(QWidget* content);
    void SetTitle(const std::string& name, bool changed);
    virtual void Repaint() = 0;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::int16_t tag_;
    State state_ = State::Maximised;
    bool active_ = false;
    QWidget* strip_;
    QLabel* title_;
    QToolButton *minimise_, *maximise_, *close_;
    ButtonWalk* buttons_;
    QVBoxLayout* column_;
    QPoint press_, grip_;  // of a drag: where it began on the screen, and inside the frame
    bool pressed_ = false, dragging_ = false;
};
