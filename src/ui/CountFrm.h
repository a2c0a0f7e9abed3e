#pragma once
// The dialog of a counter to be written into the selected nodes. Its rules stand in
// digital/CountFuncBox.
#include "digital/CountFuncBox.h"
#include "ui/DigitForm.h"

class CountFrm final : public ValueForm {
public:
    explicit CountFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    ValueBoxes dialog_;
};
