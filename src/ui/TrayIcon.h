#pragma once
// The program's icon in the system tray. It stands while the window is minimised, however that
// came about, and only where the desktop has a tray.
#include <QSystemTrayIcon>

class QMenu;

class TrayIcon : public QObject {
    Q_OBJECT
public:
    TrayIcon(QWidget* window, QMenu* menu,
             bool (*available)() = QSystemTrayIcon::isSystemTrayAvailable);

    void Remove();
    bool Stands() const { return icon_->isVisible(); }

signals:
    void Pressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window_;
    QSystemTrayIcon* icon_;
    bool (*available_)();
};
