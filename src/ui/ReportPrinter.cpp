#include "ui/ReportPrinter.h"

#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"
#include "platform/qt/QtText.h"
#include "ui/DialogBase.h"
#include "ui/PrintPreviewFrm.h"

#include <algorithm>
#include <memory>
#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QStandardPaths>
#include <QtMath>

// Places count from the paper's edge, so the printer always has full pages: its own margins only
// cut off what it cannot reach. What a page needs is set again before each use, because the dialogs
// of the toolkit set the whole page layout.

namespace {

constexpr int MostResolution = 600;  // dots per inch; a bitmap of a page has 37 megabytes then
constexpr int DialogWidth = 480, PropertiesWidth = 104;  // pixels; its own are too narrow
constexpr qint64 PdfTail = 1024;  // bytes at a file's end that its end mark stands in

struct Service {
    QPrinter Printer{QPrinter::HighResolution};
    bool SetUp = false;  // the user has chosen printer or file
};
std::unique_ptr<Service> service;

// Made at the first use, since to look for printers takes time; it must not outlive the
// application.
Service& TheService() {
    if (!service) {
        service = std::make_unique<Service>();
        service->Printer.setPageSize(QPageSize(QPageSize::Letter));
        qAddPostRoutine([] { service.reset(); });
    }
    return *service;
}

QPrinter& ReadyPrinter() {
    QPrinter& printer = TheService().Printer;
    printer.setFullPage(true);
    if (printer.resolution() > MostResolution) printer.setResolution(MostResolution);
    return printer;
}

bool IsPdf(const QPrinter& printer) {
    return printer.outputFormat() == QPrinter::PdfFormat;
}

bool HasPrinter() {
    return TheService().SetUp || !QPrinterInfo::defaultPrinter().isNull();
}

// A file in the user's folder of documents, named after what is printed.
QString ProposedFile(const QPrinter& printer) {
    QString name = printer.docName().isEmpty() ? QStringLiteral("TideMark") : printer.docName();
    name.replace(u'/', u'-');
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(QDir(folder).exists() ? folder : QDir::homePath()).filePath(name + ".pdf");
}

// What the dialog may change before its OK.
struct PrinterChoice {
    QString Name, File;
    QPrinter::OutputFormat Format;
    QPageLayout Layout;
    QPrinter::ColorMode Colours;
    QPrinter::DuplexMode Duplex;
    int Copies;
    bool Collate;
};

PrinterChoice ChoiceOf(const QPrinter& printer) {
    return {printer.printerName(), printer.outputFileName(), printer.outputFormat(),
            printer.pageLayout(),  printer.colorMode(),      printer.duplex(),
            printer.copyCount(),   printer.collateCopies()};
}

void Restore(QPrinter& printer, const PrinterChoice& choice) {
    if (!choice.Name.isEmpty()) printer.setPrinterName(choice.Name);
    printer.setOutputFileName(choice.File);  // a name that ends with ".pdf" sets the format as well
    printer.setOutputFormat(choice.Format);
    printer.setPageLayout(choice.Layout);
    printer.setColorMode(choice.Colours);
    printer.setDuplex(choice.Duplex);
    printer.setCopyCount(choice.Copies);
    printer.setCollateCopies(choice.Collate);
}

// Words and sizes the toolkit's dialog; it proposes a file on some desktops only.
void DressPrintDialog(QPrintDialog& dialog, bool setUp) {
    dialog.setObjectName(QStringLiteral("PrinterSetup"));
    GiveHelpKey(dialog);
    dialog.setWindowTitle(ToQt(setUp ? TextOf("PrinterSetup", "") : PickText("Print", "打印")));
    dialog.setMinimumWidth(DialogWidth);
    if (auto* properties = dialog.findChild<QPushButton*>(QStringLiteral("properties")))
        properties->setMinimumWidth(PropertiesWidth);
    for (QAbstractSpinBox* box : dialog.findChildren<QAbstractSpinBox*>())
        box->setButtonSymbols(QAbstractSpinBox::NoButtons);
    auto* buttons = dialog.findChild<QDialogButtonBox*>();
    QPushButton* confirm = buttons ? buttons->button(QDialogButtonBox::Ok) : nullptr;
    if (setUp && confirm != nullptr) confirm->setText(ToQt(PickText("OK", "确定")));
    auto* file = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
    if (file != nullptr && dialog.printer()->outputFileName().isEmpty())
        file->setText(ProposedFile(*dialog.printer()));
}

// The printer dialog; `setUp`: it only chooses and its button does not print.
bool RunPrintDialog(QWidget* parent, bool setUp) {
    QPrinter& printer = ReadyPrinter();
    const PrinterChoice before = ChoiceOf(printer);
    QPrintDialog dialog(&printer, parent);
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize);
    DressPrintDialog(dialog, setUp);
    if (dialog.exec() == QDialog::Accepted) return TheService().SetUp = true;
    Restore(printer, before);
    return false;
}

