#pragma once
// The dialog of the low-pass filter. It shows and collects; the rules stand in
// calculus/FilterFuncBox.
#include "calculus/FilterFuncBox.h"
#include "ui/NumberForm.h"

#include <QTimer>

class QStackedLayout;

class LowPassSetFrm final : public NumberForm<LowPassDialog> {
public:
    explicit LowPassSetFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in and asks for patience; the filter runs, and the window
    /// closes, from a timer. Until then it can be neither confirmed again nor cancelled.
    void accept() override;
    void reject() override;

private:
    void ShowPreview(const LowPassDialog& dialog) override;
    QLayout* MakeButtons();
    void FilterPreview();
    void ShowWaiting();
    void Run();

    QTimer pause_{this};   // from the last key or tick to the preview
    QTimer timer2_{this};  // from OK to the filter
    bool waiting_ = false;
    QStackedLayout* buttons_ = nullptr;
};
