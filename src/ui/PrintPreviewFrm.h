#pragma once
// The print preview: the toolkit's own window with a page in it. Its tool bar has the program's
// icons, leaves out what only matters to several pages, and prints and sets up the way the menu
// does.
#include <QPrintPreviewDialog>

class QPrintPreviewWidget;

class PrintPreviewFrm : public QPrintPreviewDialog {
    Q_OBJECT

public:
    PrintPreviewFrm(QPrinter* printer, const QString& document, QWidget* parent);

    /// Paints the page anew, as after a change of the paper.
    void ShowPage();
    /// Device pixels of the screen to an inch of the paper, at the zoom in use.
    double PixelsPerInch() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    void PrintAsked();
    void SetUpAsked();

private:
    void DressToolBar();
    void DressView();
    /// The action that the toolkit gave this English text.
    QAction* ActionOf(const char* text) const;
    void Redirect(const char* text, void (PrintPreviewFrm::*asked)());

    QPrintPreviewWidget* page_;
    double painted_ = 0.0;  // PixelsPerInch at the last painting
};