// The engine does not tell when the disk is full: the end of the file does.
bool IsWholePdf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    file.seek(std::max<qint64>(file.size() - PdfTail, 0));
    return file.readAll().contains("%%EOF");
}

bool PrintPage(const QImage& picture, const Report& report) {
    QPrinter& printer = ReadyPrinter();
    const bool pdf = IsPdf(printer);
    printer.setDocName(ToQt(report.Title));
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    PaintPage(painter, picture, report);
    if (!painter.end() || printer.printerState() == QPrinter::Error) return false;
    return !pdf || IsWholePdf(printer.outputFileName());
}

enum class Outcome { Printed, Cancelled, Failed };

// Asks for what is missing, a printer or the leave to replace a file, and prints.
Outcome PrintOrAsk(QWidget* parent, const QImage& picture, const Report& report) {
    QPrinter& printer = TheService().Printer;
    const bool ask = !HasPrinter();
    printer.setDocName(ToQt(report.Title));  // the dialog proposes a file of this name
    if (ask && !RunPrintDialog(parent, false)) return Outcome::Cancelled;
    // The dialog asks about a file that exists.
    if (!ask && IsPdf(printer) && !MayReplaceFile(printer.outputFileName().toStdString()))
        return Outcome::Cancelled;
    return PrintPage(picture, report) ? Outcome::Printed : Outcome::Failed;
}

// A picture of twice the pixels that are seen, whose halving keeps thin lines.
QImage ShrunkFor(const QImage& picture, const Report& report, double pixelsPerInch) {
    const int width = qCeil(2 * report.Width * pixelsPerInch);
    if (width <= 0 || width >= picture.width()) return picture;
    return picture.scaledToWidth(width, Qt::SmoothTransformation);
}

bool Preview(QWidget* parent, const QImage& picture, const Report& report) {
    QPrinter& printer = ReadyPrinter();
    printer.setDocName(ToQt(report.Title));
    bool faultless = true;
    PrintPreviewFrm window(&printer, ToQt(report.Title), parent);
    QObject::connect(&window, &QPrintPreviewDialog::paintRequested, &window, [&](QPrinter* page) {
        QPainter painter(page);
        PaintPage(painter, ShrunkFor(picture, report, window.PixelsPerInch()), report);
    });
    QObject::connect(&window, &PrintPreviewFrm::PrintAsked, &window, [&] {
        const Outcome outcome = PrintOrAsk(&window, picture, report);
        faultless = outcome != Outcome::Failed;
        if (outcome != Outcome::Cancelled) window.accept();
    });
    QObject::connect(&window, &PrintPreviewFrm::SetUpAsked, &window, [&] {
        SetUpPrinter(&window);
        ReadyPrinter();
        window.ShowPage();
    });
    window.exec();
    return faultless;
}

}  // namespace

void PaintPage(QPainter& painter, const QImage& picture, const Report& report) {
    const double across = painter.device()->logicalDpiX(), down = painter.device()->logicalDpiY();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::LosslessImageRendering);  // lines and texts, no photograph
    painter.drawImage(QRectF(report.Left * across, report.Top * down, report.Width * across,
                             report.Height * down),
                      picture);
}

bool RunReport(QWidget* parent, const Report& report, bool preview) {
    const QImage picture(ToQt(report.Image));
    if (picture.isNull()) return false;
    if (preview) return Preview(parent, picture, report);
    return PrintOrAsk(parent, picture, report) != Outcome::Failed;
}

std::int32_t PrinterResolution() {
    return ReadyPrinter().resolution();
}

void SetUpPrinter(QWidget* parent) {
    RunPrintDialog(parent, true);
}
