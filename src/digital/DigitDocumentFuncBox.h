#pragma once
// Life of digital documents: slots, creation, reset, closing.
#include "frame/records/DigitDocument.h"

#include <cstdint>
#include <string>
#include <vector>

/// The command New: tests the limit, runs the property dialog, creates the document.
void NewDigitDocument();

/// Makes the document of slot ActiveDigitIndex, whose record holds Dots, Rate and CaliperDefault:
/// title, window, surfaces, and empties it. False, with a message, when ten are open.
bool CreateDigitDocument();

// A waveform from a file or from the instrument, on its way into a document. Values are in range.
struct LoadedDigit {
    std::int32_t Dots = 0;
    double Rate = 0.0;  // bits per second
    std::int32_t CaliperDefault = 0;
    std::int32_t Reserved1 = 0;
    std::vector<DigitNode> Nodes;
    std::vector<std::int32_t> DigitSamples;  // at least as long as the longest node
};
/// Tests the limit of ten digital documents for opening and reading back, with its message.
bool RoomForDigit();
/// Makes the waveform the document of the first free slot, seen from its caliper, with a title.
/// False, with a message, when ten are open.
bool OpenLoadedDigit(LoadedDigit loaded, std::string title);

/// Empties a document: nodes, samples, selections, gestures, snapshot; zoom 1, the caliper at
/// CaliperDefault (held to Dots - 1), the page that shows it.
void ResetDigitDocument(DigitDocument& document);

/// Asks to save a changed document of a slot; false when the window must stay. `save` is the save
/// command of the files module and returns false when nothing was saved.
bool QueryCloseDigit(std::int16_t index, bool (*save)(std::int16_t index));
/// The window of a slot has closed: frees the slot and its memory.
void DigitDocumentClosed(std::int16_t index);

/// The hint of the status strip for a digital document.
void ShowDigitStatus();
