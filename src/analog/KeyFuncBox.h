#pragma once
// Keys in the plot that do what the mouse does there: they pick segments, move an edge of the
// selection or a limit line, and pan.
#include <cstdint>

enum class PlotKey : std::uint8_t { Left, Right, Up, Down, Home, End, PageUp, PageDown, Space };

// What is held with a key. `Repeats`: the key itself has been held for a while.
struct KeyState {
    bool Shift = false, Control = false, Alt = false, Repeats = false;
};

/// A key in the plot of a slot. False where it means nothing with the tool in use. With the select
/// tool:
/// - Left and Right pick the segment before or behind the selection, Home and End the first or the
///   last one.
/// - With Shift they move an edge of the selection: by the dots of a pixel column, with Control by
///   a tenth of the view, to the first or the last dot. Space takes the other edge. Without a
///   selection it begins at the edge of what is seen.
/// - With Alt the arrows move the left or the top limit line by a logical pixel, by ten while the
///   key is held; with Shift as well the right or the bottom one.
/// - Page Up and Page Down move the view by half of its dots, with Control by half of its
///   amplitudes; this they do with each tool that has no use for them.
bool WavePic_KeyDown(std::int16_t index, PlotKey key, KeyState held);
