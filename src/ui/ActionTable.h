#pragma once
// The doors to the commands: one action for every button and menu entry, made from the rows of
// the command table and set from the records in one refresh.
#include <QHash>
#include <QObject>
#include <string_view>

class QAction;
class QMenu;
class QToolBar;
class QWidget;
struct CommandRow;
struct MenuRow;

class ActionTable : public QObject {
    Q_OBJECT
public:
    /// The actions belong to `window`, where their shortcuts work.
    explicit ActionTable(QWidget* window);

    /// The action of a tool button or menu entry; null for a name without a row.
    QAction* Find(std::string_view name) const;
    /// A menu with its entries and sub menus.
    QMenu* MakeMenu(const MenuRow& row, QWidget* parent);
    QToolBar* MakeToolBar(const MenuRow& row, QWidget* parent);

    /// Captions and tool tips in the current language.
    void ApplyTexts();
    /// Another tool tip for a button, with the shortcut of its row behind.
    void ShowTip(const CommandRow& row, const QString& tip);
    /// Enabled and checked states of all doors.
    void Refresh();

private:
    void AddAction(const CommandRow& row, std::string_view name, bool first);

    QWidget* window_;
    QHash<QString, QAction*> actions_;
    QHash<QString, QMenu*> menus_;
};
