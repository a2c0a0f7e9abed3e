#pragma once
// The dialog of the moving average. It shows and collects; the rules stand in
// calculus/FilterFuncBox.
#include "calculus/FilterFuncBox.h"
#include "ui/NumberForm.h"

class SmoothSetFrm final : public NumberForm<SmoothDialog> {
public:
    explicit SmoothSetFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    void ShowPreview(const SmoothDialog& dialog) override;
};
