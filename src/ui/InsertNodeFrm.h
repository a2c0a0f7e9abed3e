#pragma once
// The dialog of a node or bus, to insert, assemble or change it. Its rules stand in
// digital/InsertNodeFuncBox.
#include "digital/InsertNodeFuncBox.h"
#include "ui/DigitForm.h"

class InsertNodeFrm final : public DigitForm {
public:
    explicit InsertNodeFrm(QWidget* parent = nullptr);

    /// OK: hands over the box being typed in, then confirms.
    void accept() override;

private:
    NumberBox* AddDigits(QGridLayout* form, const char* name, const char* label,
                         void (*change)(InsertNodeDialog&, std::string_view),
                         std::string InsertNodeDialog::*text);

    InsertNodeDialog dialog_;
};
