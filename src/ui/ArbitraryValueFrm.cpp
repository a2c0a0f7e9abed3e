#include "ui/ArbitraryValueFrm.h"

ArbitraryValueFrm::ArbitraryValueFrm(QWidget* parent)
    : ValueForm("ArbitraryValueFrm", parent, dialog_), dialog_(OpenArbitraryValue()) {
    AddRadix();
    NumberBox* number = AddValueBox("NumTxt", "NumLab", ValueBox::Value);
    Finish();
    number->setFocus();
}

void ArbitraryValueFrm::accept() {
    LeaveFocusedBox();
    EndWith(ConfirmArbitraryValue(dialog_));
}
