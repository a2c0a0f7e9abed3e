#pragma once
// The dialog of a value to be written into the selection. Its rules stand in
// digital/ArbitraryValueFuncBox.
#include "digital/ArbitraryValueFuncBox.h"
#include "ui/DigitForm.h"

class ArbitraryValueFrm final : public ValueForm {
public:
    explicit ArbitraryValueFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    ValueBoxes dialog_;
};
