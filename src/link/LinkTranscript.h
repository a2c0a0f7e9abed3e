#pragma once
// What went over the link, for support: every text and block with its time. Off by default.
#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <string_view>

enum class LinkWay { Sent, Received, Event };

inline constexpr std::size_t MostTranscriptLines = 10000;  // the oldest go first

/// True while exchanges are noted.
bool TranscriptOn();
void SwitchTranscript(bool on);
void ClearTranscript();

/// Lines such as "10:31:07.204  >  *IDN?"; unprintable bytes as <0A>, closing zero bytes left out.
const std::deque<std::string>& TranscriptLines();
/// How many lines stood before the first of these since the program's start, dropped or cleared.
std::uint64_t FirstTranscriptLine();

void NoteText(LinkWay way, std::string_view text);
/// A block: its size, its head as text and the first bytes behind it in hexadecimal.
void NoteBlock(LinkWay way, std::span<const std::uint8_t> bytes);

/// Asks for a file and writes the lines; a message tells when that fails.
void SaveTranscript();
