#include "frame/GlobalDefineCode.h"

#include "frame/StringFunc.h"
#include "platform/Settings.h"

#include <optional>
#include <string>

std::uint8_t InstrumentModel = 0;
Flag ModelVariant;
std::int32_t MaxWaveDots = 0, MinWaveDots = 0;
double MaxVpp = 0.0, MinVpp = 0.0;
double MaxPeriod = 0.0, MinPeriod = 0.0;
double MaxFrequency = 0.0, MinFrequency = 0.0;
std::int16_t MaxQuantify = 0, MinQuantify = 0;

std::array<AnalogWaveRecord, MaxDocuments + 1> AnalogDocs;
std::array<Flag, MaxDocuments + 1> AnalogInUse;
std::int16_t AnalogDocCount = 0;
std::int16_t ActiveAnalogIndex = 0;
std::int16_t DigitDocCount = 0;
std::int16_t ActiveDigitIndex = 0;
Flag ActiveIsDigital;

std::uint64_t EditClock = 0;

Flag PropertyConfirmed;
Flag PropertyEditMode;
Flag DocReady;
Flag DocBuilding;
std::int16_t PreviousActiveDoc = 0;

std::int32_t ClipDotCount = 0;
std::vector<double> ClipValues;
Flag ClipAvailable;

namespace {

struct ModelLimits {
    std::int32_t MaxDots;
    double MinVpp;     // volts
    double MinPeriod;  // seconds
};

constexpr ModelLimits Models[] = {
    {4096, 0.004, 2e-07},                  // KT1100
    {524288, 0.04, 8.33333333333333e-08},  // KT2200
    {1048576, 0.02, 4e-08},                // KT3300
};
constexpr double VariantMinPeriod = 2.5e-07;  // early KT1100: 4 MHz in place of 5 MHz

const ModelLimits& LimitsOf(std::uint8_t model) {
    return Models[model < std::size(Models) ? model : 0];
}

void LoadInstrumentModel() {
    const std::string stored =
        GetSetting(ApplicationTitle, "Tidemark_Instrument", "Instrument", "0");
    const std::optional<double> model = TextToNumber(stored);
    const bool known = model && (*model == 0.0 || *model == 1.0 || *model == 2.0);
    InstrumentModel = known ? static_cast<std::uint8_t>(*model) : std::uint8_t{0};
}

}  // namespace

std::int32_t MostDotsOf(std::uint8_t model) {
    return LimitsOf(model).MaxDots;
}

void SetInstrumentLimits() {
    const ModelLimits& model = LimitsOf(InstrumentModel);
    MaxWaveDots = model.MaxDots;
    MinWaveDots = 8;
    MaxVpp = 20.0;
    MinVpp = model.MinVpp;
    MaxPeriod = 1000000.0;
    MinPeriod = InstrumentModel == 0 && ModelVariant ? VariantMinPeriod : model.MinPeriod;
    MaxFrequency = 1.0 / MinPeriod;
    MinFrequency = 1.0 / MaxPeriod;
    MaxQuantify = 32;
    MinQuantify = 2;
}

void InitialiseGlobals() {
    LoadInstrumentModel();
    SetInstrumentLimits();
    ActiveIsDigital = false;
    PropertyConfirmed = false;
}

std::int16_t FirstFreeSlot(const std::array<Flag, MaxDocuments + 1>& used) {
    for (std::int16_t slot = 0; slot < MaxDocuments; ++slot)
        if (!used[static_cast<std::size_t>(slot)]) return slot;
    return -1;
}

AnalogWaveRecord& AnalogAt(std::int16_t slot) {
    return AnalogDocs[static_cast<std::size_t>(slot)];
}

AnalogWaveRecord& ActiveAnalog() {
    return AnalogAt(ActiveAnalogIndex);
}
