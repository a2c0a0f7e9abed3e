#pragma once
// What all dialogs share: one grid of rows (label, field, unit), a plot at its right where there is
// one, the two buttons at the bottom right, and texts from the table of window texts by object
// name. All distances are multiples of four pixels.
#include "frame/KeyFilter.h"
#include "ui/NumberBox.h"
#include "ui/SpinButton.h"

#include <functional>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

class PlotPreview;
class QComboBox;
class QHBoxLayout;

inline constexpr int DialogMargin = 12;  // pixels around a dialog
inline constexpr int DialogRowGap = 8;   // between rows, and between a label and its field
inline constexpr int DialogUnitGap = 4;  // between a field and its unit or spin buttons
inline constexpr int DialogUnitWidth = 72;
inline constexpr int DialogFieldWidth = 136;  // of a number beside a plot, 12 digits

// The sign before a note: nothing for a read-out.
enum class NoteSign { Nothing, Warning, Fault };

class DialogBase : public QDialog {
public:
    /// `window` is the name of the window in the text table, and the object name.
    DialogBase(const char* window, QWidget* parent);

    /// Puts the texts of the current language on every named control.
    void ApplyTexts();

protected:
    /// F1 opens the page of the window.
    void keyPressEvent(QKeyEvent* event) override;

    /// An empty form of three columns. The label column is as wide as the window's widest label
    /// in either language, so that no language moves the fields.
    QGridLayout* MakeForm() const;

    /// A control of this window with its name.
    template <typename Control, typename... Arguments>
    Control* Make(const char* name, Arguments... arguments) {
        auto* control = new Control(arguments..., this);
        control->setObjectName(QLatin1String(name));
        return control;
    }
    NumberBox* MakeBox(const char* name, KeyKind kind) { return Make<NumberBox>(name, kind); }
    QComboBox* MakeUnits(const char* name, const QStringList& units);
    QLabel* MakeLabel(const char* name, QWidget* buddy = nullptr);
    /// Two buttons side by side, as wide as a unit list. `tick` is called as by SpinButton.
    QWidget* MakeSpins(const char* up, const char* down,
                       const std::function<void(int count, bool rises)>& tick);

    /// Adds a row at the end of the form. Without a unit the field has its room too.
    void AddRow(QGridLayout* form, QLabel* label, QWidget* field, QWidget* unit);

    /// Adds a row with a list of the entries, as wide as a number and its unit. Longer entries are
    /// shortened in their middle; the list's tool tip then has the chosen one in full.
    QComboBox* AddList(QGridLayout* form, const char* name, const char* label,
                       const QStringList& entries);
    /// The texts of list entries, rows such as "MathCmb0".
    QStringList EntryTexts(const char* list, int count) const;

    /// Adds a row for a note of `lines` lines. It keeps its place while there is nothing to tell,
    /// so that the window stays still.
    void AddNote(QGridLayout* form, int lines);
    void ShowNote(const std::string& note, NoteSign sign);

    QPushButton* MakeButton(const char* name);
    /// OK (the default) and Cancel in a row, at its right end.
    QHBoxLayout* MakeButtonRow();

    /// A plot with a line that names its curves below it, where the window has texts for them: rows
    /// such as "PicPreviewInfo" and, for the quiet curve, "PicPreviewUnderInfo".
    QLayout* MakePlot(PlotPreview* plot);
    /// The two side by side, the left one as narrow as it can be.
    static QLayout* MakeHalves(QLayout* left, QLayout* right);
    /// Lays the window out, rows above the buttons, and fixes its size.
    void LayOut(QLayout* rows, QLayout* buttons);

    /// A default button or a mnemonic does not move the focus: hands over the box being typed in.
    void LeaveFocusedBox();
    /// Ends the dialog, as cancelled where nothing has changed.
    void CloseAfter(bool changed);
    /// The text of a row of this window, such as a list entry or an alternative label.
    QString RowText(const QString& control) const;

private:
    QLabel *sign_ = nullptr, *note_ = nullptr;
};

/// F1 in a dialog of Qt's own opens the page of the window in use.
void GiveHelpKey(QDialog& dialog);

/// False while typing has emptied a number box, which changes nothing.
bool HasDigit(const QString& typed);
