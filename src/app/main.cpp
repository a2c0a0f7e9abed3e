// TideMark, a desktop editor for arbitrary waveforms.
//
// Usage: tidemark [--tour FOLDER]
// The tour drives the real windows through the editor's main road and leaves pictures and files.
#include "app/StartProgram.h"
#include "app/Tour.h"
#include "ui/Mainfrm.h"
#include "ui/Theme.h"

#include <memory>
#include <QApplication>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("TideMark");
    QApplication::setDesktopFileName("tidemark");
    ApplyTheme(app);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == "--tour") return RunTour(arguments[2]);
    const std::unique_ptr<Mainfrm> window(StartProgram());
    return QApplication::exec();
}
