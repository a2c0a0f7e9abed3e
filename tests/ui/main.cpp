#include "platform/Settings.h"
#include "ui/Theme.h"

#include <gmock/gmock.h>
#include <fstream>
#include <QApplication>
#include <QTemporaryDir>

// One screen of the largest size supported, one a pixel wider and one a pixel higher.
constexpr const char* Screens = R"({"screens": [
    {"name": "largest", "x": 0, "y": 0, "width": 1280, "height": 1024},
    {"name": "wide", "x": 1280, "y": 0, "width": 1281, "height": 1024},
    {"name": "high", "x": 2561, "y": 0, "width": 1280, "height": 1025}]})";

// The tests of windows run on one application, with screens and a settings store of their own.
int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    const QTemporaryDir folder;
    std::ofstream(folder.filePath("screens.json").toStdString()) << Screens;
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + folder.filePath("screens.json").toUtf8());
    QApplication app(argc, argv);
    UseSettingsStore(folder.filePath("settings.ini").toStdString());
    ApplyTheme(app);
    return RUN_ALL_TESTS();
}
