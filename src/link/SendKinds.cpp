#include "digital/GlobalDigitDefineCode.h"
#include "frame/GlobalDefineCode.h"
#include "link/AnalogTransfer.h"
#include "link/DigitTransfer.h"
#include "link/LinkWork.h"
#include "link/SendWaveFuncBox.h"

// What the send dialogs of analog and digital waveforms do differently.

namespace {

// --- analog waveforms --------------------------------------------------------------------------

bool AnyLink() {
    return true;
}

std::int32_t AnalogDots() {
    return ActiveAnalog().Dots;
}

bool HasNoDots() {
    return AnalogDots() < 1;
}

void ActivateListedAnalog(const WaveCatalogue& catalogue, std::int16_t index) {
    ActivateWave(catalogue.AllWaveName[index]);
}

// --- digital waveforms -------------------------------------------------------------------------

bool BlocksTravel() {
    return Link.IOType != SerialLink && Link.IOType != GpibLink;
}

std::int32_t DigitDots() {
    return ActiveDigit().Dots;
}

bool HasNoNodes() {
    return ActiveDigit().NodeCount < 1;
}

void ActivateSentDigit(std::string_view name) {
    ActivateDigitWave(name == VolatileName ? DigitWay::Volatile : DigitWay::Stored, name);
}

void ActivateListedDigit(const WaveCatalogue& catalogue, std::int16_t index) {
    const std::string& name = catalogue.AllWaveName[index];
    const bool stored = index >= FirstStoredWave(catalogue);
    ActivateDigitWave(stored                 ? DigitWay::Stored
                      : name == VolatileName ? DigitWay::Volatile
                                             : DigitWay::Protocol,
                      name);
}

}  // namespace

const SendKind SendAnalogKind = {.Window = "SendAnalogWaveFrm",
                                 .Target = &LinkState::StoreTarget,
                                 .ReservedNames = ReservedAnalogNames,
                                 .Refresh = RefreshCatalogue,
                                 .LinkCarries = AnyLink,
                                 .NothingToSend = HasNoDots,
                                 .Dots = AnalogDots,
                                 .SendData = SendWaveData,
                                 .CopyToStore = CopyToStore,
                                 .ActivateSent = ActivateWave,
                                 .ActivateListed = ActivateListedAnalog,
                                 .SerialPause = 3000};

const SendKind SendDigitKind = {.Window = "SendDigitWaveFrm",
                                .Target = &LinkState::DigitStoreTarget,
                                .ReservedNames = ReservedDigitNames,
                                .Refresh = RefreshDigitCatalogue,
                                .LinkCarries = BlocksTravel,
                                .NothingToSend = HasNoNodes,
                                .Dots = DigitDots,
                                .SendData = SendDigitData,
                                .CopyToStore = CopyDigitToStore,
                                .ActivateSent = ActivateSentDigit,
                                .ActivateListed = ActivateListedDigit,
                                .SerialPause = 0};
