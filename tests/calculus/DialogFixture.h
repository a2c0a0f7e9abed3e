#pragma once
// Documents of 4 V, and a store of settings for each test.
#include "analog/AnalogFixture.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"

#include <functional>
#include <initializer_list>
#include <tuple>
#include <utility>

inline constexpr std::string_view PropertySection = "Tidemark_Property";
inline constexpr std::string_view WaveSection = "Tidemark_InsertWave";

/// Typed texts, each with what its box shows once it is left; keys of settings with their texts.
using TextPairs = std::vector<std::pair<const char*, const char*>>;

/// A box of a dialog, under a key of the test's: its leaving, its text, and what is typed and
/// shown.
template <typename Dialog>
struct BoxRow {
    std::int16_t Key;
    void (*Leave)(Dialog&, std::string_view);
    std::string (*Text)(const Dialog&);
    TextPairs Texts;
};

class DialogFixture : public AnalogFixture, protected TempFolder {
protected:
    void SetUp() override {
        AnalogFixture::SetUp();
        std::filesystem::remove(PathOf("settings.ini"));  // a test may set up again
        UseSettingsStore(PathOf("settings.ini"));
        PropertyEditMode = true;
    }

    /// As the base's, in 4 V peak to peak.
    static AnalogWaveRecord& MakeDocument(std::string_view runs, int count, int maxDots) {
        AnalogWaveRecord& wave = AnalogFixture::MakeDocument(runs, count, maxDots);
        wave.Vpp = 4.0;
        return wave;
    }
    /// What an insertion owes: `made` dots at `start` in place of `removed` ones, the others as
    /// MakeDocument wrote them, and one undo that brings all of these back.
    static void ExpectInserted(const AnalogWaveRecord& wave, int start, int removed, int made,
                               const std::function<double(int)>& valueOf) {
        const int before = wave.Dots - made + removed;
        ExpectSound(wave);
        for (int i = 0; i < wave.Dots; ++i) {
            const bool isNew = i >= start && i < start + made;
            const int former = i < start ? i : i - made + removed;
            EXPECT_DOUBLE_EQ(wave.DotArray[i].Y, isNew ? valueOf(i - start) : former / 1000.0) << i;
        }
        EXPECT_TRUE(wave.UndoAvailable && wave.Modified);
        UndoAnalog();
        EXPECT_EQ(wave.Dots, before);
        ExpectSound(wave);
        for (int i = 0; i < wave.Dots; ++i) EXPECT_EQ(wave.DotArray[i].Y, i / 1000.0);
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
};
