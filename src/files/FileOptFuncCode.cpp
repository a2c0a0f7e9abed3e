#include "files/FileOptFuncCode.h"

#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "files/FileParts.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"
#include "platform/SafeFile.h"

#include <algorithm>
#include <filesystem>

namespace {

struct FormatRow {
    std::string_view Extension;
    std::string (*Write)(const AnalogWaveRecord& wave);
    bool (*Read)(std::string_view bytes, LoadedWave& content);
};

// In the order of AnalogFormat and of the dialogs' filter.
constexpr FormatRow Formats[] = {
    {".txt", WriteAnalogText, ReadAnalogText},
    {".csv", WriteAnalogCsv, ReadAnalogCsv},
    {".rdf", WriteAnalogRdf, ReadAnalogRdf},
};
constexpr std::string_view FilterEnglish =
    "Text Files (.txt)|*.txt|Microsoft Excel Files (*.csv)|*.csv|Arb Waveform(*.rdf)|*.rdf";
constexpr std::string_view FilterChinese =
    "文本文件(.txt)|*.txt|Microsoft Excel 文件(*.csv)|*.csv|任意波形(*.rdf)|*.rdf";

const FormatRow& RowOf(AnalogFormat format) {
    return Formats[static_cast<std::size_t>(format)];
}

std::string FolderOfPath(const std::string& path) {
    return std::filesystem::path(path).parent_path().string();
}

void SetFile(AnalogWaveRecord& wave, const std::string& path) {
    wave.FileName = path;
    wave.FolderName = FolderOfPath(path);
    wave.Name = NameOfPath(path);
    wave.Saved = true;
    wave.Modified = false;
}

bool SaveTo(std::int16_t index, const std::string& path) {
    AnalogWaveRecord& wave = AnalogAt(index);
    CloseStroke(wave);  // its dots have no segment before
    const std::string bytes = RowOf(FormatOfName(path)).Write(wave);
    if (const int error = WriteFileSafely(path, bytes)) {
        TellSaveFault(error);
        return false;
    }
    SetFile(wave, path);
    TheHost().ShowTitle(index);
    return true;
}

// A name with an extension that is none of ours would be read as text whatever the filter said.
void CompleteName(std::string& path, std::int32_t filterIndex) {
    for (const FormatRow& row : Formats)
        if (EndsWithLetters(path, row.Extension)) return;
    const bool known = filterIndex >= 0 && filterIndex < std::ssize(Formats);
    path += Formats[known ? filterIndex : 0].Extension;
}

// The file to save to; empty when the user changed his mind.
std::string ChooseTarget(const AnalogWaveRecord& wave, std::string_view title) {
    const FileChoice choice = {
        .Title = std::string(title),
        .Filter = std::string(PickText(FilterEnglish, FilterChinese)),
        .Folder = wave.FolderName,
        .Name = wave.Name,
        .Save = true,
        .FilterIndex = static_cast<std::int32_t>(FormatOfName(wave.FileName)),
    };
    std::string path = TheHost().ChooseFile(choice);
    if (path.empty()) return path;
    CompleteName(path, choice.FilterIndex);
    return path == wave.FileName || MayReplaceFile(path) ? path : std::string();
}

bool ChooseAndSave(std::int16_t index, std::string_view title) {
    const std::string path = ChooseTarget(AnalogAt(index), title);
    return !path.empty() && SaveTo(index, path);
}

bool ReadContent(const std::string& path, LoadedWave& content) {
    std::string bytes;
    if (!ReadFileBytes(path, bytes)) return false;
    if (RowOf(FormatOfName(path)).Read(bytes, content)) return true;
    TellInvalidFile();
    return false;
}

// The user picks a file to read; `folder` is where the dialog opens.
std::string ChooseSource(std::string_view title, const std::string& folder) {
    FileChoice choice;
    choice.Title = title;
    choice.Filter = PickText(FilterEnglish, FilterChinese);
    choice.Folder = folder;
    return TheHost().ChooseFile(choice);
}

void TellDropped(std::int32_t inserted, std::int32_t all) {
    const std::string count = std::to_string(inserted), total = std::to_string(all);
    const std::string text =
        UseEnglish == 1 ? count + " of " + total + " dots were inserted; the others do not fit."
                        : "已插入 " + count + " 点（共 " + total + " 点），其余点数超出上限。";
    TheHost().Ask(text, Buttons::Ok, MessageIcon::Information);
}

}  // namespace

bool SaveAnalog(std::int16_t index) {
    const AnalogWaveRecord& wave = AnalogAt(index);
    if (!wave.FileName.empty()) return SaveTo(index, wave.FileName);
    return ChooseAndSave(index, PickText("Save File", "保存文件"));
}

bool SaveAnalogAs(std::int16_t index) {
    return ChooseAndSave(index, PickText("Save as file！", "另存为！"));
}

bool SaveAllAnalog() {
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) {
        const bool wanted = AnalogInUse[slot] && AnalogAt(slot).Modified;
        if (wanted && !SaveAnalog(slot)) return false;
    }
    return true;
}

void OpenAnalog() {
    if (!RoomForDocument()) return;
    const std::string path = ChooseSource(PickText("Open File", "打开文件"), "");
    if (!path.empty()) OpenAnalogFile(path);
}

bool OpenAnalogFile(const std::string& path) {
    LoadedWave content;
    if (!RoomForDocument() || !ReadContent(path, content)) return false;
    if (!OpenLoadedWave(std::move(content))) return false;
    SetFile(ActiveAnalog(), path);
    TheHost().ShowTitle(ActiveAnalogIndex);
    TheHost().RefreshCommands();
    return true;
}

void InsertFromFile() {
    const AnalogWaveRecord& wave = ActiveAnalog();
    if (!RoomForDots(wave)) return;
    const std::string path =
        ChooseSource(PickText("Insert from File", "从文件插入"), wave.FolderName);
    if (!path.empty()) InsertAnalogFile(path);
}

bool InsertAnalogFile(const std::string& path) {
    LoadedWave content;
    if (!ReadContent(path, content)) return false;
    if (content.Dots == 0) {
        Complain(PickText("The file holds no dots.", "文件中没有波形点。"));
        return false;
    }
    AnalogWaveRecord& wave = ActiveAnalog();
    const std::int32_t start = wave.Dots;
    const std::int32_t count = std::min(content.Dots, wave.MaxDots - start);
    const double ratio = content.Vpp / wave.Vpp;
    ClearSelection(wave);
    BeginEdit(wave);
    for (std::int32_t i = 0; i < count; ++i)
        wave.DotArray[start + i] = {double(start + i),
                                    std::clamp(content.DotArray[i].Y * ratio, -1.0, 1.0)};
    AppendSegment(wave, {.DotCount = count});
    EndEdit(ActiveAnalogIndex);
    if (count < content.Dots) TellDropped(count, content.Dots);
    return true;
}

AnalogFormat FormatOfName(std::string_view path) {
    if (EndsWithLetters(path, "csv")) return AnalogFormat::Csv;
    if (EndsWithLetters(path, "rdf")) return AnalogFormat::Rdf;
    return AnalogFormat::Text;
}
