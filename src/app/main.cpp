// TideMark, a desktop editor for arbitrary waveforms.
//
// Usage: tidemark [--tour FOLDER] [FILE...]
// The tour drives the real windows through the editor's main road and leaves pictures and files.
#include "app/CommandLine.h"
#include "app/StartProgram.h"
#include "app/Tour.h"
#include "files/OpenFileFuncBox.h"
#include "files/RecoveryFuncBox.h"
#include "ui/Mainfrm.h"
#include "ui/Theme.h"

#include <memory>
#include <QApplication>

int main(int argc, char** argv) {
    const CommandLine line = ReadCommandLine(argc, argv);
    if (line.ExitStatus) return *line.ExitStatus;
    QApplication app(argc, argv);
    QApplication::setApplicationName("TideMark");
    QApplication::setDesktopFileName("tidemark");
    ApplyTheme(app);
    if (!line.TourFolder.isEmpty()) return RunTour(line.TourFolder);
    const std::unique_ptr<Mainfrm> window(StartProgram());
    RestoreSession();
    for (const QString& file : line.Files) OpenWaveFile(file.toStdString());
    if (line.UntilPainted) EndWhenPainted(window.get());
    const int status = QApplication::exec();
    EndSession();
    return status;
}
