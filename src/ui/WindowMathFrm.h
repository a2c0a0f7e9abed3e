#pragma once
// The dialog that combines one open document with another. It shows and collects; the rules stand
// in calculus/WindowMathFuncBox.
#include "calculus/WindowMathFuncBox.h"
#include "ui/DialogBase.h"

class WindowMathFrm final : public DialogBase {
public:
    explicit WindowMathFrm(QWidget* parent = nullptr);

    /// OK: confirms the result that is shown.
    void accept() override;

private:
    using Choose = void (*)(WindowMathDialog&, std::int16_t);

    void BuildForm();
    void ConnectList(QComboBox* list, Choose choose);
    void ShowFields();

    WindowMathDialog dialog_;
    QComboBox *source_, *math_, *operation_;
    QPushButton* resume_;
    PlotPreview* preview_;
};
