#pragma once
// Waves of given amplitudes, and what every edit of a run owes: a sound record that undo and
// resume bring back to the last field.
#include "calculus/DialogFixture.h"
#include "calculus/RunEdit.h"

#include <functional>

using Values = std::vector<double>;

class RunFixture : public DialogFixture {
protected:
    /// An open document of one custom run with the given amplitudes.
    static AnalogWaveRecord& MakeWave(const Values& values, std::int32_t maxDots = 1000,
                                      std::int16_t slot = 0) {
        AnalogWaveRecord& wave =
            AnalogFixture::MakeDocument("c", static_cast<int>(values.size()), maxDots, slot);
        for (std::size_t i = 0; i < values.size(); ++i) wave.DotArray[i].Y = values[i];
        return wave;
    }
    static Values ValuesOf(const AnalogWaveRecord& wave) {
        Values values;
        for (const WaveDot& dot : WholeWave(wave)) values.push_back(dot.Y);
        return values;
    }
    static void ExpectNear(const Values& values, const Values& expected, double within = 1e-6) {
        ASSERT_EQ(values.size(), expected.size());
        for (std::size_t i = 0; i < values.size(); ++i)
            EXPECT_NEAR(values[i], expected[i], within) << i;
    }
    /// Dots and segments of a wave, each field of them as text.
    static std::string Everything(const AnalogWaveRecord& wave) {
        std::ostringstream text;
        text << std::hexfloat << wave.Dots << ' ' << wave.LastDot << '\n';
        for (const WaveDot& dot : WholeWave(wave)) text << dot.X << ' ' << dot.Y << '\n';
        for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
            const WaveSegment& s = wave.Segments[i];
            text << bool(s.Custom) << ' ' << s.StartDot << ' ' << s.RunStart << ' ' << s.EndDot
                 << ' ' << s.Kind << ' ' << s.DotCount << ' ' << s.Amplitude << ' ' << s.Offset
                 << ' ' << s.Cycles << ' ' << s.Phase << ' ' << s.Duty << ' ' << s.PWidthDots << ' '
                 << s.SlopeDots << ' ' << s.Symmetry << ' ' << s.Overzero << ' ' << s.Damp << '\n';
        }
        return text.str();
    }
    /// Runs an edit of the active document that must change it, and undo and resume behind it.
    static void Edit(const std::function<void()>& edit) {
        AnalogWaveRecord& wave = ActiveAnalog();
        const std::int32_t start = wave.ViewStart, end = wave.ViewEnd;
        const std::string before = Everything(wave);
        wave.Modified = wave.UndoAvailable = false;
        wave.ResumeAvailable = true;
        edit();
        EXPECT_TRUE(wave.Modified && wave.UndoAvailable && !wave.ResumeAvailable);
        EXPECT_TRUE(wave.ViewStart == start && wave.ViewEnd == end);
        ExpectSound(wave);
        const std::string after = Everything(wave);
        UndoAnalog();
        EXPECT_EQ(Everything(wave), before);
        ResumeAnalog();
        EXPECT_EQ(Everything(wave), after);
    }
    /// Runs something that must leave the active document alone, undo included.
    static void ExpectNothing(const std::function<void()>& command) {
        const AnalogWaveRecord& wave = ActiveAnalog();
        const std::string before = Everything(wave);
        command();
        EXPECT_EQ(Everything(wave), before);
        EXPECT_FALSE(wave.Modified || wave.UndoAvailable);
    }
};
