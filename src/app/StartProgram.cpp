#include "app/StartProgram.h"

#include "analog/ScreenColours.h"
#include "files/RecoveryFuncBox.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/StatusText.h"
#include "link/ConnectFuncBox.h"
#include "link/RS232FuncBox.h"
#include "link/USB_FuncBox.h"
#include "platform/Host.h"
#include "platform/qt/SerialPort.h"
#include "platform/VisaLibrary.h"
#include "ui/FlashFrm.h"
#include "ui/Mainfrm.h"
#include "ui/MainHost.h"

#include <chrono>
#include <cstdio>
#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QTimer>

namespace {

constexpr int SplashPause = 100;     // milliseconds
constexpr int RecoveryPause = 2000;  // between looks at what has changed, milliseconds

void InstallLink() {
    TheVisa() = LoadVisa();
    TheSerialPort() = QtSerialPort();
    TheSerialPort().OnEvent = RS232OnEvent;
    LoadLinkSettings();
    ScanUsbResources();
}

// What a held button is doing is not finished, and must not be disturbed.
void KeepSessionWhileRunning(Mainfrm* window) {
    auto* timer = new QTimer(window);
    QObject::connect(timer, &QTimer::timeout, window, [] {
        if (QGuiApplication::mouseButtons() == Qt::NoButton) KeepSession();
    });
    timer->start(RecoveryPause);
}

// The first paint event of the window is followed by those of its parts without a turn of the event
// loop; what is queued comes behind them all.
class FirstPaint final : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint) return false;
        watched->removeEventFilter(this);
        QMetaObject::invokeMethod(this, &FirstPaint::Tell, Qt::QueuedConnection);
        return false;
    }

private:
    static void Tell() {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        std::printf("%lld\n", static_cast<long long>(std::chrono::nanoseconds(now).count()));
        QCoreApplication::quit();
    }
};

}  // namespace

Mainfrm* StartProgram() {
    FlashFrm splash;
    splash.show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    auto* window = new Mainfrm;
    InitialiseGlobals();
    LoadScreenColours();
    InstallHost(*window);
    InstallLink();
    UseEnglish = 1;
    window->ApplyLanguage();
    window->RefreshCommands();
    ShowStatus(26);
    TheHost().Wait(SplashPause);
    splash.close();
    window->show();
    window->setFocus();  // otherwise the first tool button has it, as if it were to be pressed
    BeginSession();
    KeepSessionWhileRunning(window);
    return window;
}

void EndWhenPainted(Mainfrm* window) {
    window->installEventFilter(new FirstPaint(window));
}
