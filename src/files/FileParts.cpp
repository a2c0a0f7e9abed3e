#include "files/FileParts.h"

#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "platform/SafeFile.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace {

// Well above a million dots with a segment for each, and above 16 million sample words; a longer
// file is none of ours.
constexpr std::size_t LargestFile = std::size_t{256} << 20;

// Tells why a file could not be read; true where it could, error 0.
bool CheckOpened(int error) {
    if (error == 0) return true;
    Complain(PickText("The file could not be opened: ", "文件无法打开："), FileErrorText(error));
    return false;
}

}  // namespace

std::string NameOfPath(const std::string& path) {
    return path.substr(path.find_last_of("\\/") + 1);  // npos + 1 is 0
}

bool EndsWithLetters(std::string_view text, std::string_view lowerCase) {
    if (text.size() < lowerCase.size()) return false;
    return std::ranges::equal(
        text.substr(text.size() - lowerCase.size()), lowerCase,
        [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; });
}

bool ReadFileBytes(const std::string& path, std::string& bytes) {
    return CheckOpened(ReadWholeFile(path, LargestFile, bytes));
}

bool ReadFirstBytes(const std::string& path, std::size_t maxBytes, std::string& bytes) {
    return CheckOpened(ReadFileHead(path, maxBytes, bytes));
}

void TellInvalidFile() {
    Complain(PickText("The file format is invalid！", "文件格式不正确！"));
}

char* WriteField(char* to, double value) {
    if (!std::signbit(value)) *to++ = ' ';
    to = WriteShortest(to, value);
    *to++ = ' ';
    return to;
}

char* WriteWholeField(char* to, std::int32_t value) {
    if (value >= 0) *to++ = ' ';
    to = std::to_chars(to, to + NumberWidth, value).ptr;
    *to++ = ' ';
    return to;
}

char* WriteLineEnd(char* to) {
    return std::ranges::copy(LineEnd, to).out;
}

void AppendFieldLine(std::string& to, double value) {
    char text[NumberWidth + 2];
    to.append(text, WriteField(text, value)).append(LineEnd);
}
