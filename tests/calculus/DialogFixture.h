#pragma once
// Documents under a KT1100's limits, and a store of settings for each test.
#include "analog/AnalogFixture.h"
#include "platform/Settings.h"

#include <unistd.h>
#include <cstdio>
#include <initializer_list>
#include <tuple>
#include <utility>

inline constexpr std::string_view PropertySection = "Tidemark_Property";
inline constexpr std::string_view WaveSection = "Tidemark_InsertWave";

/// Typed texts, each with what its box shows once it is left; keys of settings with their texts.
using TextPairs = std::vector<std::pair<const char*, const char*>>;

class DialogFixture : public AnalogFixture {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        std::remove(store_.c_str());
        UseSettingsStore(store_);
        InstrumentModel = 0;
        ModelVariant = false;
        SetInstrumentLimits();
        PropertyEditMode = true;
    }
    ~DialogFixture() override { std::remove(store_.c_str()); }

    /// As the base's, in 4 V peak to peak.
    static AnalogWaveRecord& MakeDocument(std::string_view runs, int count, int maxDots) {
        AnalogWaveRecord& wave = AnalogFixture::MakeDocument(runs, count, maxDots);
        wave.Vpp = 4.0;
        return wave;
    }
    static void Save(std::string_view section, const TextPairs& settings) {
        for (const auto& [key, text] : settings) SaveSetting(ApplicationTitle, section, key, text);
    }
    /// The texts saved under the keys, "-" where there is none: "2 0 - ".
    static std::string Saved(std::string_view section, std::initializer_list<const char*> keys) {
        std::string text;
        for (const char* key : keys) text += GetSetting(ApplicationTitle, section, key, "-") + " ";
        return text;
    }

private:
    const std::string store_ = ::testing::TempDir() + std::to_string(getpid()) + ".ini";
};
