#include "digital/DigitClipFuncBox.h"

#include "digital/DigitNodeFuncBox.h"
#include "digital/DigitView.h"
#include "digital/DrawDigitWave.h"
#include "digital/GlobalDigitDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/Narrow.h"
#include "kernel/wavecalc.h"

#include <algorithm>

// Two clipboards, because two kinds of things are selected: a span of dots in the picture, or whole
// rows of the list. Both live until the program ends, whatever becomes of the document.

namespace {

using Channels = std::vector<std::int16_t>;

// Rows that are selected together have one span; those of whole nodes count first.
SelectedSpan SpanOf(const std::vector<SelectedSpan>& spans) {
    const auto whole = std::ranges::find_if(
        spans, [](const SelectedSpan& span) { return span.Target.Member < 0; });
    return whole != spans.end() ? *whole : spans.front();
}

std::int32_t BitsOf(const DigitDocument& document, const std::vector<SelectedSpan>& spans) {
    std::int32_t bits = 0;
    for (const std::uint8_t channel : ChannelsOf(document, spans)) bits |= 1 << channel;
    return bits;
}

void CopySpan(DigitDocument& document) {
    RefreshSampleCount(document);
    const std::vector<SelectedSpan> spans = SelectedSpans(document);
    const SelectedSpan span = SpanOf(spans);
    SpanClipDots = span.End - span.Start + 1;
    SpanClipSamples.assign(static_cast<std::size_t>(SpanClipDots), 0);
    const std::int32_t held = std::clamp(document.SampleCount - span.Start, 0, SpanClipDots);
    std::copy_n(document.DigitSamples.begin() + span.Start, held, SpanClipSamples.begin());
    const std::vector<std::uint8_t> channels = ChannelsOf(document, spans);
    SpanClipChannelCount = Narrow<std::int16_t>(channels.size());
    std::ranges::copy(channels, SpanClipChannels.begin());
    SpanClipValid = true;
}

void CopyRows(const DigitDocument& document) {
    RowClipCount = document.NodeCount;
    RowClipNodes = document.Nodes;
    RowClipDots = 0;
    for (const SelectedSpan& span : SelectedSpans(document))
        RowClipDots = std::max(RowClipDots, NodeAt(document, span.Target.Node).DataLength);
    RowClipSamples.assign(document.DigitSamples.begin(),
                          document.DigitSamples.begin() + RowClipDots);
    RowClipValid = true;
}

// False where nothing is selected.
bool CopySelection(DigitDocument& document) {
    if (SelectedSpans(document).empty()) return false;
    if (document.WaveSelection)
        CopySpan(document);
    else
        CopyRows(document);
    return true;
}

// Rows with the same span are cleared in one pass.
void ClearSpans(DigitDocument& document, const std::vector<SelectedSpan>& spans) {
    for (auto first = spans.begin(); first != spans.end();) {
        const auto behind = std::find_if(first, spans.end(), [&](const SelectedSpan& span) {
            return span.Start != first->Start || span.End != first->End;
        });
        const std::int32_t bits = BitsOf(document, {first, behind});
        const std::int32_t end = std::min(first->End + 1, document.SampleCount);
        for (std::int32_t dot = first->Start; dot < end; ++dot)
            document.DigitSamples[static_cast<std::size_t>(dot)] &= ~bits;
        first = behind;
    }
}

void DeleteSpan(DigitDocument& document, const std::vector<SelectedSpan>& spans) {
    for (const SelectedSpan& span : spans) {
        DigitNode& node = NodeAt(document, span.Target.Node);
        if (span.Target.Member >= 0 || span.End < node.DataLength) continue;
        node.DataLength = std::min(node.DataLength, span.Start);
    }
    ClearSpans(document, spans);
}

void DeleteRows(DigitDocument& document, const std::vector<SelectedSpan>& spans) {
    const std::int32_t bits = BitsOf(document, spans);
    TakeOut(document, spans);
    ClearChannels(document, bits);
}

// What the rows that were copied become: a node as it was, a member as a node of its own.
struct RowCopy {
    NewNode Node;
    Flag Expanded;
    std::int32_t DataLength;
    Channels Sources;
};

std::vector<RowCopy> CopiedRows() {
    DigitDocument source;  // the walk over the copied nodes is that over a document's
    source.Nodes = RowClipNodes;
    std::vector<RowCopy> rows;
    for (const SelectedSpan& span : SelectedSpans(source)) {
        const DigitNode& node = NodeAt(source, span.Target.Node);
        const bool whole = span.Target.Member < 0;
        const std::span<const std::uint8_t> channels = ChannelsOf(source, span.Target);
        rows.push_back({{.Name = OwnName(source, span.Target),
                         .Radix = node.Radix,
                         .Width = WidthOf(source, span.Target),
                         .StartNumber = whole ? node.StartNumber : std::int16_t{0}},
                        whole && node.Expanded,
                        node.DataLength,
                        Channels(channels.begin(), channels.end())});
    }
    return rows;
}

// Adds the nodes; returns where the channels of each have gone.
Channels AppendRows(DigitDocument& document, const std::vector<RowCopy>& rows) {
    Channels targets;
    for (const RowCopy& row : rows) {
        AppendNode(document, row.Node);
        DigitNode& node = document.Nodes.back();
        node.Expanded = row.Expanded && node.IsBus;
        node.DataLength = row.DataLength;
        targets.insert(targets.end(), node.Channels.begin(), node.Channels.begin() + node.Width);
    }
    return targets;
}

}  // namespace

