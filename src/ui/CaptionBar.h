#pragma once
// The window's own caption: logo, title, dragflaglbl that moves the window, and the three buttons.
// Moves go through the window system; where it declines, the bar moves the window itself.
#include <functional>
#include <QWidget>

class QLabel;
class QToolButton;

class CaptionBar : public QWidget {
    Q_OBJECT
public:
    explicit CaptionBar(QWidget* window);

    void ApplyTexts();
    /// The document shown in the middle; empty for none.
    void ShowDocument(const QString& name);
    void ShowMaximised(bool maximised);

signals:
    /// A drag is about to move the window; the pointer is at `global`.
    void MoveBegins(QPoint global);
    void MinimisePressed();
    void MaximisePressed();
    void ExitPressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* drag_;
    QToolButton *minimise_, *maximise_, *exit_;
    QPoint grip_;          // press inside the window while it moves by hand
    bool moving_ = false;  // the window system declined: moved by hand
    bool pressed_ = false;
};

/// A button of a caption strip.
QToolButton* MakeCaptionButton(QWidget* strip, const char* name, const char* icon, QSize size);

/// Grips along the edges and corners of a window without a system frame, or of a widget that serves
/// as a window inside its parent. They keep the smallest size; `begins` is called before a resize.
void AddEdgeGrips(QWidget* window, QSize smallest, const std::function<void()>& begins = {});
void ShowEdgeGrips(QWidget* window, bool shown);
