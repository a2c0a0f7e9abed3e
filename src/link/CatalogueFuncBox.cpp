#include "link/CatalogueFuncBox.h"

#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int CatalogueQueries = 3;
constexpr std::string_view ParseFinishedText = "PARSE FINISHED";

// The built-in waveforms come first.
constexpr std::size_t BuiltInCount = 5;
constexpr std::string_view ReservedNames[] = {"EXP_FALL", "EXP_RISE", "NEG_RAMP", "SINC",
                                              "CARDIAC",  "VOLATILE", "exp_fall", "exp_rise",
                                              "neg_ramp", "sinc",     "cardiac",  "volatile"};

bool IsReserved(std::string_view name, std::span<const std::string_view> reserved) {
    return std::ranges::find(reserved, name) != reserved.end();
}

// After a failure that the transport has told itself there is nothing to add.
void TellEmptyReply() {
    if (!Link.CommError) Complain(ResText(20));
}

void ReadCatalogue(WaveCatalogue& catalogue) {
    std::string reply;
    for (int query = 0; query < CatalogueQueries; ++query) {
        reply = QueryText(Command::Catalogue);
        if (Link.CommError || reply.find('"') != std::string::npos) break;
    }
    if (reply.ends_with(ParseFinishedText)) reply.resize(reply.size() - ParseFinishedText.size());
    if (IsEmptyReply(reply)) {
        TellEmptyReply();
        Link.CommError = true;
        return;
    }
    const std::vector<std::string> names = QuotedNames(reply, MostWaveNames);
    catalogue.AllWaveName.fill({});
    std::ranges::copy(names, catalogue.AllWaveName.begin());
    catalogue.AllWaveCount = static_cast<std::int16_t>(names.size());
}

// False when the instrument has not answered.
bool ReadFreeCount(WaveCatalogue& catalogue) {
    Sleep(200);
    const std::string reply = QueryText(Command::FreeLocations);
    Sleep(200);
    if (IsEmptyReply(reply)) {
        TellEmptyReply();
        return false;
    }
    const double used = Link.StoreLocationCount - LeadingNumber(reply);
    catalogue.UsedStoreCount =
        static_cast<std::int16_t>(std::clamp(used, 0.0, double(Link.StoreLocationCount)));
    return true;
}

// `heard`: the query before was answered. Silence is told once.
void ReadDigitNames(WaveCatalogue& catalogue, bool heard) {
    SendText(Command::PrimeDigitCatalogue);
    if (Link.CommError) return;
    const std::string reply = QueryText(Command::DigitCatalogue);
    if (Link.CommError) return;
    if (IsEmptyReply(reply)) {
        if (heard) TellEmptyReply();
        return;
    }
    catalogue.DigitNameCount = 0;
    for (const std::string& name : QuotedNames(reply, MostDigitNames))
        if (name != VolatileName) catalogue.DigitWaveName[catalogue.DigitNameCount++] = name;
}

// Index in AllWaveName of the first waveform that the user stored.
int FirstStored(const WaveCatalogue& catalogue) {
    const int stored = catalogue.UsedStoreCount - catalogue.DigitNameCount;
    return std::max(catalogue.AllWaveCount - stored, 0);
}

void ListLocations(WaveCatalogue& catalogue) {
    catalogue.UserWaveName.fill({});
    catalogue.UserWaveFree.fill(false);
    auto place = std::copy_n(catalogue.DigitWaveName.begin(), catalogue.DigitNameCount,
                             catalogue.UserWaveName.begin());
    for (int i = FirstStored(catalogue);
         i < catalogue.AllWaveCount && place != catalogue.UserWaveName.end(); ++i)
        *place++ = catalogue.AllWaveName[i];
    if (catalogue.UsedStoreCount >= Link.StoreLocationCount) return;
    catalogue.UserWaveName[catalogue.UsedStoreCount].clear();
    catalogue.UserWaveFree[catalogue.UsedStoreCount] = true;
}

}  // namespace

void RefreshCatalogue(WaveCatalogue& catalogue) {
    ShowAwaited(PickText("Reading the catalogue...", "正在读取波形目录..."));
    WaveCatalogue fresh = catalogue;
    ReadCatalogue(fresh);
    if (Link.IOType == SerialLink) Sleep(300);
    if (Link.CommError) return;
    const bool heard = ReadFreeCount(fresh);
    if (Link.CommError) return;
    if (HasDigitalWaves())
        ReadDigitNames(fresh, heard);
    else
        fresh.DigitNameCount = 0;
    if (Link.CommError) return;
    if (fresh.AllWaveCount < fresh.UsedStoreCount) {
        catalogue.AllWaveName = std::move(fresh.AllWaveName);
        catalogue.AllWaveCount = fresh.AllWaveCount;
        return;
    }
    ListLocations(fresh);
    catalogue = std::move(fresh);
}

bool IsStoredWave(const WaveCatalogue& catalogue, std::int16_t index) {
    if (index < FirstStored(catalogue) || index >= catalogue.AllWaveCount) return false;
    // A free count that lies must not open the built-in waveforms.
    return !IsReserved(catalogue.AllWaveName[index], ReservedNames);
}

bool IsBuiltInWave(std::string_view name) {
    return IsReserved(name, std::span(ReservedNames).first(BuiltInCount));
}

std::span<const std::string_view> ReservedAnalogNames() {
    return ReservedNames;
}

NameFault CheckWaveName(std::string_view name, std::span<const std::string_view> reserved) {
    if (name.empty()) return NameFault::Empty;
    if (name.size() > LongestWaveName) return NameFault::TooLong;
    return IsReserved(name, reserved) ? NameFault::Reserved : NameFault::None;
}
