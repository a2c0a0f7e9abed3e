#include "digital/DigitFuncCode.h"

#include "digital/DigitView.h"
#include "digital/RadixText.h"
#include "frame/Narrow.h"

#include <algorithm>

namespace {

std::size_t MembersOf(const DigitNode& node) {
    return static_cast<std::size_t>(node.Width);
}

std::int32_t BitOf(std::int32_t word, std::uint8_t channel) {
    return word >> channel & 1;
}

void ResizeSamples(DigitDocument& document, std::int32_t count) {
    document.SampleCount = count;
    document.DigitSamples.resize(static_cast<std::size_t>(count));
}

// The end of what is selected in a node, its members on their own included.
std::int32_t SelectedLength(const DigitNode& node) {
    std::int32_t length = node.WaveSelected ? node.SelectEnd + 1 : 0;
    if (node.WaveSelected || !node.Expanded) return length;
    for (std::size_t k = 0; k < MembersOf(node); ++k)
        if (node.MemberWaveSelected[k]) length = std::max(length, node.MemberSelectEnd[k] + 1);
    return length;
}

}  // namespace

void RenumberRows(DigitDocument& document) {
    document.NodeCount = Narrow<std::uint8_t>(document.Nodes.size());
    document.ListRows.clear();
    std::int16_t index = 0;
    for (DigitNode& node : document.Nodes) {
        node.Row = Narrow<std::int16_t>(document.ListRows.size());
        document.ListRows.push_back({.Node = index, .Member = -1});
        for (std::int16_t k = 0; node.Expanded && k < node.Width; ++k)
            document.ListRows.push_back({.Node = index, .Member = k});
        ++index;
    }
    SetPageFigures(document);
}

DigitTarget TargetAtRow(const DigitDocument& document, std::int32_t row) {
    if (row < 0 || row >= std::ssize(document.ListRows)) return {};
    return document.ListRows[static_cast<std::size_t>(row)];
}

std::int16_t RowOfTarget(const DigitDocument& document, DigitTarget target) {
    const auto found = std::ranges::find(document.ListRows, target);
    if (found == document.ListRows.end()) return -1;
    return Narrow<std::int16_t>(found - document.ListRows.begin());
}

void SetExpanded(DigitDocument& document, std::int16_t index, Flag expanded) {
    DigitNode& node = NodeAt(document, index);
    if (!node.IsBus) return;
    node.Expanded = expanded;
    RenumberRows(document);
}

std::string TargetName(const DigitDocument& document, DigitTarget target) {
    const DigitNode& node = NodeAt(document, target.Node);
    if (target.Member < 0) return node.Name;
    return node.Name + "  " + std::to_string(node.StartNumber + target.Member);
}

std::string OwnName(const DigitDocument& document, DigitTarget target) {
    const DigitNode& node = NodeAt(document, target.Node);
    if (target.Member < 0) return node.Name;
    const std::string number = std::to_string(node.StartNumber + target.Member);
    return node.Name.substr(0, LongestNodeName - number.size()) + number;
}

std::vector<DigitTarget> AllTargets(const DigitDocument& document) {
    std::vector<DigitTarget> targets;
    for (std::int16_t index = 0; const DigitNode& node : document.Nodes) {
        targets.push_back({.Node = index, .Member = -1});
        for (std::int16_t k = 0; node.IsBus && k < node.Width; ++k)
            targets.push_back({.Node = index, .Member = k});
        ++index;
    }
    return targets;
}

std::vector<std::string> TargetNames(const DigitDocument& document) {
    std::vector<std::string> names;
    for (const DigitTarget target : AllTargets(document))
        names.push_back(TargetName(document, target));
    return names;
}

DigitTarget TargetOfName(const DigitDocument& document, std::string_view name) {
    for (const DigitTarget target : AllTargets(document))
        if (TargetName(document, target) == name) return target;
    return {};
}

std::int16_t WidthOf(const DigitDocument& document, DigitTarget target) {
    return target.Member < 0 ? NodeAt(document, target.Node).Width : std::int16_t{1};
}

