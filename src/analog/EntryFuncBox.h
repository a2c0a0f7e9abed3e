#pragma once
// The boxes of the status strip: ends of a line, value of a dot, bounds of a zoom. They show the
// active document and set what the mouse tools set. The text of a box tells whether it is empty;
// the number stands in the record, amplitudes in the unit of their box (V or mV).
#include "analog/PlotOverlay.h"

#include <span>
#include <string_view>

enum class Entry : std::uint8_t {
    LineX1,
    LineY1,
    LineX2,
    LineY2,
    ValueX,
    ValueY,
    ZoomHX1,
    ZoomHX2,
    ZoomVY1,
    ZoomVY2,
    ZoomX1,
    ZoomY1,
    ZoomX2,
    ZoomY2,
    ZoomCenterX,
};

struct EntryRow {
    Entry Which;
    std::string_view Box;    // name of the box
    std::string_view Panel;  // panel of the status strip
    // A dot box has the first, a value box the other two.
    std::int32_t AnalogWaveRecord::*Dot;
    double AnalogWaveRecord::*Value;
    std::int16_t AnalogWaveRecord::*Unit;
};

/// All boxes, in the order of `Entry` and of the focus.
std::span<const EntryRow> EntryRows();

/// Longest text that can be typed into a value box.
inline constexpr std::size_t ValueBoxLength = 7;

const std::string& EntryText(const AnalogWaveRecord& wave, Entry entry);
/// True for a box without a number: an empty text, or a first "-" with nothing behind it.
bool IsEmptyEntry(const AnalogWaveRecord& wave, Entry entry);
/// The number in a box; 0 for a text that is no number.
double EntryNumber(const AnalogWaveRecord& wave, Entry entry);
/// Normalised amplitude of a value box.
double EntryAmplitude(const AnalogWaveRecord& wave, Entry entry);

/// The user changed the text of a box: the field follows, held to 0..MaxDots - 1 or to half of Vpp,
/// and the text is corrected with it.
void ChangeEntry(AnalogWaveRecord& wave, Entry entry, std::string_view typed);
/// The focus leaves a box: a value box shows the number of its field, or nothing without one.
void LeaveEntry(AnalogWaveRecord& wave, Entry entry);

/// Switches the value boxes of the active document to millivolts (1000) or volts (1).
void SwitchEntryUnits(std::int16_t unit);

/// A tool has just gone on: its boxes begin empty, or with the bounds of the view.
void BeginEntries(AnalogWaveRecord& wave);
/// The boxes of the line tool show the last point and the end of the guide.
void ShowLineEnds(std::int16_t index, const PlotPlace& end);
/// Writes what the tool's gesture has set into its boxes and shows them.
void ShowCursorValues(std::int16_t index);

// A read-out beside the boxes: dots as numbers or times, amplitudes in volts.
struct ReadOut {
    std::string_view Label;
    std::string (*Text)(const AnalogWaveRecord& wave);
};
std::span<const ReadOut> ReadOuts();
/// Dot, time and volts at a position of the plot.
std::string PointerText(const AnalogWaveRecord& wave, std::int32_t x, std::int32_t y);
