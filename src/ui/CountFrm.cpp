#include "ui/CountFrm.h"

CountFrm::CountFrm(QWidget* parent) : ValueForm("CountFrm", parent, dialog_), dialog_(OpenCount()) {
    NumberBox* first = AddValueBox("TimeStartTxt", "TimeStartLab", ValueBox::First);
    AddValueBox("TimeEndTxt", "TimeEndLab", ValueBox::Last);
    AddRadix();
    AddValueBox("CountStartValuetxt", "CountStartValueLab", ValueBox::Start);
    AddValueBox("CountIncValueTxt", "CountIncValueLab", ValueBox::Increment);
    AddValueBox("CountInteTxt", "CountInteLab", ValueBox::Interval);
    Finish();
    first->setFocus();
}

void CountFrm::accept() {
    LeaveFocusedBox();
    EndWith(ConfirmCount(dialog_));
}
