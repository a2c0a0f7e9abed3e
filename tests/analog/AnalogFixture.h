#pragma once
// Documents of known runs under a scripted host that notes every message.
#include "analog/AnalogDocument.h"
#include "analog/EditFuncBox.h"
#include "analog/SegmentEngine.h"
#include "frame/GlobalDefineCode.h"
#include "frame/LoadLanguageCode.h"
#include "platform/Host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

class AnalogFixture : public ::testing::Test {
protected:
    void SetUp() override {
        TheHost().Ask = [this](std::string_view text, Buttons, MessageIcon) {
            asked.emplace_back(text);
            return answer;
        };
        TheHost().ActiveWindowTag = [this] { return tag; };
        TheHost().RefreshCommands = [this] { ++refreshes; };
        TheHost().ShowStatusText = [this](std::string_view, std::string_view text) {
            status = text;
        };
        for (AnalogWaveRecord& wave : AnalogDocs) wave = AnalogWaveRecord();
        AnalogInUse.fill(false);
        AnalogDocCount = ActiveAnalogIndex = ActiveDigitIndex = 0;
        ActiveIsDigital = PropertyConfirmed = ClipAvailable = false;
        ClipDotCount = 0;
        ClipValues.clear();
        UseEnglish = 1;
    }
    void TearDown() override { TheHost() = silent_; }

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
        wave.Vpp = 4.0;
        wave.Modified = false;
        for (const char run : runs) {
            AppendSegment(wave, {.Custom = run == 'c', .Kind = run == 'g', .DotCount = count},
                          wave.Dots);
            wave.Dots += count;
        }
        for (std::int32_t i = 0; i < wave.Dots; ++i) wave.DotArray[i] = {double(i), i / 1000.0};
        wave.LastDot = std::max(wave.Dots - 1, 0);
        return wave;
    }

    /// The segment list as text: "g0-99 c100-199".
    static std::string Runs(const AnalogWaveRecord& wave) {
        std::string text;
        for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
            const WaveSegment& segment = wave.Segments[i];
            if (i > 0) text += ' ';
            text += segment.Custom ? 'c' : 'g';
            text += std::to_string(segment.RunStart) + '-' + std::to_string(segment.EndDot);
        }
        return text;
    }
    static std::vector<std::int32_t> Starts(const AnalogWaveRecord& wave) {
        std::vector<std::int32_t> starts;
        for (std::int32_t i = 0; i < wave.SegmentCount; ++i)
            starts.push_back(wave.Segments[i].StartDot);
        return starts;
    }
    static std::vector<double> Values(const AnalogWaveRecord& wave) {
        std::vector<double> values;
        for (std::int32_t i = 0; i < wave.Dots; ++i) values.push_back(wave.DotArray[i].Y);
        return values;
    }

    /// What every edit must leave: segments cover the dots, X counts them, Y and the selection lie
    /// inside their ranges.
    static void ExpectSound(const AnalogWaveRecord& wave) {
        std::int32_t next = 0;
        ASSERT_GE(std::ssize(wave.Segments), wave.SegmentCount);
        for (std::int32_t i = 0; i < wave.SegmentCount; ++i) {
            const WaveSegment& segment = wave.Segments[i];
            ASSERT_EQ(segment.RunStart, next) << Runs(wave);
            ASSERT_GE(segment.EndDot, segment.RunStart) << Runs(wave);
            ASSERT_EQ(segment.DotCount, segment.EndDot - segment.RunStart + 1) << Runs(wave);
            next = segment.EndDot + 1;
        }
        ASSERT_EQ(next, wave.Dots) << Runs(wave);
        ASSERT_EQ(wave.LastDot, std::max(wave.Dots - 1, 0));
        for (std::int32_t i = 0; i < wave.Dots; ++i) {
            ASSERT_EQ(wave.DotArray[i].X, i);
            ASSERT_LE(std::abs(wave.DotArray[i].Y), 1.0) << i;
        }
        if (!wave.HasSelection) return;
        ASSERT_TRUE(0 <= wave.SelStart && wave.SelStart <= wave.SelEnd && wave.SelEnd < wave.Dots)
            << wave.SelStart << ".." << wave.SelEnd << " of " << wave.Dots;
    }

    std::vector<std::string> asked;  // texts of the message boxes
    Answer answer = Answer::Ok;      // to each of them
    std::int16_t tag = -1;           // of the active child window
    int refreshes = 0;               // of the command states
    std::string status;              // last hint of the status strip

private:
    const Host silent_ = TheHost();
};
