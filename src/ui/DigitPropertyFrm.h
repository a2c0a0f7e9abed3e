#pragma once
// The property dialog of a digital document. It shows and collects; the rules stand in
// digital/DigitPropertyFuncBox.
#include "digital/DigitPropertyFuncBox.h"
#include "ui/DigitForm.h"

class DigitPropertyFrm final : public DigitForm {
public:
    /// Opens for a new document, or for the active one where EditDigitProperty is set.
    explicit DigitPropertyFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    void AddSpun(QGridLayout* form, NumberBox* box, const char* label, const char* up,
                 const char* down, void (*spin)(DigitPropertyDialog&, std::int32_t, bool));
    void AddRate(QGridLayout* form);
    void OnLeft(NumberBox* box, void (*leave)(DigitPropertyDialog&, std::string_view));
    void ShowFields();

    DigitPropertyDialog dialog_;
    NumberBox *dots_, *rate_, *position_;
    QComboBox* rateUnit_;
};
