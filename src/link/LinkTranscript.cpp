#include "link/LinkTranscript.h"

#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"
#include "platform/SafeFile.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace {

constexpr std::size_t MostHeadBytes = 36;   // of a block: command and field of a data packet
constexpr std::size_t MostBlockBytes = 64;  // shown behind the head

bool recording = false;
std::deque<std::string> lines;
std::uint64_t noted = 0;  // lines since the program's start

std::string ClockText() {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto since = now.time_since_epoch();
    const auto milliseconds =
        std::chrono::duration_cast<std::chrono::milliseconds>(since).count() % 1000;
    std::tm local{};
    localtime_r(&seconds, &local);
    char text[16];
    std::snprintf(text, sizeof text, "%02d:%02d:%02d.%03d", local.tm_hour, local.tm_min,
                  local.tm_sec, static_cast<int>(milliseconds));
    return text;
}

void AppendHex(std::string& to, unsigned char byte) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    to += Digits[byte >> 4];
    to += Digits[byte & 15];
}

void AppendShown(std::string& to, char c) {
    if (c >= ' ' && c <= '~') {
        to += c;
        return;
    }
    to += '<';
    AppendHex(to, static_cast<unsigned char>(c));
    to += '>';
}

void AddLine(LinkWay way, std::string_view text) {
    constexpr std::string_view Signs[] = {"  >  ", "  <  ", "  -  "};
    lines.push_back(ClockText().append(Signs[static_cast<int>(way)]).append(text));
    ++noted;
    if (lines.size() > MostTranscriptLines) lines.pop_front();
}

}  // namespace

bool TranscriptOn() {
    return recording;
}

void SwitchTranscript(bool on) {
    recording = on;
}

void ClearTranscript() {
    lines.clear();
}

const std::deque<std::string>& TranscriptLines() {
    return lines;
}

std::uint64_t FirstTranscriptLine() {
    return noted - lines.size();
}

void NoteText(LinkWay way, std::string_view text) {
    if (!recording) return;
    text = text.substr(0, text.find_last_not_of('\0') + 1);
    std::string shown;
    for (const char c : text) AppendShown(shown, c);
    AddLine(way, shown);
}

void NoteBlock(LinkWay way, std::span<const std::uint8_t> bytes) {
    if (!recording) return;
    std::string shown = "[" + std::to_string(bytes.size()) + " bytes] ";
    const std::size_t head = std::min(bytes.size(), MostHeadBytes);
    for (const std::uint8_t byte : bytes.first(head)) AppendShown(shown, static_cast<char>(byte));
    const auto rest = bytes.subspan(head);
    for (const std::uint8_t byte : rest.first(std::min(rest.size(), MostBlockBytes))) {
        shown += ' ';
        AppendHex(shown, byte);
    }
    if (rest.size() > MostBlockBytes) shown += " ...";
    AddLine(way, shown);
}

void SaveTranscript() {
    FileChoice choice;
    choice.Title = PickText("Save Link Transcript", "保存通讯记录");
    choice.Filter = PickText("Text Files (.txt)|*.txt", "文本文件 (.txt)|*.txt");
    choice.Name = "transcript.txt";
    choice.Save = true;
    const std::string path = TheHost().ChooseFile(choice);
    if (path.empty() || !MayReplaceFile(path)) return;
    std::string text;
    for (const std::string& line : lines) text.append(line).append("\n");
    if (const int error = WriteFileSafely(path, text)) TellSaveFault(error);
}
