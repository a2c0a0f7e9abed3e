#include "files/RecoveryFuncBox.h"

#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "digital/DigitDocumentFuncBox.h"
#include "digital/DigitEditFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "files/RecoveryCopy.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "platform/BackgroundWriter.h"
#include "platform/Host.h"
#include "platform/ProgramFolder.h"
#include "platform/SafeFile.h"
#include "platform/SessionFolder.h"

#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <new>

// The store, in the user's data folder:
//
//   recovery/run-aB3xYz/lock        held as long as the run lives
//   recovery/run-aB3xYz/analog-3    the analog document of slot 3
//   recovery/run-aB3xYz/digit-0
//   recovery/damaged/run-...        copies that could not be read, left for the user
//
// A copy that is restored moves from the folder of the run that crashed into that of this run, so
// there is no moment without one, and none that needs room on the disk.

namespace {

namespace fs = std::filesystem;

constexpr std::string_view AnalogStart = "analog-", DigitStart = "digit-";
constexpr std::size_t MostBytes = std::size_t{512} << 20;  // twice the largest file of ours
constexpr std::size_t MostListed = 10;                     // names in the question
constexpr int RetryCalls = 15;  // of KeepSession after a fault: half a minute

// The copy of a slot's document.
struct KeptCopy {
    bool Stored = false;
    std::uint64_t Stamp = 0;  // EditStamp of the state that was copied; 0: to be copied again
};

struct Session {
    SessionFolder Folder;
    int Error = 0;  // why there is no folder
    std::array<KeptCopy, MaxDocuments> Analog, Digit;
    bool FaultTold = false;
    int Pause = 0;  // calls of KeepSession until copies are tried again
};

Session session;

// A copy that a run left behind.
struct LeftCopy {
    std::string Path;
    std::string Name;  // title of the document, or the file's name where it can't be read
    bool IsDigital = false;
};

std::string StoreFolder() {
    const std::string data = UserDataFolder();
    return data.empty() ? data : (fs::path(data) / "recovery").string();
}

std::string PathOfCopy(std::string_view start, std::int16_t slot) {
    return session.Folder.Path + "/" + std::string(start) + std::to_string(slot);
}

bool IsCopyName(std::string_view name) {
    for (const std::string_view start : {AnalogStart, DigitStart})
        if (name.starts_with(start) && name.size() == start.size() + 1)
            return name.back() >= '0' && name.back() <= '9';
    return false;
}

void TellFault(int error) {
    if (session.FaultTold) return;
    session.FaultTold = true;
    Complain(
        PickText("Unsaved work cannot be kept for recovery: ", "无法保留未保存的更改以备恢复："),
        FileErrorText(error));
}

// --- keeping -----------------------------------------------------------------------------------

bool IsHeld(const AnalogWaveRecord& wave) {
    return wave.MouseArmed || wave.DrawPressed || wave.VPointerDragging || wave.HPointerDragging;
}

bool IsHeld(const DigitDocument& document) {
    return document.SelectDrag || document.CaliperDrag || document.ListDrag;
}

// Brings the copy of a document up to date; one that nobody needs any more goes.
template <typename Document>
void KeepDocument(KeptCopy& kept, std::string_view start, std::int16_t slot,
                  const Document& document, bool changed, bool paused,
                  std::function<std::string()> (*copy)(const Document&)) {
    if (!changed) {
        if (kept.Stored) RemoveSoon(PathOfCopy(start, slot));
        kept = {};
        return;
    }
    const bool stands = kept.Stored && kept.Stamp == document.EditStamp;
    if (stands || paused || IsHeld(document)) return;
    WriteSoon(PathOfCopy(start, slot), copy(document));
    kept = {true, document.EditStamp};
}

void KeepSlot(std::int16_t slot, bool paused) {
    const auto at = static_cast<std::size_t>(slot);
    const AnalogWaveRecord& wave = AnalogAt(slot);
    KeepDocument(session.Analog[at], AnalogStart, slot, wave, AnalogInUse[at] && wave.Modified,
                 paused, CopyAnalog);
    const DigitDocument& document = DigitAt(slot);
    KeepDocument(session.Digit[at], DigitStart, slot, document,
                 DigitDocUsed[at] && document.Changed, paused, CopyDigit);
}

bool HasUnsavedWork() {
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) {
        const auto at = static_cast<std::size_t>(slot);
        if (AnalogInUse[at] && AnalogAt(slot).Modified) return true;
        if (DigitDocUsed[at] && DigitAt(slot).Changed) return true;
    }
    return false;
}

// Which copy has failed is not known: all are made again after a while.
void HandleFault(int error) {
    for (KeptCopy& kept : session.Analog) kept.Stamp = 0;
    for (KeptCopy& kept : session.Digit) kept.Stamp = 0;
    session.Pause = RetryCalls;
    TellFault(error);
}

// --- restoring ---------------------------------------------------------------------------------

std::vector<LeftCopy> ListCopies(const std::vector<SessionFolder>& folders) {
    std::vector<LeftCopy> copies;
    for (const SessionFolder& folder : folders) {
        for (const std::string& name : FilesOf(folder)) {
            if (!IsCopyName(name)) continue;
            LeftCopy copy = {folder.Path + "/" + name, name, name.starts_with(DigitStart)};
            std::string bytes;
            CopyHead head;
            if (ReadFileHead(copy.Path, MostHeadBytes, bytes) == 0 && ReadCopyHead(bytes, head))
                copy.Name = head.Name;
            copies.push_back(std::move(copy));
        }
    }
    return copies;
}