std::span<const std::uint8_t> ChannelsOf(const DigitDocument& document, DigitTarget target) {
    const std::span<const std::uint8_t> channels = NodeAt(document, target.Node).Channels;
    return channels.subspan(static_cast<std::size_t>(std::max<std::int16_t>(target.Member, 0)),
                            static_cast<std::size_t>(WidthOf(document, target)));
}

std::int32_t WordAt(const DigitDocument& document, std::int32_t dot) {
    if (dot < 0 || dot >= document.SampleCount) return 0;
    return document.DigitSamples[static_cast<std::size_t>(dot)];
}

std::int32_t ValueAt(const DigitDocument& document, DigitTarget target, std::int32_t dot) {
    const DigitNode& node = NodeAt(document, target.Node);
    if (dot >= node.DataLength) return 0;
    const std::int32_t word = WordAt(document, dot);
    std::int32_t value = 0;
    for (const std::uint8_t channel : ChannelsOf(document, target))
        value = value * 2 + BitOf(word, channel);
    return value;
}

void RefreshValues(DigitDocument& document) {
    for (std::int16_t index = 0; DigitNode & node : document.Nodes) {
        const std::int32_t value = ValueAt(document, {.Node = index}, document.Caliper);
        node.ValueText = RadixValueText(value, node.Radix, node.Width);
        for (std::size_t k = 0; k < MembersOf(node); ++k)
            node.MemberValues[k] =
                static_cast<std::uint8_t>(value >> (MembersOf(node) - 1 - k) & 1);
        ++index;
    }
}

void ExtendSamples(DigitDocument& document, std::int16_t index, std::int32_t dot) {
    DigitNode& node = NodeAt(document, index);
    node.DataLength = std::max(node.DataLength, dot + 1);
    if (document.SampleCount < dot + 1) ResizeSamples(document, dot + 1);
}

void RefreshSampleCount(DigitDocument& document) {
    std::int32_t longest = 0;
    for (DigitNode& node : document.Nodes) {
        node.DataLength = std::max(node.DataLength, SelectedLength(node));
        longest = std::max(longest, node.DataLength);
    }
    ResizeSamples(document, longest);
}

void ClearChannels(DigitDocument& document, std::int32_t channels) {
    for (std::int32_t& word : document.DigitSamples) word &= ~channels;
}

std::int32_t FreeChannels(const DigitDocument& document) {
    std::int32_t free = LargestOf(MaxChannels);
    for (const DigitNode& node : document.Nodes)
        for (std::size_t k = 0; k < MembersOf(node); ++k) free &= ~(1 << node.Channels[k]);
    return free;
}

std::uint8_t CountChannels(const DigitDocument& document) {
    std::int32_t channels = 0;
    for (const DigitNode& node : document.Nodes) channels += node.Width;
    return Narrow<std::uint8_t>(channels);
}

void AppendNode(DigitDocument& document, const NewNode& added) {
    DigitNode node;
    node.Name = added.Name;
    node.Radix = added.Radix;
    node.Width = 0;
    node.StartNumber = added.StartNumber;
    document.Nodes.push_back(std::move(node));
    ResizeNode(document, Narrow<std::int16_t>(std::ssize(document.Nodes) - 1), added.Width);
}

void ResizeNode(DigitDocument& document, std::int16_t index, std::int16_t width) {
    DigitNode& node = NodeAt(document, index);
    const std::int32_t free = FreeChannels(document);
    std::int32_t changed = 0;
    for (std::uint8_t channel = 0; channel < MaxChannels && node.Width < width; ++channel) {
        if ((free >> channel & 1) == 0) continue;
        node.Channels[static_cast<std::size_t>(node.Width++)] = channel;
        changed |= 1 << channel;
    }
    while (node.Width > width)
        changed |= 1 << node.Channels[static_cast<std::size_t>(--node.Width)];
    FitToWidth(node);
    if (changed != 0) ClearChannels(document, changed);
    document.ChannelCount = CountChannels(document);
    RenumberRows(document);
}

void FitToWidth(DigitNode& node) {
    node.IsBus = node.Width > 1;
    if (!node.IsBus) node.Expanded = false;
}
