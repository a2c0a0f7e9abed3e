#include "files/NumberLines.h"

#include "frame/StringFunc.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsFill(char c) {
    return c == ' ' || c == '\t' || c == '"';
}

void SkipFill(NumberLines& in) {
    while (in.At != in.End && IsFill(*in.At)) ++in.At;
}

std::string_view TakeLine(NumberLines& in) {
    const char* begin = in.At;
    const char* end = std::find(begin, in.End, '\n');
    in.At = end == in.End ? end : end + 1;
    return {begin, end};
}

// A plain whole number of few digits, as every dot index is. Not taken when more follows.
bool TakeIndex(NumberLines& in, double& value) {
    constexpr int longest = 9;
    const char* at = in.At;
    std::int32_t whole = 0;
    while (at != in.End && IsDigit(*at) && at - in.At < longest) whole = whole * 10 + (*at++ - '0');
    if (at == in.At) return false;
    if (at != in.End && (IsDigit(*at) || *at == '.' || *at == 'e' || *at == 'E')) return false;
    in.At = at;
    value = whole;
    return true;
}

}  // namespace

NumberLines OpenNumberLines(std::string_view bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
    return {bytes.data(), bytes.data() + bytes.size()};
}

bool TakeTitle(NumberLines& in, std::string_view title) {
    constexpr std::size_t slack = 64;  // room for marks, before the line is copied
    const std::string_view line = TakeLine(in);
    if (line.size() > title.size() + slack) return false;
    std::string text(line);
    std::erase(text, '"');
    const auto last = text.find_last_not_of(", \t\r");
    return text.substr(0, last == std::string::npos ? 0 : last + 1) == title;
}

bool TakeNumber(NumberLines& in, double& value) {
    SkipFill(in);
    return TakeBareNumber(in, value);
}

bool TakeBareNumber(NumberLines& in, double& value) {
    if (TakeIndex(in, value)) return true;
    if (in.At != in.End && *in.At == '+') {
        if (++in.At == in.End || *in.At == '-') return false;
    }
    const auto read = std::from_chars(in.At, in.End, value);
    if (read.ec == std::errc::result_out_of_range) {
        const auto number = TextToNumber({in.At, read.ptr});
        if (!number) return false;
        value = *number;
    } else if (read.ec != std::errc()) {
        return false;
    }
    in.At = read.ptr;
    return std::isfinite(value);
}

bool TakeComma(NumberLines& in) {
    SkipFill(in);
    if (in.At == in.End || *in.At != ',') return false;
    ++in.At;
    return true;
}

bool TakeLineEnd(NumberLines& in) {
    while (in.At != in.End && (IsFill(*in.At) || *in.At == ',')) ++in.At;
    if (in.At != in.End && *in.At == '\r') ++in.At;
    if (in.At == in.End) return true;
    return *in.At++ == '\n';
}

bool TakeCaption(NumberLines& in) {
    const char* at = in.At;
    while (at != in.End && *at != ':' && *at != '\n') ++at;
    if (at == in.End || *at != ':') return false;
    in.At = at + 1;
    while (in.At != in.End && (IsFill(*in.At) || *in.At == ',')) ++in.At;
    return true;
}

bool TakeNumberLine(NumberLines& in, double& value) {
    return TakeNumber(in, value) && TakeLineEnd(in);
}
