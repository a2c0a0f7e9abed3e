#pragma once
// Nodes, rows and samples of a digital document: who stands where, what a dot holds, and how nodes
// and samples grow. Nothing here paints or asks.
#include "frame/records/DigitDocument.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A node by its index in the list.
inline DigitNode& NodeAt(DigitDocument& document, std::int32_t index) {
    return document.Nodes[static_cast<std::size_t>(index)];
}
inline const DigitNode& NodeAt(const DigitDocument& document, std::int32_t index) {
    return document.Nodes[static_cast<std::size_t>(index)];
}

// --- rows --------------------------------------------------------------------------------------

/// Numbers the rows anew: Row of every node, ListRows, NodeCount, the figures of the rows shown
/// (FirstRow stays within what exists) and whether the list scrolls.
void RenumberRows(DigitDocument& document);
/// What stands in a row; a target without node where there is none.
DigitTarget TargetAtRow(const DigitDocument& document, std::int32_t row);
/// The row of a target; -1 where it has none, as a member of a collapsed bus.
std::int16_t RowOfTarget(const DigitDocument& document, DigitTarget target);
/// Opens or closes a bus and numbers the rows. A single channel stays as it is.
void SetExpanded(DigitDocument& document, std::int16_t node, Flag expanded);

// --- names and values --------------------------------------------------------------------------

/// "Name" of the node, or of a member its bus's name, two blanks and its number.
std::string TargetName(const DigitDocument& document, DigitTarget target);
/// The name that a target has as a node of its own: without the blanks, a long one cut so that the
/// number stays.
std::string OwnName(const DigitDocument& document, DigitTarget target);
/// Every node, and behind a bus its members, open or not.
std::vector<DigitTarget> AllTargets(const DigitDocument& document);
/// Their names.
std::vector<std::string> TargetNames(const DigitDocument& document);
/// The first of them with a name; no node where there is none.
DigitTarget TargetOfName(const DigitDocument& document, std::string_view name);
/// Member channels of a target: the width of a node, 1 of a member.
std::int16_t WidthOf(const DigitDocument& document, DigitTarget target);
/// The channels of a target, the most significant one first.
std::span<const std::uint8_t> ChannelsOf(const DigitDocument& document, DigitTarget target);

/// The word of a dot; 0 outside of the samples.
std::int32_t WordAt(const DigitDocument& document, std::int32_t dot);
/// The value of a target at a dot: members from the last one up with weights 1, 2, 4...; 0 behind
/// the node's data.
std::int32_t ValueAt(const DigitDocument& document, DigitTarget target, std::int32_t dot);
/// Brings ValueText and MemberValues of every node to the caliper.
void RefreshValues(DigitDocument& document);

// --- samples -----------------------------------------------------------------------------------

/// Makes room up to a dot of a node: DataLength and SampleCount reach at least dot + 1.
void ExtendSamples(DigitDocument& document, std::int16_t node, std::int32_t dot);
/// Recomputes SampleCount: selected spans raise their node's DataLength, then the longest node
/// counts.
void RefreshSampleCount(DigitDocument& document);
/// Sets the bits of channels to 0 in all samples; `channels` has a bit for each.
void ClearChannels(DigitDocument& document, std::int32_t channels);

// --- nodes -------------------------------------------------------------------------------------

/// Channels that no node has, one bit each.
std::int32_t FreeChannels(const DigitDocument& document);

/// The sum of the widths of all nodes.
std::uint8_t CountChannels(const DigitDocument& document);

struct NewNode {
    std::string Name;
    std::int16_t Radix = 0, Width = 1, StartNumber = 0;
};
/// Adds a node at the end of the list on the lowest free channels, in increasing order, and clears
/// their bits. The channels must be there.
void AppendNode(DigitDocument& document, const NewNode& node);
/// Gives a node another width: new members take the lowest free channels, which must be there;
/// members go from the end. The bits of channels that come or go become 0.
void ResizeNode(DigitDocument& document, std::int16_t index, std::int16_t width);
/// Brings IsBus and Expanded to the width of a node.
void FitToWidth(DigitNode& node);
