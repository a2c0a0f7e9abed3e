#pragma once
// Life of analog documents: slots, creation, reset, activation, closing.
#include "frame/records/AnalogWaveRecord.h"

/// Sets every view, selection, tool and undo field of a new or newly loaded document to its
/// default. Dots, segments, Vpp, Period and the view stay.
void ResetDocumentState(AnalogWaveRecord& wave);

/// Empties the document and sizes its arrays to `maxDots`; the view becomes the whole capacity. The
/// memory of `dots` becomes that of the document, whose count stays 0.
void AllocateDots(AnalogWaveRecord& wave, std::int32_t maxDots, std::vector<WaveDot> dots = {});

/// The whole capacity, amplitudes 1.0 to -1.0, no axis zoomed.
void ShowWholeWave(AnalogWaveRecord& wave);

/// True when no dot can be added to the active capacity less one.
bool DotsFull(const AnalogWaveRecord& wave);

/// Tests DotsFull and tells the user when it is so.
bool RoomForDots(const AnalogWaveRecord& wave);

/// Tests the limit of ten documents and tells the user when it is reached.
bool RoomForDocument();

/// The command New: tests the limit, runs the property dialog, creates the document.
void NewAnalogDocument();

/// Builds name, window, surfaces and limit lines of slot ActiveAnalogIndex, whose record holds
/// Vpp, Period, Quantify and allocated dots. False, with a message, when ten are open.
bool CreateAnalogDocument();

/// Bounds of Vpp and Period, volts and seconds: files with others are refused.
inline constexpr double LeastScale = 1e-9, LargestScale = 1e9;

// A waveform from a file or from the instrument, on its way into a document.
struct LoadedWave {
    std::int32_t MaxDots = 0, Dots = 0, LastDot = 0;
    double Vpp = 0.0, Period = 0.0;
    std::int16_t Quantify = 0;
    std::vector<WaveDot> DotArray;  // size MaxDots
    std::vector<WaveSegment> Segments;
};
/// One custom segment over all dots; none when there are no dots.
void CoverWithOneSegment(LoadedWave& loaded);
/// Makes the waveform the document of the first free slot, with its whole capacity in view. False,
/// with a message, when ten are open.
bool OpenLoadedWave(LoadedWave loaded);

/// Reads the tag of the active child window into ActiveAnalogIndex or ActiveDigitIndex and sets
/// ActiveIsDigital. -1 when there is no child window.
std::int16_t ActiveDocumentIndex();

/// Asks to save a modified document of a slot; false when the window must stay. `save` is the
/// save command of the files module and returns false when nothing was saved.
bool QueryCloseDocument(std::int16_t index, bool (*save)(std::int16_t index));

/// The window of a slot has closed: frees the slot and its memory.
void DocumentClosed(std::int16_t index);
