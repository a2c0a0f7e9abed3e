#pragma once
// Documents of known runs under a KT1100's limits and a scripted host that notes every message.
#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/Host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <string>
#include <vector>

class AnalogFixture : public ::testing::Test {
protected:
    void SetUp() override {
        TheHost().ShowBox = [this](auto text, auto, auto, auto) {
            asked.emplace_back(text);
            return answer;
        };
        TheHost().ActiveWindowTag = [this] { return tag; };
        TheHost().ShowStatusText = [this](auto, auto text) { status = text; };
        for (AnalogWaveRecord& wave : AnalogDocs) wave = AnalogWaveRecord();
        AnalogInUse.fill(false);
        AnalogDocCount = ActiveAnalogIndex = ActiveDigitIndex = 0;
        ActiveIsDigital = PropertyConfirmed = false;
        ClipDotCount = 0;
        UseEnglish = 1;
        InstrumentModel = 0;
        ModelVariant = false;
        SetInstrumentLimits();
    }
    void TearDown() override { TheHost() = silent; }

    /// An open document in `slot`, made the active one, with a run of `count` dots for each letter
    /// of `runs`: c custom, g generated, of kind 1. Dot n stands at n / 1000, so that a moved dot
    /// is seen.
    static AnalogWaveRecord& MakeDocument(std::string_view runs, std::int32_t count = 100,
                                          std::int32_t maxDots = 1000, std::int16_t slot = 0) {
        if (!AnalogInUse[slot]) ++AnalogDocCount;
        AnalogInUse[slot] = true;
        ActiveAnalogIndex = slot;
        AnalogWaveRecord& wave = ActiveAnalog();
        ResetDocumentState(wave);
        AllocateDots(wave, maxDots);
        wave.Modified = false;
        for (const char run : runs)
            AppendSegment(wave, {.Custom = run == 'c', .Kind = run == 'g', .DotCount = count});
        for (std::int32_t i = 0; i < wave.Dots; ++i) wave.DotArray[i] = {double(i), i / 1000.0};
        return wave;
    }

    /// The segment list as text: "g0-99 c100-199"; s for a wave of kind 7, "@50" behind a segment
    /// that was first generated there.
    static std::string Runs(const AnalogWaveRecord& wave) {
        std::string text;
        for (const WaveSegment& segment : std::span(wave.Segments).first(wave.SegmentCount)) {
            if (!text.empty()) text += ' ';
            text += segment.Custom ? 'c' : segment.Kind == 7 ? 's' : 'g';
            text += std::to_string(segment.RunStart) + '-' + std::to_string(segment.EndDot);
            if (segment.StartDot != segment.RunStart)
                text += '@' + std::to_string(segment.StartDot);
        }
        return text;
    }

    /// What every edit must leave: segments cover the dots, X counts them, Y and the selection lie
    /// inside their ranges. X may stand `lag` behind, as it does inside strokes.
    static void ExpectSound(const AnalogWaveRecord& wave, std::int32_t lag = 0) {
        std::int32_t next = 0;
        ASSERT_GE(std::ssize(wave.Segments), wave.SegmentCount);
        for (const WaveSegment& segment : std::span(wave.Segments).first(wave.SegmentCount)) {
            ASSERT_TRUE(segment.RunStart == next && segment.DotCount > 0) << Runs(wave);
            next += segment.DotCount;
            ASSERT_EQ(segment.EndDot, next - 1) << Runs(wave);
        }
        ASSERT_TRUE(next == wave.Dots && wave.LastDot == std::max(next - 1, 0)) << Runs(wave);
        for (std::int32_t i = 0; i < wave.Dots; ++i) {
            const auto [x, y] = wave.DotArray[i];
            ASSERT_TRUE((x == i || x == i - lag) && std::abs(y) <= 1.0) << i;
        }
        if (!wave.HasSelection) return;
        ASSERT_TRUE(0 <= wave.SelStart && wave.SelStart <= wave.SelEnd && wave.SelEnd < wave.Dots);
    }

    std::vector<std::string> asked;  // texts of the message boxes
    Answer answer = Answer::Ok;      // to each of them
    std::int16_t tag = -1;           // of the active child window
    std::string status;              // last hint of the status strip
    const Host silent = TheHost();   // before the test
};
