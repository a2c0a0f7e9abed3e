#pragma once
// The resize dialog without its window: the selected run is stretched or squeezed to another
// number of dots, and its amplitude scaled, in one edit.
#include "frame/records/AnalogWaveRecord.h"

#include <string>
#include <string_view>
#include <vector>

struct ResizeDialog {
    std::int32_t NewDots = 0;
    std::int32_t AmplPercent = 100;
    std::int32_t Room = 0;  // most dots that fit in its place
    bool operator==(const ResizeDialog&) const = default;
};

/// Fills the dialog for the selection of the active document: its length, 100 percent.
ResizeDialog OpenResize();

// Texts of the boxes, what was typed in them (held to 2..Room and 0..30000), and a spin button's
// tick, counted from its press.
std::string NewDotsText(const ResizeDialog& dialog);
std::string AmplPercentText(const ResizeDialog& dialog);
void LeaveNewDots(ResizeDialog& dialog, std::string_view typed);
void LeaveAmplPercent(ResizeDialog& dialog, std::string_view typed);
void SpinNewDots(ResizeDialog& dialog, std::int32_t tick, bool up);
void SpinAmplPercent(ResizeDialog& dialog, std::int32_t tick, bool up);

/// The run as it would become, from dot 0 on.
void PreviewResize(const ResizeDialog& dialog, std::vector<WaveDot>& dots);

/// OK: resamples and scales the selection; what follows moves. False when nothing was done: the
/// length is the same at 100 percent, or there is no selection.
bool ConfirmResize(const ResizeDialog& dialog);
