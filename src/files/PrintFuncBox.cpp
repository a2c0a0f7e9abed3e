#include "files/PrintFuncBox.h"

#include "analog/PrintAnalogWave.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/Narrow.h"
#include "platform/Host.h"
#include "platform/ProgramFolder.h"

#include <algorithm>
#include <string>

// The picture goes to the printing service as a bitmap file, which stays behind. Whatever fails
// before that file is whole ends the command: a page with an older picture must never come out.

namespace {

// On paper a logical pixel is 1/120 inch: texts of 11 pixels have 6.6 points.
constexpr std::int32_t LogicalPerInch = 120;

void TellPrintFault() {
    Complain(PickText(" Print Error!", " 打印错误！"));
}

template <typename Document>
void PrintDocument(Document& document, const std::string& title, bool preview) {
    Report report;
    report.Title = title;
    report.Image = ScratchFolder() + "/$Print.bmp";
    const std::int32_t resolution = std::max(TheHost().PrinterResolution(), LogicalPerInch);
    Surface picture;
    if (!PaintForPrint(document, RoundToInt(report.Width * LogicalPerInch),
                       RoundToInt(report.Height * LogicalPerInch),
                       static_cast<double>(resolution) / LogicalPerInch, picture)) {
        TellPrintFault();
        return;
    }
    const std::string fault = picture.SaveBitmap(report.Image);
    if (!fault.empty()) {
        Complain(fault);
        return;
    }
    picture.Free();
    if (!TheHost().RunReport(report, preview)) TellPrintFault();
}

void PrintActiveAnalog(bool preview) {
    AnalogWaveRecord& wave = ActiveAnalog();
    PrintDocument(wave, wave.Name, preview);
}

void PrintActiveDigit(bool preview) {
    DigitDocument& document = ActiveDigit();
    PrintDocument(document, document.Title, preview);
}

}  // namespace

void PrintAnalog() {
    PrintActiveAnalog(false);
}

void PreviewAnalog() {
    PrintActiveAnalog(true);
}

void PrintDigit() {
    PrintActiveDigit(false);
}

void PreviewDigit() {
    PrintActiveDigit(true);
}
