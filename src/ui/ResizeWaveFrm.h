#pragma once
// The dialog that resizes the selected run. It shows and collects; the rules stand in
// calculus/ResizeFuncBox.
#include "calculus/ResizeFuncBox.h"
#include "ui/NumberForm.h"

class ResizeWaveFrm final : public NumberForm<ResizeDialog> {
public:
    explicit ResizeWaveFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    void ShowPreview(const ResizeDialog& dialog) override;
};
