#include "digital/InsertNodeFuncBox.h"

#include "digital/DigitEditFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"

#include <algorithm>
#include <bit>

NewNode LastInserted;

namespace {

std::int32_t FreeCount(const DigitDocument& document) {
    return MaxChannels - document.ChannelCount;
}

bool HasName(const DigitDocument& document, std::string_view name) {
    return std::ranges::find(document.Nodes, name, &DigitNode::Name) != document.Nodes.end();
}

std::string ProposeName(const DigitDocument& document) {
    const auto free = static_cast<std::uint32_t>(FreeChannels(document));
    int number = free == 0 ? MaxChannels : std::countr_zero(free);
    while (HasName(document, "D" + std::to_string(number))) ++number;
    return "D" + std::to_string(number);
}

std::string OverflowText(std::int32_t free) {
    return WithNumbers(
        PickText("The number of channel overflow,can input number is %, Please input again!",
                 "通道数溢出，可输入的数目为 %，请重新输入！"),
        {free});
}

}  // namespace

InsertNodeDialog OpenInsertNode() {
    const DigitDocument& document = ActiveDigit();
    const std::int32_t most = std::max(FreeCount(document), 1);
    return {.Name = ProposeName(document),
            .Radix = LastInserted.Radix,
            .BusCount = std::to_string(std::min<std::int32_t>(LastInserted.Width, most)),
            .StartNumber = "0"};
}

void ChangeBusCount(InsertNodeDialog& dialog, std::string_view typed) {
    dialog.BusCount = HoldDigits(typed, MaxChannels);
}

void ChangeStartNumber(InsertNodeDialog& dialog, std::string_view typed) {
    dialog.StartNumber = HoldDigits(typed, MaxStartNumber);
}

void LeaveBusCount(InsertNodeDialog& dialog) {
    if (!dialog.BusCount.empty() && WholeNumber(dialog.BusCount) < 1) dialog.BusCount = "1";
}

std::string FreeChannelsText() {
    return WithNumbers(PickText("% of % channels are free.", "空闲通道 % / %。"),
                       {FreeCount(ActiveDigit()), MaxChannels});
}

DialogEnd ConfirmInsertNode(InsertNodeDialog& dialog) {
    DigitDocument& document = ActiveDigit();
    if (dialog.Name.empty() || dialog.BusCount.empty() || dialog.StartNumber.empty())
        return RefuseEmpty();
    if (HasName(document, dialog.Name))
        return AskAgain(PickText("You have input the same name , Please input again!",
                                 "输入的名称重复，请重新输入！"));
    ChangeBusCount(dialog, std::string(dialog.BusCount));
    ChangeStartNumber(dialog, std::string(dialog.StartNumber));
    LeaveBusCount(dialog);
    const std::int32_t width = WholeNumber(dialog.BusCount);
    if (width > FreeCount(document)) return AskAgain(OverflowText(FreeCount(document)));
    LastInserted = {.Name = dialog.Name,
                    .Radix = dialog.Radix,
                    .Width = Narrow<std::int16_t>(width),
                    .StartNumber = Narrow<std::int16_t>(WholeNumber(dialog.StartNumber))};
    BeginEdit(document);
    AppendNode(document, LastInserted);
    EndDigitEdit(ActiveDigitIndex);
    return DialogEnd::Done;
}
