#include "platform/Settings.h"
#include "ui/Theme.h"

#include <gmock/gmock.h>
#include <QApplication>
#include <QTemporaryDir>

// The tests of windows run on one application, with a settings store of their own.
int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    QApplication app(argc, argv);
    const QTemporaryDir folder;
    UseSettingsStore(folder.filePath(QStringLiteral("settings.ini")).toStdString());
    ApplyTheme(app);
    return RUN_ALL_TESTS();
}
