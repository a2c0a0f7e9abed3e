#pragma once
// The printing service: one printer for the life of the program, a page with one picture, its
// preview, and the dialog that sets the printer up. A machine without printers prints to PDF files.
#include <cstdint>

class QImage;
class QPainter;
class QWidget;
struct Report;

/// Draws the picture at its place on the page. Inches are counted in the device's dots per inch
/// from its top left corner.
void PaintPage(QPainter& painter, const QImage& picture, const Report& report);

/// Prints the page, or shows it in the preview first, see Host::RunReport.
bool RunReport(QWidget* parent, const Report& report, bool preview);

/// Dots per inch of the printer in use, 600 at most.
std::int32_t PrinterResolution();

/// Runs the dialog that chooses printer, paper or a PDF file. Cancel changes nothing.
void SetUpPrinter(QWidget* parent);
