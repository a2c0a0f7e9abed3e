#pragma once
// The dialog that combines the selected run with the clipboard or a standard wave. It shows and
// collects; the rules stand in calculus/WaveMathFuncBox.
#include "calculus/WaveMathFuncBox.h"
#include "ui/DialogBase.h"

class WaveMathFrm final : public DialogBase {
public:
    explicit WaveMathFrm(QWidget* parent = nullptr);

    /// OK: confirms the result that is shown.
    void accept() override;

private:
    void BuildForm();
    void ChooseSource(int source);
    void ShowFields();

    WaveMathDialog dialog_;
    QComboBox *source_, *operation_;
    QPushButton* resume_;
    PlotPreview *operand_, *result_;
};
