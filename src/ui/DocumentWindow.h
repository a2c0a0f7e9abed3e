#pragma once
// What the windows of all documents share: a caption strip with title and buttons, a border, and
// the document's content below. Place and state are the document area's to decide.
#include <QWidget>

class QLabel;
class QToolButton;
class QVBoxLayout;

class DocumentWindow : public QWidget {
    Q_OBJECT
public:
    enum class State { Maximised, Normal, Minimised };

    explicit DocumentWindow(QWidget* parent);

    State ShownState() const { return state_; }
    /// Sets border and buttons for a state. The size is set by the caller, `FollowSize` afterwards
    /// where it did not change.
    void ShowState(State state);
    /// A bright title and a border in the accent colour for the active window.
    void ShowActive(bool active);
    void ApplyTexts();
    /// Fits the document's picture to the size of the window.
    virtual void FollowSize() = 0;

signals:
    void CaptionPressed();
    void MinimisePressed();
    /// MaxBtn or a double click on the caption: maximise, or restore what is not normal.
    void TogglePressed();
    void ClosePressed();
    /// The caption is dragged: the frame's top left corner is wanted here, in the area.
    void Dragged(QPoint to);

protected:
    void SetContent(QWidget* content);
    void SetTitle(const QString& title);
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    State state_ = State::Maximised;
    bool active_ = false;
    QWidget* strip_;
    QLabel* title_;
    QToolButton *minimise_, *maximise_, *close_;
    QVBoxLayout* column_;
    QPoint press_, grip_;  // of a drag: where it began on the screen, and inside the frame
    bool pressed_ = false, dragging_ = false;
};
