#pragma once
// What the files of all documents have in common: names, reading with its messages, number fields.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

inline constexpr std::string_view LineEnd = "\r\n";

/// The capacity of the largest model, dots. A file made for it opens whatever model is selected.
inline constexpr std::int32_t LargestCapacity = 1048576;

/// What stands behind the last separator; files come from systems with either.
std::string NameOfPath(const std::string& path);
/// True when a text ends with `lowerCase`, in any case.
bool EndsWithLetters(std::string_view text, std::string_view lowerCase);

/// Reads a whole file; false, with a message, when that fails or it is longer than any of ours.
bool ReadFileBytes(const std::string& path, std::string& bytes);
/// Reads the first `maxBytes` bytes of a file; false, with the same message, when that fails.
bool ReadFirstBytes(const std::string& path, std::size_t maxBytes, std::string& bytes);
/// Tells that a file is none of ours, or damaged.
void TellInvalidFile();

/// Writes a blank in front of a number that is not negative, the number and a blank; returns the
/// end. `to` has room for NumberWidth + 2 bytes.
char* WriteField(char* to, double value);
/// The same for a whole number, which is quicker.
char* WriteWholeField(char* to, std::int32_t value);
char* WriteLineEnd(char* to);

/// A line with one number as WriteField writes it.
void AppendFieldLine(std::string& to, double value);
