#pragma once
// What the dialogs of digital documents share: lists of radices, the end that OK comes to, and
// boxes of values in a radix.
#include "digital/ValueBoxes.h"
#include "ui/DialogBase.h"

#include <map>

class QComboBox;

class DigitForm : public DialogBase {
protected:
    using DialogBase::DialogBase;

    QComboBox* AddRadixList(QGridLayout* form, const char* name, const char* label);
    /// Ends the dialog as OK says, or brings the focus to what is to be mended: the first empty
    /// box, otherwise the first of all.
    void EndWith(DialogEnd end);
};

/// A dialog of ValueBoxes.
class ValueForm : public DigitForm {
protected:
    /// `boxes` is of the window derived from this and is first used by it.
    ValueForm(const char* window, QWidget* parent, ValueBoxes& boxes);

    NumberBox* MakeValueBox(const char* name, ValueBox which);
    /// The same in a row of the form.
    NumberBox* AddValueBox(const char* name, const char* label, ValueBox which);
    /// A box of the window holds another number from now on.
    void Bind(NumberBox* box, ValueBox which) { bound_[box] = which; }
    /// The list "RadixCmb".
    void AddRadix();
    /// Adds the range of the values and the buttons, then fills the window.
    void Finish();
    virtual void ShowBoxes();

    ValueBoxes& boxes_;
    QGridLayout* form_;
    QComboBox* radix_ = nullptr;

private:
    std::map<NumberBox*, ValueBox> bound_;
};
