#pragma once
// One open document in slot 0, a KT1100's limits and a store of settings for each test.
#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "frame/GlobalDefineCode.h"
#include "platform/Settings.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <cstdio>
#include <string>

inline constexpr std::string_view PropertySection = "Tidemark_Property";
inline constexpr std::string_view WaveSection = "Tidemark_InsertWave";

class DialogFixture : public ::testing::Test {
protected:
    void SetUp() override {
        store_ = ::testing::TempDir() + "calculus" + std::to_string(getpid()) + ".ini";
        std::remove(store_.c_str());
        UseSettingsStore(store_);
        InstrumentModel = 0;
        ModelVariant = false;
        SetInstrumentLimits();
        for (AnalogWaveRecord& wave : AnalogDocs) wave = AnalogWaveRecord();
        AnalogInUse.fill(false);
        AnalogInUse[0] = true;
        ActiveAnalogIndex = 0;
        PropertyEditMode = true;
    }
    void TearDown() override { std::remove(store_.c_str()); }

    /// Empties the document: `maxDots` of capacity, 4 V peak to peak.
    static AnalogWaveRecord& MakeDocument(std::int32_t maxDots) {
        AnalogWaveRecord& wave = ActiveAnalog();
        AllocateDots(wave, maxDots);
        wave.Vpp = 4.0;
        wave.Period = 1e-3;
        wave.Quantify = 12;
        return wave;
    }
    /// Appends a free-form segment of `count` dots, dot n at n / 100.
    static void AddCustom(std::int32_t count) {
        AnalogWaveRecord& wave = ActiveAnalog();
        WaveSegment made;
        made.DotCount = count;
        AppendSegment(wave, made, wave.Dots);
        for (; count > 0; --count, ++wave.Dots) {
            wave.DotArray[wave.Dots] = {double(wave.Dots), wave.Dots / 100.0};
        }
        wave.LastDot = wave.Dots - 1;
    }
    static std::string Setting(std::string_view section, std::string_view key) {
        return GetSetting(ApplicationTitle, section, key, "absent");
    }

private:
    std::string store_;
};
