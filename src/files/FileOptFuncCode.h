#pragma once
// Analog documents to and from files: text (everything, exact), CSV (everything, volts to three
// digits) and RDF (the instrument's 14-bit codes only). A save writes a temporary file beside the
// target and renames it; a reader checks everything before a document is made.
#include "analog/AnalogDocument.h"

#include <string>
#include <string_view>

/// Save: to the document's file, or asks for one. False when nothing was written.
bool SaveAnalog(std::int16_t index);
/// Save As: always asks for the file.
bool SaveAnalogAs(std::int16_t index);
/// Saves every modified document; stops at the first that was not saved.
bool SaveAllAnalog();
/// Open: asks for a file and makes a document of it.
void OpenAnalog();
/// Makes a document of a file; false with a message, and no document, when it cannot be read.
bool OpenAnalogFile(const std::string& path);

/// Insert from File: asks for a file and inserts it as InsertAnalogFile does. A full document asks
/// for none and is told.
void InsertFromFile();
/// Appends the dots of a file to the active document as one custom segment, as one edit: volts
/// stay, clipped to the rails. Dots without room are dropped, which the user is told. False with
/// a message, and nothing changed, when the file cannot be read or holds no dot.
bool InsertAnalogFile(const std::string& path);

// The formats on memory, for files and tests.
enum class AnalogFormat { Text, Csv, Rdf };
/// By the last three letters of the name, in any case; text for others.
AnalogFormat FormatOfName(std::string_view path);

std::string WriteAnalogText(const AnalogWaveRecord& wave);
std::string WriteAnalogCsv(const AnalogWaveRecord& wave);
std::string WriteAnalogRdf(const AnalogWaveRecord& wave);

/// False when the bytes are not of the format, or counts and values contradict each other or the
/// limits; `content` is then undefined.
bool ReadAnalogText(std::string_view bytes, LoadedWave& content);
bool ReadAnalogCsv(std::string_view bytes, LoadedWave& content);
bool ReadAnalogRdf(std::string_view bytes, LoadedWave& content);
