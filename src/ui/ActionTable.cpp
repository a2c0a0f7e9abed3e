#include "ui/ActionTable.h"

#include "frame/LoadLanguageCode.h"
#include "platform/qt/QtText.h"
#include "ui/Theme.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

// What stands on a button without a picture: the text of the label of the same stem.
std::string_view FaceOf(std::string_view button) {
    constexpr std::string_view Ending = "AresBtn";
    const std::string stem(button.substr(0, button.size() - Ending.size()));
    return TextOf("Mainfrm", stem + "Lab");
}

// An entry of a context menu shows the shortcut of its row, which works elsewhere: such a menu
// hangs on no window.
bool InContextMenu(std::string_view entry) {
    return entry.starts_with("MnuIdle_") || entry.starts_with("MnuSelect_") ||
           entry.find("PopMenu_") != entry.npos;
}

bool InDigitalMenu(std::string_view entry) {
    return (entry.starts_with("MnuDigit") || entry.starts_with("mnuDigit")) &&
           !InContextMenu(entry);
}

// The door whose action bears the shortcut while the menus of a kind are shown.
std::string_view BearerOf(const CommandRow& row, ShownFor kind) {
    if (kind == ShownFor::Digital)
        for (const std::string_view entry : row.Menus)
            if (InDigitalMenu(entry)) return entry;
    return row.Menus[0].empty() ? row.Button : row.Menus[0];
}

}  // namespace

ActionTable::ActionTable(QWidget* window) : QObject(window), window_(window) {
    for (const CommandRow& row : Commands()) {
        if (!row.Button.empty()) AddAction(row, row.Button);
        for (const std::string_view menu : row.Menus)
            if (!menu.empty()) AddAction(row, menu);
    }
    ShowKind(ShownFor::Analog);
}

void ActionTable::AddAction(const CommandRow& row, std::string_view name) {
    auto* action = new QAction(window_);
    action->setObjectName(ToQt(name));
    action->setCheckable(row.Checked != nullptr);
    if (!row.Icon.empty()) action->setIcon(ThemedIcon(ToQt(row.Icon)));
    const CommandRow* command = &row;
    // A switch shows the record, not the click: the refresh sets its mark again.
    connect(action, &QAction::triggered, this, [this, command] {
        RunCommand(*command);
        Refresh();
    });
    actions_.insert(action->objectName(), action);
}

QAction* ActionTable::Find(std::string_view name) const {
    return actions_.value(ToQt(name));
}

QMenu* ActionTable::MakeMenu(const MenuRow& row, QWidget* parent) {
    auto* menu = new QMenu(parent);
    menu->setObjectName(ToQt(row.Name));
    for (const std::string_view entry : row.Entries) {
        if (entry == "-") {
            menu->addSeparator();
        } else if (entry.front() == '>') {
            for (const MenuRow& popup : PopupMenus())
                if (popup.Name == entry.substr(1)) menu->addMenu(MakeMenu(popup, menu));
        } else {
            menu->addAction(Find(entry));
        }
    }
    menus_.insert(menu->objectName(), menu);
    return menu;
}

QMenu* ActionTable::FindMenu(std::string_view name) const {
    return menus_.value(ToQt(name));
}

QToolBar* ActionTable::MakeToolBar(const MenuRow& row, QWidget* parent) {
    auto* bar = new QToolBar(parent);
    bar->setObjectName(ToQt(row.Name));
    bar->setIconSize(QSize(24, 24));
    bar->setMovable(false);
    for (const std::string_view entry : row.Entries) {
        if (entry == "-") {
            bar->addSeparator();
            continue;
        }
        QAction* action = Find(entry);
        bar->addAction(action);
        bar->widgetForAction(action)->setObjectName(action->objectName());
    }
    return bar;
}

void ActionTable::ShowTip(const CommandRow& row, const QString& tip) {
    const QString shortcut = QKeySequence(ToQt(row.Shortcut)).toString(QKeySequence::NativeText);
    QAction* button = Find(row.Button);
    button->setText(tip);
    if (row.Icon.empty()) button->setIconText(ToQt(FaceOf(row.Button)));
    button->setToolTip(shortcut.isEmpty() ? tip : tip + " (" + shortcut + ")");
    for (QObject* door : button->associatedObjects())
        if (auto* shown = qobject_cast<QToolButton*>(door)) shown->setAccessibleName(tip);
}

void ActionTable::ApplyTexts() {
    for (const CommandRow& row : Commands()) {
        if (!row.Button.empty()) ShowTip(row, ToQt(TextOf("Mainfrm", row.Button)));
        for (const std::string_view menu : row.Menus)
            if (!menu.empty()) Find(menu)->setText(ToQt(TextOf("Mnufrm", menu)));
    }
    for (auto menu = menus_.begin(); menu != menus_.end(); ++menu) {
        const std::string name = menu.key().toStdString();
        (*menu)->setTitle(ToQt(TextOf("Mnufrm", name)));
    }
}

void ActionTable::ShowKind(ShownFor kind) {
    if (kind == kind_) return;
    kind_ = kind;
    for (const CommandRow& row : Commands()) {
        if (row.Shortcut.empty()) continue;
        const QKeySequence keys(ToQt(row.Shortcut));
        const std::string_view bearer = BearerOf(row, kind);
        const auto set = [&](std::string_view name) {
            if (name.empty()) return;
            QAction* action = Find(name);
            window_->removeAction(action);
            action->setShortcut(name == bearer || InContextMenu(name) ? keys : QKeySequence());
            if (name == bearer) window_->addAction(action);
        };
        set(row.Button);
        for (const std::string_view menu : row.Menus) set(menu);
    }
}

void ActionTable::Refresh() {
    for (const CommandRow& row : Commands()) {
        const CommandState state = StateOf(row);
        const auto set = [&](std::string_view name) {
            if (name.empty()) return;
            QAction* action = Find(name);
            action->setEnabled(state.Enabled);
            if (action->isCheckable()) action->setChecked(state.Checked);
        };
        set(row.Button);
        for (const std::string_view menu : row.Menus) set(menu);
    }
}