void CopyDigit() {
    DigitDocument& document = ActiveDigit();
    if (!CopySelection(document)) return;
    TheHost().RefreshCommands();
    Paint(ActiveDigitIndex, false, true);  // lengths may have grown
}

void CutDigit() {
    if (CopySelection(ActiveDigit())) DeleteDigit();
}

void DeleteDigit() {
    DigitDocument& document = ActiveDigit();
    const std::vector<SelectedSpan> spans = SelectedSpans(document);
    if (spans.empty()) return;
    BeginEdit(document);
    if (document.WaveSelection)
        DeleteSpan(document, spans);
    else
        DeleteRows(document, spans);
    ClearSelection(document);
    RefreshSampleCount(document);
    EndDigitEdit(ActiveDigitIndex);
}

PastePlace PlaceOfPaste(const DigitDocument& document) {
    return {TargetAtRow(document, RowAtPixel(document, document.ClickY)),
            DotUnder(document, document.ClickX)};
}

void PasteDigit() {
    DigitDocument& document = ActiveDigit();
    const auto [target, dot] = PlaceOfPaste(document);
    if (!SpanClipValid || target.Node < 0) return;
    const std::span<const std::uint8_t> channels = ChannelsOf(document, target);
    const std::int16_t count = std::min(WidthOf(document, target), SpanClipChannelCount);
    const Channels sources(SpanClipChannels.begin(), SpanClipChannels.begin() + count);
    const Channels targets(channels.rbegin(), channels.rbegin() + count);
    BeginEdit(document);
    ExtendSamples(document, target.Node, dot + SpanClipDots - 1);
    CopyPasteData(SpanClipSamples.data(), document.DigitSamples.data() + dot, SpanClipDots,
                  sources.data(), targets.data(), count);
    EndDigitEdit(ActiveDigitIndex);
}

void RepasteDigit() {
    DigitDocument& document = ActiveDigit();
    if (!RowClipValid) return;
    const std::vector<RowCopy> rows = CopiedRows();
    Channels sources;
    for (const RowCopy& row : rows)
        sources.insert(sources.end(), row.Sources.begin(), row.Sources.end());
    if (document.ChannelCount + std::ssize(sources) > MaxChannels) {
        Complain(PickText("The channels is overflow!", "通道总数将溢出!"));
        return;
    }
    BeginEdit(document);
    const Channels targets = AppendRows(document, rows);
    if (document.SampleCount < RowClipDots) {
        document.SampleCount = RowClipDots;
        document.DigitSamples.resize(static_cast<std::size_t>(RowClipDots));
    }
    CopyPasteData(RowClipSamples.data(), document.DigitSamples.data(), RowClipDots, sources.data(),
                  targets.data(), Narrow<std::int16_t>(targets.size()));
    EndDigitEdit(ActiveDigitIndex);
}
