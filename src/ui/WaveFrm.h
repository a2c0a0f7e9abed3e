#pragma once
// The window of an analog document: its own caption with title and ExtBtn, and the plot with its
// scales. It shows the record's surfaces and holds no state of the document.
#include <QWidget>

class QLabel;
class QToolButton;
class WavePic;

class WaveFrm : public QWidget {
    Q_OBJECT
public:
    WaveFrm(std::int16_t slot, QWidget* parent);

    std::int16_t Slot() const { return slot_; }
    /// The slot as text, as the program finds the active document.
    QString Tag() const { return QString::number(slot_); }

    void ShowTitle();
    void ApplyTexts();
    /// Sizes the record's surfaces to this window.
    void LayOut();
    WavePic* Plot() const { return plot_; }

signals:
    void ClosePressed();

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    std::int16_t slot_;
    QLabel* title_;
    QToolButton* close_;
    WavePic* plot_;
};
