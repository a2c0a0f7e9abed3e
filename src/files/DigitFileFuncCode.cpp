#include "files/DigitFileFuncCode.h"

#include "digital/GlobalDigitDefineCode.h"
#include "files/FileParts.h"
#include "frame/GlobalDefineCode.h"
#include "frame/MessageBoxes.h"
#include "platform/Host.h"
#include "platform/ProgramFolder.h"
#include "platform/SafeFile.h"

#include <filesystem>
#include <utility>

namespace {

constexpr std::string_view Extension = ".DRIG", ExtensionLetters = ".drig";

// The same in both languages, as the titles and the question are.
constexpr std::string_view Filter = "数字波形文件(.DRIG)|*.DRIG";
constexpr std::string_view SaveTitle = "保存为DRIG文件", SaveAsTitle = "另存为DRIG文件";
constexpr std::string_view OpenTitle = "打开波形文件";
constexpr std::string_view ReplaceTitle = "将文件另存为！", ReplaceText = "该文件已存在要覆盖吗";

FileChoice MakeChoice(std::string_view title) {
    FileChoice choice;
    choice.Title = title;
    choice.Filter = Filter;
    choice.Folder = TempFolder();
    return choice;
}

// The file to save to; empty when the user changed his mind.
std::string ChooseTarget(const DigitDocument& document, std::string_view title) {
    FileChoice choice = MakeChoice(title);
    choice.Name = document.Title;
    choice.Save = choice.ConfirmReplace = true;
    std::string path = TheHost().ChooseFile(choice);
    if (!path.empty() && !EndsWithLetters(path, ExtensionLetters)) path += Extension;
    return path;
}

// True of a folder alone: a file that exists is replaced without a word, and whoever picks one has
// been asked by the dialog.
bool MayReplace(std::int16_t index, const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_directory(path, error)) return true;
    const Answer answer =
        TheHost().Ask(ReplaceText, Buttons::OkCancel, MessageIcon::Question, ReplaceTitle);
    if (answer == Answer::Ok) return true;
    // The analog document of the same slot forgets its file, as it always has: a compatibility
    // that is kept on purpose. The digital document keeps the path it had.
    AnalogAt(index).FileName.clear();
    return false;
}

void SetFile(std::int16_t index, const std::string& path) {
    DigitDocument& document = DigitAt(index);
    document.FilePath = path;
    document.Title = NameOfPath(path);
    document.IsSaved = true;
    document.Changed = false;
    TheHost().ShowTitle(TagOfDigit(index));
    TheHost().RefreshCommands();
}

bool SaveTo(std::int16_t index, const std::string& path) {
    if (path.empty() || !MayReplace(index, path)) return false;
    if (const int error = WriteFileSafely(path, WriteDigitText(DigitAt(index)))) {
        TellSaveFault(error);
        return false;
    }
    SetFile(index, path);
    return true;
}

}  // namespace

bool SaveDigit(std::int16_t index) {
    const DigitDocument& document = DigitAt(index);
    const std::string path = document.FilePath;
    return SaveTo(index, path.empty() ? ChooseTarget(document, SaveTitle) : path);
}

bool SaveDigitAs(std::int16_t index) {
    return SaveTo(index, ChooseTarget(DigitAt(index), SaveAsTitle));
}

bool SaveAllDigit() {
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) {
        const bool wanted = DigitDocUsed[static_cast<std::size_t>(slot)] && DigitAt(slot).Changed;
        if (wanted && !SaveDigit(slot)) return false;
    }
    return true;
}

void OpenDigit() {
    if (!RoomForDigit()) return;
    const std::string path = TheHost().ChooseFile(MakeChoice(OpenTitle));
    if (!path.empty()) OpenDigitFile(path);
}

bool OpenDigitFile(const std::string& path) {
    std::string bytes;
    if (!RoomForDigit() || !ReadFileBytes(path, bytes)) return false;
    LoadedDigit content;
    if (!ReadDigitText(bytes, content)) {
        TellInvalidFile();
        return false;
    }
    if (!OpenLoadedDigit(std::move(content), NameOfPath(path))) return false;
    ActiveDigit().OpenPath = path;
    SetFile(ActiveDigitIndex, path);
    return true;
}
