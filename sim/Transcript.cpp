#include "Transcript.h"

#include <chrono>
#include <cstdio>
#include <ctime>

namespace sim {

namespace {

constexpr std::size_t LongestText = 100;  // characters of a message that are shown

const char* NameOf(Link link) {
    return link == Link::Usb ? "USB  " : "RS232";
}

std::string Shown(std::string_view text) {
    std::string shown;
    for (const char next : text.substr(0, LongestText)) {
        if (next >= ' ' && next <= '~') {
            shown += next;
            continue;
        }
        char code[8];
        std::snprintf(code, sizeof code, "\\x%02X", unsigned{static_cast<unsigned char>(next)});
        shown += code;
    }
    if (text.size() > LongestText) shown += "...";
    return shown;
}

}  // namespace

std::string MessageLine(Link link, std::string_view message, const Outcome& outcome) {
    std::string line =
        std::string(NameOf(link)) + " -> " + Shown(message.substr(0, outcome.TextBytes));
    if (!outcome.Note.empty()) line += "  (" + outcome.Note + ")";
    if (!outcome.Error.empty()) line += "  ERROR: " + outcome.Error;
    return line;
}

std::string ReplyLine(Link link, std::string_view reply, const Outcome& outcome) {
    const std::string start = std::string(NameOf(link)) + " <- ";
    if (outcome.ReplyIsData) {
        return start + std::to_string(reply.size() / 2) + " samples (" +
               std::to_string(reply.size()) + " bytes)";
    }
    if (reply.ends_with('\n')) reply.remove_suffix(1);
    return start + Shown(reply);
}

void PrintLine(const std::string& line) {
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto sinceSecond = now - std::chrono::system_clock::from_time_t(seconds);
    const auto millis = std::chrono::duration_cast<std::chrono::milliseconds>(sinceSecond).count();
    std::tm local = {};
    localtime_r(&seconds, &local);
    std::printf("%02d:%02d:%02d.%03d %s\n", local.tm_hour, local.tm_min, local.tm_sec,
                static_cast<int>(millis), line.c_str());
    std::fflush(stdout);
}

}  // namespace sim
