#pragma once
// Digital documents to and from files ".DRIG", a text with one value on each line. A save writes a
// temporary file beside the target and renames it; a reader checks everything before a document is
// made.
#include "digital/DigitDocumentFuncBox.h"

#include <string>
#include <string_view>

/// Save: to the document's file, or asks for one. False when nothing was written.
bool SaveDigit(std::int16_t index);
/// Save As: always asks for the file.
bool SaveDigitAs(std::int16_t index);
/// Saves every changed digital document; stops at the first that was not saved.
bool SaveAllDigit();
/// Open: asks for a file and makes a document of it.
void OpenDigit();
/// Makes a document of a file; false with a message, and no document, when it cannot be read.
bool OpenDigitFile(const std::string& path);

// The format on memory.
std::string WriteDigitText(const DigitDocument& document);
/// False when the bytes are not of the format, or counts and values contradict each other or their
/// ranges; `content` is then undefined.
bool ReadDigitText(std::string_view bytes, LoadedDigit& content);
