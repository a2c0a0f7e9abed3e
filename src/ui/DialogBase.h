#pragma once
// What all dialogs share: one grid of rows (label, field, unit), the two buttons at the bottom
// right, and texts from the table of window texts by object name. All distances are multiples of
// four pixels.
#include "frame/KeyFilter.h"
#include "ui/NumberBox.h"
#include "ui/SpinButton.h"

#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

class QComboBox;

inline constexpr int DialogMargin = 12;  // pixels around a dialog
inline constexpr int DialogRowGap = 8;   // between rows, and between a label and its field
inline constexpr int DialogUnitGap = 4;  // between a field and its unit or spin buttons
inline constexpr int DialogUnitWidth = 72;

class DialogBase : public QDialog {
public:
    /// `window` is the name of the window in the text table, and the object name.
    DialogBase(const char* window, QWidget* parent);

    /// Puts the texts of the current language on every named control.
    void ApplyTexts();

protected:
    /// An empty form of three columns. The label column is as wide as the window's widest label
    /// in either language, so that no language moves the fields.
    QGridLayout* MakeForm() const;

    NumberBox* MakeBox(const char* name, KeyKind kind);
    QComboBox* MakeUnits(const char* name, const QStringList& units);
    QLabel* MakeLabel(const char* name, QWidget* buddy = nullptr);
    /// Two buttons side by side, as wide as a unit list.
    QWidget* MakeSpinPair(SpinButton* up, SpinButton* down);
    SpinButton* MakeSpin(const char* name, bool up);

    /// Adds a row at the end of the form. Without a unit the field has its room too.
    void AddRow(QGridLayout* form, QLabel* label, QWidget* field, QWidget* unit);

    /// OK (the default) and Cancel in a row, at its right end.
    QLayout* MakeButtonRow();

    /// A default button or a mnemonic does not move the focus: hands over the box being typed in.
    void LeaveFocusedBox();
    /// The text of a row of this window, such as a list entry or an alternative label.
    QString RowText(const QString& control) const;
};
