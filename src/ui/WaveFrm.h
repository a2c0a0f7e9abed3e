#pragma once
// The window of an analog document: the plot with its scales below the caption. It shows the
// record's surfaces and holds no state of the document.
#include "ui/DocumentWindow.h"

class WavePic;

class WaveFrm : public DocumentWindow {
    Q_OBJECT
public:
    WaveFrm(std::int16_t slot, QWidget* parent);

    std::int16_t Slot() const { return slot_; }
    /// The slot as text, as the program finds the active document.
    QString Tag() const { return QString::number(slot_); }

    void ShowTitle();
    /// Sizes the record's surfaces to this window.
    void LayOut();
    void FollowSize() override;
    WavePic* Plot() const { return plot_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

private:
    std::int16_t slot_;
    WavePic* plot_;
};
