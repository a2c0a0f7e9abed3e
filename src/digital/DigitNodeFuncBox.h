#pragma once
// Nodes as a whole: changed, assembled into a bus, split into channels, removed, sorted, moved.
#include "digital/DigitEditFuncBox.h"
#include "digital/DigitFuncCode.h"

#include <cstdint>
#include <vector>

/// Gives a node name, radix, start number and, as ResizeNode does, width. A new width ends all
/// selections.
void ChangeNode(DigitDocument& document, std::int16_t index, const NewNode& changed);

/// Takes targets, as SelectedSpans gives them, out of the list. Their channels keep their bits;
/// a bus that loses its members goes.
void TakeOut(DigitDocument& document, const std::vector<SelectedSpan>& taken);
/// The channels of targets in list order, members of a node from the most significant one.
std::vector<std::uint8_t> ChannelsOf(const DigitDocument& document,
                                     const std::vector<SelectedSpan>& targets);

/// Makes one node of the selection, as an edit: the first row selected is the most significant. It
/// stands where that row stood. Width of `bus` is not used.
void AssembleSelection(const NewNode& bus);

// Commands on the active document; without anything to do there is no edit.
/// The selected buses become their members.
void SplitBuses();
/// Nodes by name, by the codes of the characters.
void SortNodes();
void SortNodesDescending();
/// True where a bus is selected as a whole.
bool HasSelectedBus(const DigitDocument& document);

/// The selected nodes, together and in their order, go before a node, as an edit; NodeCount stands
/// for the end. Nodes whose members only are selected stay.
void MoveSelectedNodes(std::int16_t index, std::int16_t before);
/// True where that would change the order of the nodes.
bool MovesNodes(const DigitDocument& document, std::int16_t before);
