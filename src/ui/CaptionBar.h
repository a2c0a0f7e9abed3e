#pragma once
// The window's own caption: logo, title, dragflaglbl that moves the window, and the three buttons.
// Moves go through the window system; where it declines, the bar moves the window itself.
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
    void MinimisePressed();
    void MaximisePressed();
    void ExitPressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolButton* MakeButton(const char* name, const char* icon);

    QLabel* drag_;
    QToolButton *minimise_, *maximise_, *exit_;
    QPoint grip_;          // press inside the window while it moves by hand
    bool moving_ = false;  // the window system declined: moved by hand
    bool pressed_ = false;
};

/// Grips along the edges and corners of a window without a system frame.
void AddEdgeGrips(QWidget* window);
