#pragma once
// What goes on over the link: a line of text above a thin bar, and the button that ends it. All
// keep their place while the link is idle. In a dialog it is the last row, with the dialog's own
// buttons behind, and the text has the whole width.
#include <QWidget>

class HintLabel;
class QProgressBar;
class QPushButton;

class WaitPanel : public QWidget {
public:
    enum class Place { Dialog, Strip };

    /// `bar` is the name of the progress bar.
    WaitPanel(Place place, const char* bar, QWidget* parent);

    /// A button of the dialog, at the right end.
    void AddButton(QPushButton* button);

    /// Shows the state of the link's work: a share where a transfer has one, else that it goes on.
    void ShowWork(bool working);
    void ApplyTexts(const QString& button, const QString& tip);

private:
    HintLabel* awaited_;
    QProgressBar* bar_;
    QPushButton* cancel_;
};
