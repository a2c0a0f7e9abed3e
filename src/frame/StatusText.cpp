#include "frame/StatusText.h"

#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/Host.h"

#include <algorithm>
#include <string_view>

namespace {

struct StatusRow {
    std::int32_t Code;
    std::string_view Label;
};

constexpr StatusRow StatusRows[] = {
    {4, "lblEditDotMessage"},      {5, "lbLineDrawEnterMessage"}, {6, "lbLineDrawEnterMessage"},
    {7, "lbLineDrawEnterMessage"}, {8, "lblSelectDataMessage"},   {9, "lblIdleMessage"},
    {10, "lblIdleMessage"},        {11, "lblZoomHMessage"},       {12, "lblZoomVMessage"},
    {13, "lblZoomHVMessage"},      {14, "lblZoomCenterMessage"},  {26, "lblIdleMessage"},
    {50, "lblDigitIdleMessage"},   {51, "lblFind_Edit_Message"},
};

std::int32_t lastCode = 26;

// A digital document has panels of its own.
std::string_view LabelOf(const StatusRow& row) {
    if (ActiveIsDigital && row.Code == 9) return "lblDigitIdleMessage";
    if (ActiveIsDigital && row.Code == 4) return "lblFind_Edit_Message";
    return row.Label;
}

}  // namespace

void ShowStatus(std::int32_t code) {
    const auto* row = std::ranges::find(StatusRows, code, &StatusRow::Code);
    if (row == std::end(StatusRows)) return;
    lastCode = code;
    TheHost().ShowStatusText(LabelOf(*row), ResText(code));
}

void ShowStatusAgain() {
    ShowStatus(lastCode);
}
