#pragma once
// The Evaluate dialog without its window: one of the six value operations on one node or member
// over typed dots, whatever is selected. Target and operation are remembered while the program
// runs.
#include "digital/ValueBoxes.h"

#include <vector>

struct EvaluateDialog {
    ValueBoxes Boxes;
    std::vector<DigitTarget> Targets;  // AllTargets; TargetNames are their names
    std::int32_t Chosen = 0;           // index into Targets
};

/// Boxes as the last OK left them; target and operation as last chosen, the first ones where they
/// are no longer there.
EvaluateDialog OpenEvaluate();

/// Chooses a target; values are held to its width.
void ChooseEvaluateTarget(EvaluateDialog& dialog, std::int32_t chosen);

DigitOperation EvaluateOperation();
/// True for the boxes that an operation uses; the others are closed.
bool UsesBox(DigitOperation operation, ValueBox box);
/// What the one box for the value of Arbitrary and the interval of Counting holds.
ValueBox SharedBox(DigitOperation operation);

/// OK: saves the radix and the boxes in use and writes the pattern. An empty one of them is
/// refused. Closes where there is no target.
DialogEnd ConfirmEvaluate(EvaluateDialog& dialog);
