#include "link/UploadFuncBox.h"

#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "link/CatalogueFuncBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"
#include "link/USB_FuncBox.h"
#include "platform/Host.h"

#include <algorithm>
#include <optional>

// The instrument answers each load command with one block. The first is text, with the number of
// dots behind its last comma; the later ones are samples, 16 bits each, little-endian.

namespace {

constexpr std::int32_t MostWords = 524289;  // of a load

using Words = std::vector<std::uint16_t>;

bool MayGoOn() {
    return Link.IsConnected && !Link.CommError;
}

void AskForPacket(const UploadKind& kind, std::string_view name) {
    UsbSendText(WithArgument(kind.Load, name));
}

// Reads one block into `buffer`; empty when the instrument has gone silent.
std::span<const std::uint8_t> ReadPacket(std::vector<std::uint8_t>& buffer) {
    if (!MayGoOn()) return {};
    const std::int32_t read = ReadBlock(buffer);
    return Link.CommError ? std::span<const std::uint8_t>() : std::span(buffer).first(read);
}

double CountBehindComma(std::span<const std::uint8_t> block) {
    std::string_view text(reinterpret_cast<const char*>(block.data()), block.size());
    text.remove_prefix(text.rfind(',') + 1);  // npos + 1 is 0
    return LeadingNumber(text);
}

// The number of dots that the instrument announces. A variant that announces none is asked again
// until it has them, or the user cancels.
std::optional<double> AskDotCount(const UploadKind& kind, std::string_view name,
                                  std::vector<std::uint8_t>& buffer) {
    double count = 0.0;
    do {
        if (!kind.Room()) return std::nullopt;
        ShowTransfer(1);
        AskForPacket(kind, name);
        if (kind.Pause > 0) {
            Pump();
            Sleep(kind.Pause);
            Pump();
        }
        if (!MayGoOn()) return std::nullopt;
        Sleep(200);
        const std::span<const std::uint8_t> block = ReadPacket(buffer);
        if (block.empty()) return std::nullopt;
        count = CountBehindComma(block);
    } while (count == 0.0 && kind.VariantRestarts && ModelVariant);
    return count;
}

// Adds the whole words of a block, as many as `words` has room for, behind `received`. Returns the
// words of the block.
std::size_t TakeWords(std::span<const std::uint8_t> block, std::size_t received, Words& words) {
    const std::size_t count = block.size() / 2;
    const std::size_t taken = std::min(count, words.size() - received);
    for (std::size_t i = 0; i < taken; ++i)
        words[received + i] = static_cast<std::uint16_t>(block[2 * i] | block[2 * i + 1] << 8);
    return count;
}

bool ReadWords(const UploadKind& kind, std::string_view name, std::vector<std::uint8_t>& buffer,
               Words& words) {
    for (std::size_t received = 0; received < words.size();) {
        AskForPacket(kind, name);
        Sleep(200);
        const std::size_t count = TakeWords(ReadPacket(buffer), received, words);
        if (count == 0) return false;
        received += count;
        ShowTransfer(static_cast<std::int64_t>(100 * received / words.size()));
        Sleep(200);
        Pump();
    }
    for (std::uint16_t& word : words) word &= kind.WordMask;
    return true;
}

// Reads a whole waveform; false, with the reason for the user in `note`, when that fails.
bool LoadWave(const UploadKind& kind, std::string_view name, ReadWave& wave, std::string& note) {
    std::vector<std::uint8_t> buffer(LargestBlock);
    note = PickText("The instrument has not sent the waveform.", "仪器没有送出该波形。");
    const std::optional<double> count = AskDotCount(kind, name, buffer);
    if (!count) return false;
    const std::int32_t most = std::min(MaxWaveDots, MostWords);
    if (!(*count >= 1.0 && *count <= most)) {
        note = WithNumbers(
            PickText("Waveforms of 1 to % dots can be read.", "只能读取 1 至 % 点的波形。"),
            {most});
        return false;
    }
    wave.Words.resize(static_cast<std::size_t>(*count));
    if (!ReadWords(kind, name, buffer, wave.Words) || !kind.AskOutput(wave)) return false;
    note.clear();
    return true;
}

}  // namespace

void OpenDownLoad(DownLoadDialog& dialog) {
    const LinkWork work(PickText("Reading the catalogue...", "正在读取波形目录..."));
    EndTransfer();
    dialog.CloseAsked = true;
    SendText(dialog.Kind->Catalogue);
    if (Link.CommError) return;
    const std::string reply = QueryText(dialog.Kind->Catalogue);
    if (Link.CommError) return;
    Sleep(1000);
    if (IsEmptyReply(reply)) {
        Complain("  通讯失败！  ");
        return;
    }
    dialog.AllWaveName = QuotedNames(reply, MostWaveNames);
    const auto first = std::ranges::find_if_not(dialog.AllWaveName, dialog.Kind->IsBuiltIn);
    if (first != dialog.AllWaveName.end())
        dialog.AllIndex = static_cast<std::int16_t>(first - dialog.AllWaveName.begin());
    dialog.CloseAsked = false;
}

void PickUploadWave(DownLoadDialog& dialog, std::int16_t index) {
    dialog.AllIndex = index;
}

bool CanLoadWave(const DownLoadDialog& dialog) {
    if (dialog.AllIndex < 0 || dialog.AllIndex >= std::ssize(dialog.AllWaveName)) return false;
    return !dialog.Kind->IsBuiltIn(dialog.AllWaveName[dialog.AllIndex]);
}

void LoadChosenWave(DownLoadDialog& dialog) {
    if (Link.SendBusy || !CanLoadWave(dialog)) return;
    const UploadKind& kind = *dialog.Kind;
    if (!kind.Room()) {
        dialog.CloseAsked = true;
        return;
    }
    const std::string& name = dialog.AllWaveName[dialog.AllIndex];
    ReadWave wave;
    {
        const LinkWork work(PickText("Reading the waveform...", "正在读取波形..."));
        Link.SendBusy = true;
        const bool loaded = LoadWave(kind, name, wave, dialog.Note);
        EndTransfer();
        if (!loaded) return;
    }
    dialog.CloseAsked = true;
    kind.Open(wave, name);
}

void UploadAnalogWave() {
    if (!Link.IsConnected) return Complain(ResText(25));
    if (UploadAnalogKind.Room()) TheHost().RunDialog(UploadAnalogKind.Window, 0);
}

void UploadDigitWave() {
    if (!Link.IsConnected) return Complain(ResText(25));
    if (!HasDigitalWaves()) return TellNotAvailable();
    if (UploadDigitKind.Room()) TheHost().RunDialog(UploadDigitKind.Window, 0);
}
