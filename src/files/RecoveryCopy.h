#pragma once
// The copy of a document in the recovery store: a few lines about the document, then its bytes as
// its own exact format has them.
#include "analog/AnalogDocument.h"
#include "digital/DigitDocumentFuncBox.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

// Enough bytes of a copy for its head, whatever the path.
inline constexpr std::size_t MostHeadBytes = 32768;

struct CopyHead {
    bool IsDigital = false;
    std::string Name;            // title of the document
    std::string Path;            // of its file; empty: none
    std::size_t BodyAt = 0;      // where the document's bytes begin
    std::size_t BodyLength = 0;  // bytes
};

/// Takes a copy of what files keep of a document, and of its title and file; the result makes the
/// bytes of both, in any thread.
std::function<std::string()> CopyAnalog(const AnalogWaveRecord& wave);
std::function<std::string()> CopyDigit(const DigitDocument& document);

/// Reads the head of a copy of which `bytes` is the beginning; false when that is none of ours.
bool ReadCopyHead(std::string_view bytes, CopyHead& head);

/// Reads a whole copy. False when it is damaged or of the other kind; `content` is then undefined.
bool ReadAnalogCopy(std::string_view bytes, CopyHead& head, LoadedWave& content);
bool ReadDigitCopy(std::string_view bytes, CopyHead& head, LoadedDigit& content);
