#pragma once
// Life of digital documents: slots, creation, reset, closing.
#include "frame/records/DigitDocument.h"

#include <cstdint>

/// The command New: tests the limit, runs the property dialog, creates the document.
void NewDigitDocument();

/// Makes the document of slot ActiveDigitIndex, whose record holds Dots, Rate and CaliperDefault:
/// title, window, surfaces, and empties it. False, with a message, when ten are open.
bool CreateDigitDocument();

/// Empties a document: nodes, samples, selections, gestures, snapshot; zoom 1, the caliper at
/// CaliperDefault (held to Dots - 1), the page that shows it.
void ResetDigitDocument(DigitDocument& document);

/// Asks to save a changed document of a slot; false when the window must stay.
bool QueryCloseDigit(std::int16_t index);
/// The window of a slot has closed: frees the slot and its memory.
void DigitDocumentClosed(std::int16_t index);

/// The hint of the status strip for a digital document.
void ShowDigitStatus();
