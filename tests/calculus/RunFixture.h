#pragma once
// Waves of given amplitudes, and what every edit of a run owes: a sound record that undo and
// resume bring back to the last field.
#include "calculus/DialogFixture.h"
#include "calculus/RunEdit.h"

#include <gmock/gmock.h>

using Values = std::vector<double>;

/// All values lie near those expected.
inline auto Near(const Values& expected, double within = 1e-12) {
    return ::testing::Pointwise(::testing::DoubleNear(within), expected);
}

class RunFixture : public DialogFixture {
protected:
    /// An open document of one custom run with the given amplitudes; full, unless there is room.
    static AnalogWaveRecord& MakeWave(const Values& values, std::int32_t maxDots = 0,
                                      std::int16_t slot = 0) {
        const auto count = static_cast<int>(values.size());
        AnalogWaveRecord& wave =
            AnalogFixture::MakeDocument("c", count, std::max(count, maxDots), slot);
        for (int i = 0; i < count; ++i) wave.DotArray[i].Y = values[i];
        return wave;
    }
    static Values ValuesOf(AnalogWaveRecord& wave) {
        Values values;
        for (const WaveDot& dot : WholeWave(wave)) values.push_back(dot.Y);
        return values;
    }
    /// Dots and segments of a wave, each field of them as text.
    static std::string Everything(AnalogWaveRecord& wave) {
        std::ostringstream text;
        text << std::hexfloat << wave.Dots << ' ' << wave.LastDot << '\n';
        for (const WaveDot& dot : WholeWave(wave)) text << dot.X << ' ' << dot.Y << '\n';
        for (const WaveSegment& s : std::span(wave.Segments).first(wave.SegmentCount))
            text << bool(s.Custom) << ' ' << s.StartDot << ' ' << s.RunStart << ' ' << s.EndDot
                 << ' ' << s.Kind << ' ' << s.DotCount << ' ' << s.Amplitude << ' ' << s.Offset
                 << ' ' << s.Cycles << ' ' << s.Phase << ' ' << s.Duty << ' ' << s.PWidthDots << ' '
                 << s.SlopeDots << ' ' << s.Symmetry << ' ' << s.Overzero << ' ' << s.Damp << '\n';
        return text.str();
    }
    /// Runs an edit of the active document, and undo and resume behind it.
    template <typename Command>
    static void Edit(Command edit) {
        AnalogWaveRecord& wave = ActiveAnalog();
        const std::string before = Everything(wave);
        wave.Modified = wave.UndoAvailable = false;
        wave.ResumeAvailable = true;
        edit();
        EXPECT_TRUE(wave.Modified && wave.UndoAvailable && !wave.ResumeAvailable);
        EXPECT_TRUE(wave.ViewStart == 0 && wave.ViewEnd == wave.MaxDots - 1);
        ExpectSound(wave);
        const std::string after = Everything(wave);
        UndoAnalog();
        EXPECT_EQ(Everything(wave), before);
        ResumeAnalog();
        EXPECT_EQ(Everything(wave), after);
    }
    /// Runs something that must leave the active document alone, undo included.
    template <typename Command>
    static void ExpectNothing(Command command) {
        const std::string before = Everything(ActiveAnalog());
        ActiveAnalog().Modified = ActiveAnalog().UndoAvailable = false;
        command();
        EXPECT_EQ(Everything(ActiveAnalog()), before);
        EXPECT_FALSE(ActiveAnalog().Modified || ActiveAnalog().UndoAvailable);
    }
};
