#include "files/RecoveryCopy.h"

#include "files/DigitFileFuncCode.h"
#include "files/FileOptFuncCode.h"
#include "files/FileProgress.h"

#include <charconv>
#include <memory>

// A copy, lines ended by LF:
//
//   TideMark recovery 1          1: version of this form
//   analog                       or digital
//   Waveform0                    title
//   /home/kim/ring%0A.txt        file; may be empty
//   1234                         bytes of the document
//                                an empty line, then those bytes
//
// Control characters, line ends above all, and "%" itself stand as "%" and two digits.

namespace {

constexpr std::string_view Signature = "TideMark recovery 1";
constexpr std::string_view AnalogKind = "analog", DigitKind = "digital";
constexpr std::string_view HexDigits = "0123456789ABCDEF";
constexpr unsigned char FirstPlain = 0x20, Delete = 0x7F;

std::string EscapeLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= FirstPlain && byte != Delete && c != '%') {
            line += c;
            continue;
        }
        line += '%';
        line += HexDigits[byte >> 4];
        line += HexDigits[byte & 0xF];
    }
    return line;
}

bool UnescapeLine(std::string_view line, std::string& text) {
    text.clear();
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '%') {
            text += line[i];
            continue;
        }
        if (i + 2 >= line.size()) return false;
        const std::size_t high = HexDigits.find(line[i + 1]), low = HexDigits.find(line[i + 2]);
        if (high == std::string_view::npos || low == std::string_view::npos) return false;
        text += static_cast<char>(high << 4 | low);
        i += 2;
    }
    return true;
}

std::string MakeCopy(std::string_view kind, const std::string& name, const std::string& path,
                     std::string body) {
    std::string head;
    head.append(Signature).append("\n").append(kind).append("\n");
    head.append(EscapeLine(name)).append("\n").append(EscapeLine(path)).append("\n");
    head.append(std::to_string(body.size())).append("\n\n");
    return body.insert(0, head);
}

bool TakeLine(std::string_view& rest, std::string_view& line) {
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos) return false;
    line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    return true;
}

bool ReadLength(std::string_view line, std::size_t& length) {
    const char* const end = line.data() + line.size();
    const auto [at, error] = std::from_chars(line.data(), end, length);
    return error == std::errc() && at == end;
}

// A copy is taken for whole when it is as long as its head says.
bool ReadWholeHead(std::string_view bytes, bool digital, CopyHead& head) {
    return ReadCopyHead(bytes, head) && head.IsDigital == digital &&
           bytes.size() - head.BodyAt == head.BodyLength;
}

}  // namespace

std::function<std::string()> CopyAnalog(const AnalogWaveRecord& wave) {
    const auto copy = std::make_shared<AnalogWaveRecord>();
    copy->MaxDots = wave.MaxDots;
    copy->Dots = wave.Dots;
    copy->LastDot = wave.LastDot;
    copy->Vpp = wave.Vpp;
    copy->Period = wave.Period;
    copy->Quantify = wave.Quantify;
    copy->SegmentCount = wave.SegmentCount;
    copy->Segments.assign(wave.Segments.begin(), wave.Segments.begin() + wave.SegmentCount);
    copy->DotArray.assign(wave.DotArray.begin(), wave.DotArray.begin() + wave.Dots);
    copy->Name = wave.Name;
    copy->FileName = wave.FileName;
    return [copy] {
        ShowsProgress = false;
        return MakeCopy(AnalogKind, copy->Name, copy->FileName, WriteAnalogText(*copy));
    };
}

std::function<std::string()> CopyDigit(const DigitDocument& document) {
    const auto copy = std::make_shared<DigitDocument>();
    copy->Dots = document.Dots;
    copy->Rate = document.Rate;
    copy->CaliperDefault = document.CaliperDefault;
    copy->NodeCount = document.NodeCount;
    copy->ChannelCount = document.ChannelCount;
    copy->SampleCount = document.SampleCount;
    copy->Reserved1 = document.Reserved1;
    copy->Nodes = document.Nodes;
    copy->DigitSamples = document.DigitSamples;
    copy->Title = document.Title;
    copy->FilePath = document.FilePath;
    return [copy] {
        ShowsProgress = false;
        return MakeCopy(DigitKind, copy->Title, copy->FilePath, WriteDigitText(*copy));
    };
}

bool ReadCopyHead(std::string_view bytes, CopyHead& head) {
    std::string_view rest = bytes, signature, kind, name, path, length, last;
    const bool read = TakeLine(rest, signature) && TakeLine(rest, kind) && TakeLine(rest, name) &&
                      TakeLine(rest, path) && TakeLine(rest, length) && TakeLine(rest, last);
    if (!read || signature != Signature || !last.empty()) return false;
    if (kind != AnalogKind && kind != DigitKind) return false;
    head.IsDigital = kind == DigitKind;
    head.BodyAt = bytes.size() - rest.size();
    return UnescapeLine(name, head.Name) && UnescapeLine(path, head.Path) &&
           ReadLength(length, head.BodyLength);
}

bool ReadAnalogCopy(std::string_view bytes, CopyHead& head, LoadedWave& content) {
    return ReadWholeHead(bytes, false, head) && ReadAnalogText(bytes.substr(head.BodyAt), content);
}

bool ReadDigitCopy(std::string_view bytes, CopyHead& head, LoadedDigit& content) {
    return ReadWholeHead(bytes, true, head) && ReadDigitText(bytes.substr(head.BodyAt), content);
}
