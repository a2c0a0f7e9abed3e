#include "ui/TrayIcon.h"

#include <QEvent>
#include <QMenu>

TrayIcon::TrayIcon(QWidget* window, QMenu* menu, bool (*available)())
    : QObject(window), window_(window), available_(available) {
    icon_ = new QSystemTrayIcon(QIcon(":/icons/tidemark.svg"), this);
    icon_->setToolTip("TideMark");
    icon_->setContextMenu(menu);
    window->installEventFilter(this);
    connect(icon_, &QSystemTrayIcon::activated, this, [this](auto reason) {
        if (reason != QSystemTrayIcon::Context) emit Pressed();
    });
}

void TrayIcon::Remove() {
    icon_->hide();
}

bool TrayIcon::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::WindowStateChange)
        icon_->setVisible(window_->isMinimized() && available_());
    return false;
}
