#include "digital/DigitNodeFuncBox.h"

#include "digital/GlobalDigitDefineCode.h"
#include "frame/Narrow.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using Order = std::vector<std::size_t>;  // indices into Nodes

void TakeOutMember(DigitNode& node, std::int16_t member) {
    const auto first = node.Channels.begin();
    std::copy(first + member + 1, first + node.Width, first + member);
    --node.Width;
    FitToWidth(node);
}

// Where the row of a target stands among the nodes: a member's place is behind its bus while that
// has other members.
std::ptrdiff_t PlaceOfFirst(const DigitDocument& document, const std::vector<SelectedSpan>& taken) {
    const DigitTarget first = taken.front().Target;
    if (first.Member < 0) return first.Node;
    const auto gone = std::ranges::count(taken, first.Node,
                                         [](const SelectedSpan& span) { return span.Target.Node; });
    const bool stays = gone < NodeAt(document, first.Node).Width;
    return first.Node + (stays ? 1 : 0);
}

std::vector<DigitNode> SplitNode(const DigitDocument& document, std::int16_t index) {
    const DigitNode& bus = NodeAt(document, index);
    std::vector<DigitNode> nodes(static_cast<std::size_t>(bus.Width));
    for (std::int16_t k = 0; k < bus.Width; ++k) {
        DigitNode& node = nodes[static_cast<std::size_t>(k)];
        node.Name = OwnName(document, {.Node = index, .Member = k});
        node.Channels[0] = bus.Channels[static_cast<std::size_t>(k)];
        node.Radix = bus.Radix;
        node.DataLength = bus.DataLength;
    }
    return nodes;
}

Order OrderAsItIs(const DigitDocument& document) {
    Order order(document.Nodes.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    return order;
}

void Reorder(DigitDocument& document, const Order& order) {
    std::vector<DigitNode> nodes;
    nodes.reserve(order.size());
    for (const std::size_t index : order) nodes.push_back(std::move(document.Nodes[index]));
    document.Nodes = std::move(nodes);
}

// Pairs change places as a selection sort does it, which settles the order of equal names.
void Sort(bool descending) {
    DigitDocument& document = ActiveDigit();
    Order order = OrderAsItIs(document);
    const auto name = [&](std::size_t index) -> const std::string& {
        return document.Nodes[order[index]].Name;
    };
    for (std::size_t i = 0; i + 1 < order.size(); ++i)
        for (std::size_t j = i + 1; j < order.size(); ++j)
            if (descending ? name(i) < name(j) : name(i) > name(j)) std::swap(order[i], order[j]);
    if (order == OrderAsItIs(document)) return;
    BeginEdit(document);
    Reorder(document, order);
    ClearSelection(document);
    EndDigitEdit(ActiveDigitIndex);
}

Order OrderAfterMove(const DigitDocument& document, std::int16_t before) {
    const auto part = [&](std::size_t index) {
        if (document.Nodes[index].WaveSelected) return 1;
        return std::cmp_less(index, before) ? 0 : 2;
    };
    Order order = OrderAsItIs(document);
    std::ranges::stable_sort(order, {}, part);
    return order;
}

}  // namespace

void ChangeNode(DigitDocument& document, std::int16_t index, const NewNode& changed) {
    DigitNode& node = NodeAt(document, index);
    node.Name = changed.Name;
    node.Radix = changed.Radix;
    node.StartNumber = changed.StartNumber;
    if (node.Width == changed.Width) return;
    ClearSelection(document);
    ResizeNode(document, index, changed.Width);
}

void TakeOut(DigitDocument& document, const std::vector<SelectedSpan>& taken) {
    for (std::size_t i = taken.size(); i-- > 0;) {
        const DigitTarget target = taken[i].Target;
        DigitNode& node = NodeAt(document, target.Node);
        if (target.Member >= 0) TakeOutMember(node, target.Member);
        if (target.Member < 0 || node.Width == 0)
            document.Nodes.erase(document.Nodes.begin() + target.Node);
    }
    document.ChannelCount = CountChannels(document);
}

std::vector<std::uint8_t> ChannelsOf(const DigitDocument& document,
                                     const std::vector<SelectedSpan>& targets) {
    std::vector<std::uint8_t> channels;
    for (const SelectedSpan& span : targets)
        std::ranges::copy(ChannelsOf(document, span.Target), std::back_inserter(channels));
    return channels;
}

void AssembleSelection(const NewNode& bus) {
    DigitDocument& document = ActiveDigit();
    const std::vector<SelectedSpan> taken = SelectedSpans(document);
    if (taken.empty()) return;
    DigitNode node;
    node.Name = bus.Name;
    node.Radix = bus.Radix;
    node.StartNumber = bus.StartNumber;
    const std::vector<std::uint8_t> channels = ChannelsOf(document, taken);
    std::ranges::copy(channels, node.Channels.begin());
    node.Width = Narrow<std::int16_t>(channels.size());
    FitToWidth(node);
    for (const SelectedSpan& span : taken)
        node.DataLength = std::max(node.DataLength, NodeAt(document, span.Target.Node).DataLength);
    BeginEdit(document);
    const std::ptrdiff_t place = PlaceOfFirst(document, taken);
    TakeOut(document, taken);
    document.Nodes.insert(document.Nodes.begin() + place, std::move(node));
    document.ChannelCount = CountChannels(document);
    ClearSelection(document);
    EndDigitEdit(ActiveDigitIndex);
}

bool HasSelectedBus(const DigitDocument& document) {
    return std::ranges::any_of(document.Nodes, [](const DigitNode& node) {
        return bool(node.IsBus) && bool(node.WaveSelected);
    });
}

void SplitBuses() {
    DigitDocument& document = ActiveDigit();
    if (!HasSelectedBus(document)) return;
    BeginEdit(document);
    std::vector<DigitNode> nodes;
    for (std::int16_t index = 0; const DigitNode& node : document.Nodes) {
        if (node.IsBus && node.WaveSelected) {
            std::ranges::move(SplitNode(document, index), std::back_inserter(nodes));
        } else {
            nodes.push_back(node);
        }
        ++index;
    }
    document.Nodes = std::move(nodes);
    ClearSelection(document);
    EndDigitEdit(ActiveDigitIndex);
}

void SortNodes() {
    Sort(false);
}

void SortNodesDescending() {
    Sort(true);
}

// Nodes that stand together stay where they are before any of themselves and before the next one.
bool MovesNodes(const DigitDocument& document, std::int16_t before) {
    std::int16_t first = -1, last = -1, count = 0;
    for (std::int16_t index = 0; index < document.NodeCount; ++index) {
        if (!NodeAt(document, index).WaveSelected) continue;
        if (count++ == 0) first = index;
        last = index;
    }
    const bool together = last - first + 1 == count;
    return count > 0 && (!together || before < first || before > last + 1);
}

void MoveSelectedNodes(std::int16_t index, std::int16_t before) {
    DigitDocument& document = DigitAt(index);
    if (!MovesNodes(document, before)) return;
    const Order order = OrderAfterMove(document, before);
    DigitTarget clicked = TargetAtRow(document, document.ClickRow);
    if (clicked.Node >= 0)
        clicked.Node = Narrow<std::int16_t>(
            std::ranges::find(order, static_cast<std::size_t>(clicked.Node)) - order.begin());
    BeginEdit(document);
    Reorder(document, order);
    EndDigitEdit(index);
    document.ClickRow = document.AnchorRow = RowOfTarget(document, clicked);
}
