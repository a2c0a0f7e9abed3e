#pragma once
// The dialog that writes a pattern into one named node or member. Its rules stand in
// digital/EvaluateFuncBox.
#include "digital/EvaluateFuncBox.h"
#include "ui/DigitForm.h"

class QStackedLayout;

class EvaluateFrm final : public ValueForm {
public:
    explicit EvaluateFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    void AddTarget();
    void AddOperations();
    void AddShared();
    void ShowBoxes() override;

    EvaluateDialog dialog_;
    QPushButton* operation_ = nullptr;
    NumberBox *start_ = nullptr, *increment_ = nullptr;
    NumberBox* shared_ = nullptr;             // value of Arbitrary, interval of Counting
    QStackedLayout* sharedLabels_ = nullptr;  // page 0 interval, 1 value
};
