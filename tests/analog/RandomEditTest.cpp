#include "analog/AnalogFixture.h"

#include <algorithm>
#include <functional>
#include <random>

// Thousands of random edits of a small document beside a model that knows dots only: a plain list,
// its one snapshot, and the rules for what each command adds or removes.

namespace {

constexpr std::int32_t Capacity = 400;

struct Model {
    std::vector<double> dots, snapshot, clip;
    bool undo = false, resume = false;

    void Begin() {
        snapshot = dots;
        undo = true;
        resume = false;
    }
    void Exchange(bool undone) {
        std::swap(dots, snapshot);
        undo = !undone;
        resume = undone;
    }
    void Replace(std::int32_t first, std::int32_t last, const std::vector<double>& with) {
        dots.erase(dots.begin() + first, dots.begin() + last + 1);
        dots.insert(dots.begin() + first, with.begin(), with.end());
    }
};

class RandomEditTest : public AnalogFixture, public ::testing::WithParamInterface<unsigned> {
protected:
    std::int32_t Pick(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(random_);
    }
    std::vector<double> Content(std::int32_t count) {
        std::vector<double> values(count);
        for (double& value : values) value = Pick(-1000, 1000) / 1000.0;
        return values;
    }
    void Append() {
        const std::int32_t room = Capacity - wave_->Dots;
        if (room == 0) return;
        const std::vector<double> added = Content(Pick(1, std::min(room, 60)));
        const auto count = static_cast<std::int32_t>(added.size());
        model_.Begin();
        BeginEdit(*wave_);
        AppendSegment(*wave_, {.Custom = Pick(0, 2) == 0, .DotCount = count}, wave_->Dots);
        model_.dots.insert(model_.dots.end(), added.begin(), added.end());
        TakeModelDots();
    }
    // The selection becomes a wave (or free-form dots) of another length.
    void Replace(bool generated) {
        if (!wave_->HasSelection) return;
        const std::int32_t first = wave_->SelStart, last = wave_->SelEnd;
        const std::int32_t room = Capacity - wave_->Dots + (last - first + 1);
        const std::vector<double> with = Content(Pick(1, std::min(room, 80)));
        const auto count = static_cast<std::int32_t>(with.size());
        model_.Begin();
        BeginEdit(*wave_);
        generated ? ReplaceRunSegments(*wave_, {.DotCount = count}) : MarkRunCustom(*wave_, count);
        model_.Replace(first, last, with);
        TakeModelDots();
    }
    // The engine leaves the dots to its caller: here they are the model's.
    void TakeModelDots() {
        wave_->Dots = static_cast<std::int32_t>(model_.dots.size());
        wave_->LastDot = std::max(wave_->Dots - 1, 0);
        for (std::int32_t i = 0; i < wave_->Dots; ++i)
            wave_->DotArray[i] = {double(i), model_.dots[i]};
        EndEdit(0);
    }
    void TakeOut(bool copies, bool removes) {
        const bool selected = bool(wave_->HasSelection);
        const std::int32_t first = wave_->SelStart, last = wave_->SelEnd;
        if (removes) model_.Begin();
        !removes ? CopyAnalog() : copies ? CutAnalog() : DeleteAnalog();
        if (!selected) return;
        const auto begin = model_.dots.begin();
        if (copies) model_.clip.assign(begin + first, begin + last + 1);
        if (removes) model_.Replace(first, last, {});
    }
    void Paste() {
        PasteAnalog();
        const auto dots = static_cast<std::int32_t>(model_.dots.size());
        if (model_.clip.empty() || dots >= Capacity - 1) return;
        model_.Begin();
        model_.resume = true;
        const auto count = std::min(static_cast<std::int32_t>(model_.clip.size()), Capacity - dots);
        model_.dots.insert(model_.dots.end(), model_.clip.begin(), model_.clip.begin() + count);
    }
    void Exchange(bool undo) {
        undo ? UndoAnalog() : ResumeAnalog();
        if (undo ? model_.undo : model_.resume) model_.Exchange(undo);
    }
    void Select() {
        const std::int32_t first = Pick(0, std::max(wave_->Dots - 1, 0));
        SelectDots(*wave_, first, first + Pick(0, 60));
    }

    const std::pair<const char*, std::function<void()>> steps_[12] = {
        {"append", [this] { Append(); }},
        {"wave", [this] { Replace(true); }},
        {"free-form", [this] { Replace(false); }},
        {"copy", [this] { TakeOut(true, false); }},
        {"cut", [this] { TakeOut(true, true); }},
        {"delete", [this] { TakeOut(false, true); }},
        {"paste", [this] { Paste(); }},
        {"undo", [this] { Exchange(true); }},
        {"resume", [this] { Exchange(false); }},
        {"select all", [this] { SelectAllAnalog(); }},
        {"select", [this] { Select(); }},
        {"pick", [this] { PickSegment(*wave_, Pick(0, std::max(wave_->SegmentCount - 1, 0))); }},
    };
    AnalogWaveRecord* wave_ = nullptr;
    Model model_;

private:
    std::mt19937 random_{GetParam()};
};

TEST_P(RandomEditTest, AgreesWithAPlainListOfDots) {
    wave_ = &MakeDocument("", 0, Capacity);
    for (int step = 0; step < 4000; ++step) {
        const auto& [name, run] = steps_[Pick(0, 11)];
        SCOPED_TRACE(::testing::Message()
                     << "seed " << GetParam() << ", step " << step << ": " << name);
        run();
        ASSERT_NO_FATAL_FAILURE(ExpectSound(*wave_));
        ASSERT_EQ(Values(*wave_), model_.dots);
        ASSERT_EQ(bool(wave_->UndoAvailable), model_.undo);
        ASSERT_EQ(bool(wave_->ResumeAvailable), model_.resume);
        ASSERT_EQ(ClipDotCount, std::ssize(model_.clip));
        if (!wave_->SegmentPicked) continue;
        const WaveSegment& picked = wave_->Segments[wave_->PickedSegment];
        ASSERT_EQ(picked.RunStart, wave_->SelStart);
        ASSERT_EQ(picked.EndDot, wave_->SelEnd);
    }
    EXPECT_FALSE(asked.empty()) << "the document was never full";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEditTest, ::testing::Values(1U, 2U, 3U, 20240607U));

}  // namespace
