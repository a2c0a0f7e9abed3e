#pragma once
// The status strip: one panel per tool, swapped in place, with its hint, its boxes or read-outs and
// its buttons; at the right what lies under the pointer, or the progress of long work, and whether
// an instrument is connected. Its height never changes.
#include <cstdint>
#include <map>
#include <QElapsedTimer>
#include <QHash>
#include <QWidget>
#include <string_view>

class ActionTable;
class FindPanel;
class NumberBox;
class QLabel;
class QLayout;
class QProgressBar;
class QStackedLayout;
class QStackedWidget;
class StripPanel;
class WaitPanel;
struct EntryRow;

class StatusStrip : public QWidget {
    Q_OBJECT
public:
    StatusStrip(const ActionTable& actions, QWidget* parent);

    /// Puts a text into a message label and brings its panel to the front.
    void ShowText(const QString& label, const QString& text);
    /// Writes boxes and read-outs of the document of a window; -1 empties them.
    void ShowEntries(std::int16_t tag);
    /// Dot, time and volts under the pointer; empty outside of a plot.
    void ShowPointer(const QString& text);
    /// Moves the focus to the first empty box of the panel in front, otherwise to its last one.
    void FocusEntry();
    /// Moves it to what is to be filled first in the panel for point edit and find, if that is in
    /// front.
    void FocusFindPanel();
    /// The leftmost control that the Tab key reaches; null where there is none.
    QWidget* FirstStop() const;
    void ApplyTexts();
    /// Work that lasts longer than a moment shows a bar; total 0 ends it. Returns true when the
    /// bar changed, so that the caller lets it repaint.
    bool ShowProgress(qint64 done, qint64 total);
    /// Shows the connection and, where the link works outside of a dialog, what it waits for.
    void ShowLink(bool working);

signals:
    /// Escape in a box: the user goes back to the plot.
    void Left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void PlaceWait();
    QWidget* MakeRight();
    QLayout* MakeSign();
    void AddPanel(StripPanel* panel, const char* name);
    void AddBox(const EntryRow& row);
    void AddReadOut(const char* panel, const char* caption, const char* label, int digits = 9);
    void AddButtons(const ActionTable& actions);

    QStackedWidget* panels_;
    FindPanel* find_;
    std::map<std::string_view, StripPanel*> panelOf_;  // by name
    std::map<std::string_view, QLabel*> readOuts_;     // by name
    QHash<int, NumberBox*> boxes_;                     // by Entry
    QStackedLayout* right_;
    QLabel* pointer_;
    QProgressBar* progress_;
    WaitPanel* wait_;
    QWidget* sign_;
    QLabel* link_;
    QElapsedTimer since_;
};
