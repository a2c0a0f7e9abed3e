#pragma once
// The window of an analog document: the plot with its scales below the caption.
#include "ui/DocumentWindow.h"

class WavePic;

class WaveFrm : public DocumentWindow {
    Q_OBJECT
public:
    WaveFrm(std::int16_t slot, QWidget* parent);

    void ShowTitle() override;
    void LayOut() override;
    void ShowToolCursor() override;
    QWidget* Picture() const override;
    bool IsOpen() const override;
    bool IsChanged() const override;
    bool QueryClose() override;
    void Closed() override;
    WavePic* Plot() const { return plot_; }

protected:
    void Repaint() override;

private:
    WavePic* plot_;
};
