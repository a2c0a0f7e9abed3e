#include "app/TourDigits.h"
#include "app/TourHands.h"

#include "frame/HelpPages.h"
#include "frame/LoadLanguageCode.h"
#include "ui/Theme.h"
#include "ui/WaveFrm.h"
#include "ui/WavePic.h"

#include <cmath>
#include <numbers>
#include <QFileInfo>
#include <QImage>

// The pictures that the help shows, taken from the windows as they are now. A picture of the help
// is the same as long as a glance at both shows no difference; fonts may differ a little from
// system to system, a control that has moved does not pass.

namespace {

constexpr QSize PictureSize{960, 600};  // of the main window
constexpr QSize Glance{96, 60};
constexpr int MostDifference = 24;  // of 255, at any place of a glance

bool LooksLike(const QImage& taken, const QImage& shown) {
    if (shown.isNull()) return false;
    const auto glance = [](const QImage& image) {
        return image.scaled(Glance, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_Grayscale8);
    };
    const QImage one = glance(taken), other = glance(shown);
    for (int y = 0; y < Glance.height(); ++y)
        for (int x = 0; x < Glance.width(); ++x)
            if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > MostDifference)
                return false;
    return true;
}

QString Language() {
    return QFileInfo(QString::fromStdString(HelpFile())).fileName();
}

QImage TakeHelpPicture(TourState& tour, QWidget* window, const char* name) {
    Settle();
    const QString folder = tour.Folder.filePath("help/" + Language() + "/pictures");
    tour.Folder.mkpath(folder);
    QImage taken = window->grab().toImage().convertToFormat(QImage::Format_RGB888);
    const QString path = folder + "/" + name + ".png";
    if (!taken.save(path, "PNG", 0)) qFatal("cannot save %s", qPrintable(path));
    return taken;
}

// The help shows the dark look, on a screen of scale 1.
bool IsLookOfHelp(const QWidget* window) {
    return CurrentChrome().base.lightness() < 128 && window->devicePixelRatio() == 1;
}

void HelpPicture(TourState& tour, QWidget* window, const char* name) {
    const QImage taken = TakeHelpPicture(tour, window, name);
    if (!IsLookOfHelp(window)) return;
    const QString shown = QString::fromStdString(HelpFile()) + "/pictures/" + name + ".png";
    if (LooksLike(taken, QImage(shown))) return;
    Step(tour, qPrintable("the help shows " + Language() + ", " + name + " as it is"), false);
}

void HelpDialog(TourState& tour, const char* command, const char* name) {
    WithDialog([&] { Choose(tour, command); },
               [&](QWidget* dialog) {
                   Settle(400);  // previews wait for the last key
                   HelpPicture(tour, dialog, name);
               });
}

QWidget* Plot(const TourState& tour) {
    return tour.Window->AnalogWindow(ActiveAnalogIndex)->Plot();
}

void ShowDrawing(TourState& tour) {
    NewDocument(tour, "1000", "2", nullptr);
    HelpPicture(tour, tour.Window.get(), "main");
    Choose(tour, "MnuDraw_HandDraw");
    const QRect area = Plot(tour)->rect().adjusted(64, 60, -100, -60);
    const auto at = [&](int step) {
        const double part = step / 100.0;
        const double swing = std::sin(part * 5 * std::numbers::pi) * std::exp(-2 * part);
        return QPointF(area.left() + part * 0.8 * area.width(),
                       area.center().y() - swing * area.height() / 2)
            .toPoint();
    };
    Press(Plot(tour), at(0));
    for (int step = 1; step <= 100; ++step) MoveTo(Plot(tour), at(step));
    HelpPicture(tour, tour.Window.get(), "drawing");
    Release(Plot(tour), at(100));
    Choose(tour, "MnuEdit_SelectMode");
    HelpDialog(tour, "MnuMath_WinMath", "windowmath");
    DiscardDocument(tour);
}

void ShowAnalog(TourState& tour) {
    QWidget* window = tour.Window.get();
    NewDocument(tour, "4096", "2", nullptr);
    InsertFourWaves(tour, false);
    HelpPicture(tour, window, "analog");
    HelpDialog(tour, "WaveAresBtn0", "standard");
    WithDialog([&] { Choose(tour, "MnuDraw_InsertMathWave"); },
               [&](QWidget* dialog) {
                   TypeInto(Control(dialog, "ExpressionTxt"), "A*sin(2*pi*4*x)*exp(-3*x)");
                   Settle(400);
                   HelpPicture(tour, dialog, "equation");
               });
    Choose(tour, "MNuDraw_AreaLimit");
    HelpPicture(tour, window, "limits");
    Choose(tour, "MNuDraw_AreaLimit");
    DoubleClick(Plot(tour), Plot(tour)->rect().center());
    HelpPicture(tour, window, "editing");
    HelpDialog(tour, "MnuRework_Resize", "resize");
    HelpDialog(tour, "MnuMath_WaveMath", "math");
    PressKey(Plot(tour), Qt::Key_Escape);
    HelpDialog(tour, "MnuRework_property", "property");
    HelpDialog(tour, "MnuMath_Filter_LowPass", "filters");
    HelpDialog(tour, "MnuFile_PrintView", "preview");
    TurnWheel(Plot(tour), Plot(tour)->rect().center(), 3);
    HelpPicture(tour, window, "zoom");
    DiscardDocument(tour);
}

void ShowLink(TourState& tour) {
    const auto show = [&](const char* name) {
        return [&tour, name](QWidget* dialog) { HelpPicture(tour, dialog, name); };
    };
    HelpDialog(tour, "MnuTool_InstrumenuSel", "model");
    HelpDialog(tour, "MnuTool_Com", "connection");
    WithCatalogue(tour, "TransAresBtn", show("sending"));
    WithCatalogue(tour, "LoadAresBtn", show("upload"));
}

void ShowDigital(TourState& tour) {
    OpenPattern(tour);
    QWidget* window = tour.Window.get();
    HelpPicture(tour, window, "digital");
    HelpDialog(tour, "InsertNodeAresBtn", "buses");
    WithDialog([&] { DoubleClick(Pic(tour, "DigitWavePic"), At("sel", 2)); },
               [&](QWidget* dialog) { HelpPicture(tour, dialog, "values"); });
    WithCatalogue(tour, "TransAresBtn",
                  [&](QWidget* dialog) { HelpPicture(tour, dialog, "senddigit"); });
    Choose(tour, "mnuDigitDrawFind");
    TypeInto(Part(tour, "txtDigitX"), "5");
    Click(Part(tour, "FindOkAresBtn"));
    HelpPicture(tour, window, "find");
    Click(Pic(tour, "ExtBtn"));
}

}  // namespace

void MakeHelpPictures(TourState& tour) {
    const QSize size = tour.Window->size();
    const int failed = tour.Failed;
    tour.Window->resize(PictureSize);
    for (const char* language : {"MnuHelp_Lang_Ch", "MnuHelp_Lang_En"}) {
        Choose(tour, language);
        ShowDrawing(tour);
        ShowAnalog(tour);
        ShowLink(tour);
        ShowDigital(tour);
        QWidget* transcript = Transcript(tour);
        Settle(300);
        TakeHelpPicture(tour, transcript, "transcript");  // its times are never the same
        transcript->close();
    }
    tour.Window->resize(size);
    Step(tour, "the pictures of the help are those of the windows", tour.Failed == failed);
}
