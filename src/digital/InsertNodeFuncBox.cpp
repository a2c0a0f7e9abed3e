#include "digital/InsertNodeFuncBox.h"

#include "digital/DigitNodeFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/Narrow.h"
#include "frame/StringFunc.h"
#include "platform/Host.h"

#include <algorithm>
#include <bit>

NewNode LastInserted;

namespace {

std::int32_t FreeCount(const DigitDocument& document) {
    return MaxChannels - document.ChannelCount;
}

// `own`: a node that may have the name, -1 for none.
bool HasName(const DigitDocument& document, std::string_view name, std::int16_t own = -1) {
    for (std::int16_t index = 0; const DigitNode& node : document.Nodes)
        if (index++ != own && node.Name == name) return true;
    return false;
}

std::string FirstUnusedName(const DigitDocument& document, const std::string& stem, int number) {
    while (HasName(document, stem + std::to_string(number))) ++number;
    return stem + std::to_string(number);
}

std::string ProposeName(const DigitDocument& document) {
    const auto free = static_cast<std::uint32_t>(FreeChannels(document));
    return FirstUnusedName(document, "D", free == 0 ? MaxChannels : std::countr_zero(free));
}

std::string OverflowText(std::int32_t free) {
    return WithNumbers(
        PickText("The number of channel overflow,can input number is %, Please input again!",
                 "通道数溢出，可输入的数目为 %，请重新输入！"),
        {free});
}

InsertNodeDialog OpenAssembly(const DigitDocument& document) {
    const std::vector<SelectedSpan> taken = SelectedSpans(document);
    std::int16_t radix = LastInserted.Radix;
    if (!taken.empty()) radix = NodeAt(document, taken.front().Target.Node).Radix;
    return {.Name = FirstUnusedName(document, "Bus", 0),
            .Radix = radix,
            .BusCount = std::to_string(ChannelsOf(document, taken).size()),
            .StartNumber = "0",
            .Use = NodeUse::Assemble};
}

InsertNodeDialog OpenEdit(const DigitDocument& document, std::int16_t index) {
    const DigitNode& node = NodeAt(document, index);
    return {.Name = node.Name,
            .Radix = node.Radix,
            .BusCount = std::to_string(node.Width),
            .StartNumber = std::to_string(node.StartNumber),
            .Use = NodeUse::Edit,
            .Node = index};
}

// Channels that the node can have at the most: what is free, and its own where it is edited.
std::int32_t MostChannels(const DigitDocument& document, const InsertNodeDialog& dialog) {
    const std::int32_t free = FreeCount(document);
    if (dialog.Use != NodeUse::Edit) return free;
    return free + NodeAt(document, dialog.Node).Width;
}

void Apply(const InsertNodeDialog& dialog, const NewNode& node) {
    DigitDocument& document = ActiveDigit();
    if (dialog.Use == NodeUse::Assemble) return AssembleSelection(node);
    BeginEdit(document);
    if (dialog.Use == NodeUse::Edit) {
        ChangeNode(document, dialog.Node, node);
    } else {
        AppendNode(document, node);
        LastInserted = node;
    }
    EndDigitEdit(ActiveDigitIndex);
}

}  // namespace

InsertNodeDialog OpenInsertNode() {
    const DigitDocument& document = ActiveDigit();
    if (AssembleMode) return OpenAssembly(document);
    const DigitTarget target = TargetAtRow(document, document.ClickRow);
    if (EditNodeMode && target.Node >= 0) return OpenEdit(document, target.Node);
    const std::int32_t most = std::max(FreeCount(document), 1);
    return {.Name = ProposeName(document),
            .Radix = LastInserted.Radix,
            .BusCount = std::to_string(std::min<std::int32_t>(LastInserted.Width, most)),
            .StartNumber = "0",
            .Use = NodeUse::Insert};
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
    const DigitDocument& document = ActiveDigit();
    if (dialog.Name.empty() || dialog.BusCount.empty() || dialog.StartNumber.empty())
        return RefuseEmpty();
    if (HasName(document, dialog.Name, dialog.Node))
        return AskAgain(PickText("You have input the same name , Please input again!",
                                 "输入的名称重复，请重新输入！"));
    ChangeBusCount(dialog, std::string(dialog.BusCount));
    ChangeStartNumber(dialog, std::string(dialog.StartNumber));
    LeaveBusCount(dialog);
    const std::int32_t width = WholeNumber(dialog.BusCount), most = MostChannels(document, dialog);
    if (dialog.Use != NodeUse::Assemble && width > most) return AskAgain(OverflowText(most));
    Apply(dialog, {.Name = dialog.Name,
                   .Radix = dialog.Radix,
                   .Width = Narrow<std::int16_t>(width),
                   .StartNumber = Narrow<std::int16_t>(WholeNumber(dialog.StartNumber))});
    return DialogEnd::Done;
}

void AssembleBus() {
    if (SelectedSpans(ActiveDigit()).empty()) return;
    AssembleMode = true;
    TheHost().RunDialog("InsertNodeFrm", 0);
    AssembleMode = false;
}

void EditNodeOfRow() {
    const DigitDocument& document = ActiveDigit();
    if (TargetAtRow(document, document.ClickRow).Node < 0) return;
    EditNodeMode = true;
    TheHost().RunDialog("InsertNodeFrm", 0);
    EditNodeMode = false;
}