Answer AskRestore(const std::vector<LeftCopy>& copies) {
    std::string names;
    for (std::size_t i = 0; i < copies.size() && i < MostListed; ++i)
        names += "  " + copies[i].Name + "\n";
    if (copies.size() > MostListed) names += "  ...\n";
    const std::string text =
        UseEnglish == 1
            ? "TideMark ended unexpectedly. Unsaved changes of these waveforms can be "
              "restored:\n\n" +
                  names +
                  "\nRestore them? No removes them for good, Cancel asks again at the next start."
            : "TideMark 上次意外退出。以下波形未保存的更改可以恢复：\n\n" + names +
                  "\n是否恢复？选择“否”将永久删除，选择“取消”则下次启动时再询问。";
    return TheHost().Ask(text, Buttons::YesNoCancel, MessageIcon::Question);
}

// The restored document's copy becomes one of this run. Where that can't be, it stays where it was
// and is offered again.
void Adopt(const LeftCopy& copy, KeptCopy& kept, const std::string& path, std::uint64_t stamp) {
    if (session.Folder.Path.empty()) return;
    if (std::rename(copy.Path.c_str(), path.c_str()) == 0) kept = {true, stamp};
}

bool RestoreAnalog(const LeftCopy& copy, std::string_view bytes) {
    CopyHead head;
    LoadedWave content;
    if (!ReadAnalogCopy(bytes, head, content)) return false;
    OpenLoadedWave(std::move(content));
    AnalogWaveRecord& wave = ActiveAnalog();
    wave.Name = head.Name;
    wave.FileName = head.Path;
    wave.FolderName = fs::path(head.Path).parent_path().string();
    wave.Saved = !head.Path.empty();
    MarkModified(wave);
    Adopt(copy, session.Analog[static_cast<std::size_t>(ActiveAnalogIndex)],
          PathOfCopy(AnalogStart, ActiveAnalogIndex), wave.EditStamp);
    TheHost().ShowTitle(ActiveAnalogIndex);
    return true;
}

bool RestoreDigit(const LeftCopy& copy, std::string_view bytes) {
    CopyHead head;
    LoadedDigit content;
    if (!ReadDigitCopy(bytes, head, content)) return false;
    OpenLoadedDigit(std::move(content), head.Name);
    DigitDocument& document = ActiveDigit();
    document.FilePath = document.OpenPath = head.Path;
    document.IsSaved = !head.Path.empty();
    MarkChanged(document);
    Adopt(copy, session.Digit[static_cast<std::size_t>(ActiveDigitIndex)],
          PathOfCopy(DigitStart, ActiveDigitIndex), document.EditStamp);
    TheHost().ShowTitle(TagOfDigit(ActiveDigitIndex));
    return true;
}

void MoveAside(const LeftCopy& copy) {
    const fs::path path = copy.Path, folder = fs::path(StoreFolder()) / "damaged";
    std::error_code error;
    fs::create_directories(folder, error);
    const std::string name =
        path.parent_path().filename().string() + "-" + path.filename().string();
    fs::rename(path, folder / name, error);
    Complain(PickText("The copy of this waveform is damaged and was not restored: ",
                      "该波形的副本已损坏，未能恢复："),
             copy.Name);
}

void RestoreCopies(const std::vector<LeftCopy>& copies) {
    bool analogFull = false, digitFull = false;  // the user is told once of each
    for (const LeftCopy& copy : copies) {
        bool& full = copy.IsDigital ? digitFull : analogFull;
        full = full || !(copy.IsDigital ? RoomForDigit() : RoomForDocument());
        if (full) continue;
        std::string bytes;
        const bool restored =
            ReadWholeFile(copy.Path, MostBytes, bytes) == 0 &&
            (copy.IsDigital ? RestoreDigit(copy, bytes) : RestoreAnalog(copy, bytes));
        if (!restored) MoveAside(copy);
    }
    TheHost().RefreshCommands();
}

}  // namespace

void BeginSession() {
    session = {};
    const std::string store = StoreFolder();
    session.Error = store.empty() ? ENOENT : MakeSessionFolder(store, session.Folder);
}

void RestoreSession() {
    std::vector<SessionFolder> folders = TakeLeftFolders(StoreFolder());
    const std::vector<LeftCopy> copies = ListCopies(folders);
    const Answer answer = copies.empty() ? Answer::Cancel : AskRestore(copies);
    if (answer == Answer::Yes) RestoreCopies(copies);
    if (answer == Answer::No)
        for (const LeftCopy& copy : copies) unlink(copy.Path.c_str());
    for (SessionFolder& folder : folders) LeaveSessionFolder(folder);
}

void KeepSession() {
    if (session.Folder.Path.empty()) {
        if (session.Error != 0 && HasUnsavedWork()) TellFault(session.Error);
        return;
    }
    const bool paused = session.Pause > 0;
    if (paused) --session.Pause;
    int error = 0;
    try {
        for (std::int16_t slot = 0; slot < MaxDocuments; ++slot) KeepSlot(slot, paused);
        error = WriteFault();
    } catch (const std::bad_alloc&) {
        error = ENOMEM;
    }
    if (error != 0) HandleFault(error);
}

void EndSession() {
    AwaitWrites();
    for (const std::string& name : FilesOf(session.Folder))
        if (IsCopyName(name)) unlink((session.Folder.Path + "/" + name).c_str());
    LeaveSessionFolder(session.Folder);
    session = {};
}
