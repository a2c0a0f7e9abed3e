#include "analog/AnalogFixture.h"
#include "Soak.h"

#include <functional>
#include <random>

// Thousands of random edits of a small document beside a model that knows dots only: a plain list,
// its one snapshot, and the rules for what each command adds or removes.

namespace {

constexpr std::int32_t Capacity = 400;

class RandomEditTest : public AnalogFixture, public ::testing::WithParamInterface<unsigned> {
protected:
    std::int32_t Pick(std::int32_t low, std::int32_t high) {
        return std::uniform_int_distribution(low, high)(random_);
    }
    void Begin() {
        snapshot_ = dots_;
        otherRuns_ = Runs(*wave_);
        undo_ = true;
        resume_ = false;
    }
    // Writes new dots at the end ('a') or over the selection, as a wave ('w') or free-form ('f').
    // The engine leaves the dots to its caller.
    void Write(char kind) {
        if (kind != 'a' && !wave_->HasSelection) return;
        const std::int32_t first = kind == 'a' ? wave_->Dots : wave_->SelStart;
        const std::int32_t end = kind == 'a' ? wave_->Dots : wave_->SelEnd + 1;
        const std::int32_t room = Capacity - wave_->Dots + end - first;
        if (room == 0) return;
        const std::int32_t count = Pick(1, std::min(room, 80));
        Begin();
        BeginEdit(*wave_);
        if (kind == 'a')
            AppendSegment(*wave_, {.Custom = Pick(0, 2) == 0, .DotCount = count});
        else if (kind == 'w')
            ReplaceRunSegments(*wave_, {.DotCount = count});
        else
            MarkRunCustom(*wave_, count);
        dots_.erase(dots_.begin() + first, dots_.begin() + end);
        dots_.insert(dots_.begin() + first, count, 0.0);
        for (std::int32_t i = 0; i < count; ++i) dots_[first + i] = Pick(-1000, 1000) / 1000.0;
        wave_->Dots = static_cast<std::int32_t>(dots_.size());
        wave_->LastDot = wave_->Dots - 1;
        for (std::int32_t i = 0; i < wave_->Dots; ++i) wave_->DotArray[i] = {double(i), dots_[i]};
        EndEdit(0);
    }
    // Copies (0), cuts (1) or deletes (2) the selection.
    void TakeOut(std::int32_t kind) {
        const bool copies = kind != 2, removes = kind != 0;
        if (removes) Begin();
        if (wave_->HasSelection) {
            const auto first = dots_.begin() + wave_->SelStart;
            const auto end = dots_.begin() + wave_->SelEnd + 1;
            if (copies) clip_.assign(first, end);
            if (removes) dots_.erase(first, end);
        }
        !removes ? CopyAnalog() : copies ? CutAnalog() : DeleteAnalog();
    }
    void Paste() {
        if (!clip_.empty() && dots_.size() < Capacity - 1) {
            Begin();
            resume_ = true;
            const auto count = std::min(clip_.size(), Capacity - dots_.size());
            dots_.insert(dots_.end(), clip_.begin(), clip_.begin() + std::ptrdiff_t(count));
        }
        PasteAnalog();
    }
    void Exchange(bool undo) {
        const std::string before = Runs(*wave_);
        undo ? UndoAnalog() : ResumeAnalog();
        if (!(undo ? undo_ : resume_)) return;
        std::swap(dots_, snapshot_);
        undo_ = !undo;
        resume_ = undo;
        EXPECT_EQ(Runs(*wave_), std::exchange(otherRuns_, before));
    }
    void SelectAll() {
        wave_->SegmentPicked = wave_->SelectionDragging = false;  // as a bar drawn with the mouse
        SelectAllAnalog();
    }
    void Select() {
        const std::int32_t last = std::max(wave_->Dots - 1, 0);
        const std::int32_t from = Pick(-10, last + 10), to = from + Pick(-5, 60);
        SelectDots(*wave_, from, to);
        if (dots_.empty()) return;
        EXPECT_EQ(wave_->SelStart, std::clamp(from, 0, last));
        EXPECT_EQ(wave_->SelEnd, std::clamp(to, wave_->SelStart, last));
    }

    const std::function<void()> steps_[7] = {
        [this] { Write("awf"[Pick(0, 2)]); },
        [this] { TakeOut(Pick(0, 2)); },
        [this] { Paste(); },
        [this] { Exchange(Pick(0, 1) == 0); },
        [this] { SelectAll(); },
        [this] { Select(); },
        [this] { PickSegment(*wave_, Pick(0, std::max(wave_->SegmentCount - 1, 0))); }};
    AnalogWaveRecord* wave_ = nullptr;
    std::vector<double> dots_, snapshot_, clip_;
    std::string otherRuns_;  // segments of the snapshot
    bool undo_ = false, resume_ = false;
    std::mt19937 random_{GetParam()};
};

TEST_P(RandomEditTest, AgreesWithAPlainListOfDots) {
    wave_ = &MakeDocument("", 0, Capacity);
    for (int step = 0; step < 4000; ++step) {
        const std::int32_t kind = Pick(0, 6);
        SCOPED_TRACE(::testing::Message() << "step " << step << " of kind " << kind);
        steps_[kind]();
        ASSERT_NO_FATAL_FAILURE(ExpectSound(*wave_));
        ASSERT_TRUE(std::ranges::equal(std::span(wave_->DotArray).first(wave_->Dots), dots_, {},
                                       &WaveDot::Y));
        ASSERT_TRUE(wave_->UndoAvailable == undo_ && wave_->ResumeAvailable == resume_);
        ASSERT_EQ(ClipDotCount, std::ssize(clip_));
        if (!wave_->SegmentPicked) continue;
        const WaveSegment& picked = wave_->Segments[wave_->PickedSegment];
        ASSERT_TRUE(picked.RunStart == wave_->SelStart && picked.EndDot == wave_->SelEnd);
    }
    EXPECT_TRUE(!asked.empty() || std::getenv("TIDEMARK_SEED")) << "the document was never full";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEditTest, ::testing::ValuesIn(Seeds({1U, 2U, 20240607U})));

}  // namespace
