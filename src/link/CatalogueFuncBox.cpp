#include "link/CatalogueFuncBox.h"

#include "frame/LoadLanguageCode.h"
#include "frame/MessageBoxes.h"
#include "frame/StringFunc.h"
#include "link/CommandfDefBox.h"
#include "link/CommunicateFunBox.h"
#include "link/ConnectFuncBox.h"
#include "link/RS232FuncBox.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int CatalogueQueries = 3;
constexpr int FreeQueries = 2;  // of the digital catalogue

// The built-in waveforms come first.
constexpr std::size_t BuiltInCount = 5;
constexpr std::string_view ReservedNames[] = {"EXP_FALL", "EXP_RISE", "NEG_RAMP", "SINC",
                                              "CARDIAC",  "VOLATILE", "exp_fall", "exp_rise",
                                              "neg_ramp", "sinc",     "cardiac",  "volatile"};
constexpr std::string_view DigitReserved[] = {"RS232",    "USB", "SPI", "DS", "TV",
                                              "VOLATILE", "PO",  "CAN", "LAN"};

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
bool TakeFreeCount(WaveCatalogue& catalogue, std::string_view reply) {
    if (IsEmptyReply(reply)) {
        TellEmptyReply();
        return false;
    }
    const double used = Link.StoreLocationCount - LeadingNumber(reply);
    catalogue.UsedStoreCount =
        static_cast<std::int16_t>(std::clamp(used, 0.0, double(Link.StoreLocationCount)));
    return true;
}

bool ReadFreeCount(WaveCatalogue& catalogue) {
    Sleep(200);
    const std::string reply = QueryText(Command::FreeLocations);
    Sleep(200);
    return TakeFreeCount(catalogue, reply);
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

void ListLocations(WaveCatalogue& catalogue) {
    catalogue.UserWaveName.fill({});
    catalogue.UserWaveFree.fill(false);
    auto place = std::copy_n(catalogue.DigitWaveName.begin(), catalogue.DigitNameCount,
                             catalogue.UserWaveName.begin());
    for (int i = FirstStoredWave(catalogue);
         i < catalogue.AllWaveCount && place != catalogue.UserWaveName.end(); ++i)
        *place++ = catalogue.AllWaveName[i];
    if (catalogue.UsedStoreCount >= Link.StoreLocationCount) return;
    catalogue.UserWaveName[catalogue.UsedStoreCount].clear();
    catalogue.UserWaveFree[catalogue.UsedStoreCount] = true;
}

// A query that the digital catalogue cannot do without; empty, with CommError set, when it failed.
std::string QueryNeeded(std::string_view query) {
    std::string reply = QueryText(query);
    if (IsEmptyReply(reply)) {
        TellEmptyReply();
        Link.CommError = true;
    }
    return Link.CommError ? std::string() : reply;
}

// Built-in protocols first, stored digital waveforms behind them. Returns the number of the latter.
std::int16_t ListDigitWaves(WaveCatalogue& catalogue, const std::string& protocols,
                            const std::string& waves) {
    std::vector<std::string> names = QuotedNames(protocols, MostWaveNames);
    const std::size_t first = names.size();
    for (std::string& name : QuotedNames(waves, MostWaveNames))
        if (name != VolatileName && names.size() < MostWaveNames) names.push_back(std::move(name));
    catalogue.AllWaveName.fill({});
    catalogue.AllWaveCount = static_cast<std::int16_t>(names.size());
    std::ranges::move(names, catalogue.AllWaveName.begin());
    return static_cast<std::int16_t>(catalogue.AllWaveCount - first);
}

// What the locations hold beside `digital` digital waveforms: the analog names at the end.
void TakeAnalogNames(WaveCatalogue& catalogue, std::int16_t digital, std::string_view reply) {
    const std::vector<std::string> names = QuotedNames(reply, MostWaveNames);
    catalogue.DigitNameCount =
        std::max<std::int16_t>(static_cast<std::int16_t>(catalogue.UsedStoreCount - digital), 0);
    const auto taken = std::min<std::ptrdiff_t>(catalogue.DigitNameCount, std::ssize(names));
    catalogue.DigitWaveName.fill({});
    std::copy(names.end() - taken, names.end(), catalogue.DigitWaveName.begin());
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

void RefreshDigitCatalogue(WaveCatalogue& catalogue) {
    ShowAwaited(PickText("Reading the catalogue...", "正在读取波形目录..."));
    WaveCatalogue fresh = catalogue;
    Sleep(200);
    const std::string protocols = QueryNeeded(Command::Protocols);
    if (Link.CommError) return;
    const std::string waves = QueryNeeded(Command::DigitCatalogue);
    if (Link.CommError) return;
    for (int query = 0; query < FreeQueries; ++query) {
        const std::string reply = QueryNeeded(Command::FreeLocations);
        if (Link.CommError) return;
        TakeFreeCount(fresh, reply);
    }
    const std::string analog = QueryNeeded(Command::Catalogue);
    if (Link.CommError) return;
    const std::int16_t digital = ListDigitWaves(fresh, protocols, waves);
    TakeAnalogNames(fresh, digital, analog);
    ListLocations(fresh);
    catalogue = std::move(fresh);
}

std::int16_t FirstStoredWave(const WaveCatalogue& catalogue) {
    const int stored = catalogue.UsedStoreCount - catalogue.DigitNameCount;
    return static_cast<std::int16_t>(
        std::clamp<int>(catalogue.AllWaveCount - stored, 0, catalogue.AllWaveCount));
}

bool IsStoredWave(const WaveCatalogue& catalogue, std::int16_t index,
                  std::span<const std::string_view> reserved) {
    if (index < FirstStoredWave(catalogue) || index >= catalogue.AllWaveCount) return false;
    // A free count that lies must not open the built-in waveforms.
    return !IsReserved(catalogue.AllWaveName[index], reserved);
}

bool IsBuiltInWave(std::string_view name) {
    return IsReserved(name, std::span(ReservedNames).first(BuiltInCount));
}

std::span<const std::string_view> ReservedAnalogNames() {
    return ReservedNames;
}

std::span<const std::string_view> ReservedDigitNames() {
    return DigitReserved;
}

NameFault CheckWaveName(std::string_view name, std::span<const std::string_view> reserved) {
    if (name.empty()) return NameFault::Empty;
    if (name.size() > LongestWaveName) return NameFault::TooLong;
    return IsReserved(name, reserved) ? NameFault::Reserved : NameFault::None;
}
