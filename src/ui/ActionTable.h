#pragma once
// The doors to the commands: one action for every button and menu entry, made from the rows of
// the command table and set from the records in one refresh.
#include "frame/commands/CommandTable.h"

#include <QHash>
#include <QObject>
#include <string_view>

class QAction;
class QMenu;
class QToolBar;
class QWidget;

class ActionTable : public QObject {
    Q_OBJECT
public:
    /// The actions belong to `window`, where their shortcuts work.
    explicit ActionTable(QWidget* window);

    /// The action of a tool button or menu entry; null for a name without a row.
    QAction* Find(std::string_view name) const;
    /// A menu with its entries and sub menus.
    QMenu* MakeMenu(const MenuRow& row, QWidget* parent);
    /// A menu made before; null for another name.
    QMenu* FindMenu(std::string_view name) const;
    QToolBar* MakeToolBar(const MenuRow& row, QWidget* parent);

    /// Captions and tool tips in the current language.
    void ApplyTexts();
    /// Another tool tip for a button, with the shortcut of its row behind.
    void ShowTip(const CommandRow& row, const QString& tip);
    /// Gives the shortcuts to the entries of the menus that are shown for a kind of document.
    void ShowKind(ShownFor kind);
    /// Enabled and checked states of all doors.
    void Refresh();

private:
    void AddAction(const CommandRow& row, std::string_view name);

    QWidget* window_;
    QHash<QString, QAction*> actions_;
    QHash<QString, QMenu*> menus_;
    ShownFor kind_ = ShownFor::Both;  // none yet
};
