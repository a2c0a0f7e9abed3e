#include "digital/DigitFixture.h"
#include "digital/DigitValueFuncBox.h"

#include <random>

// Thousands of random gestures and commands, presses and releases at any time among them, beside a
// plain model: a word for each dot, and what the snapshot holds.

namespace {

class RandomDigitTest : public DigitFixture, public ::testing::WithParamInterface<unsigned> {
protected:
    struct State {
        std::vector<std::int32_t> Words;
        std::string Nodes;
    };
    int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

    // A pattern on one target, bit by bit.
    void Model(DigitTarget target, int first, int last, const DigitPattern& pattern) {
        const DigitNode& node = doc.Nodes[target.Node];
        const int from = std::max<int>(target.Member, 0), width = WidthOf(doc, target);
        const int start = pattern.Start % (1 << width);
        for (int dot = first, count = start; dot <= last; ++dot) {
            const int n = dot - first;
            if (n > 0 && n % pattern.Interval == 0) count += pattern.Increment;
            if (count >= 1 << width) count = start;
            for (int k = 0; k < width; ++k) {
                std::int32_t& word = now_.Words[dot];
                const int channel = node.Channels[from + k], place = width - 1 - k;
                const int bits[] = {
                    0, 1, ~word >> channel, n, pattern.Value >> place, count >> place};
                word &= ~(1 << channel);
                word |= (bits[int(pattern.Operation)] & 1) << channel;
            }
        }
    }
    void Write() {
        const DigitPattern pattern = {DigitOperation(Pick(0, 5)), Pick(0, 70000), Pick(0, 70000),
                                      Pick(0, 9), Pick(1, 4)};
        const int first = Pick(0, doc.Dots - 1), last = Pick(first, doc.Dots - 1);
        const bool counts = pattern.Operation == DigitOperation::Counting;
        if (doc.NodeCount > 0 && Pick(0, 3) == 0) {
            const auto node = std::int16_t(Pick(0, doc.NodeCount - 1));
            const DigitTarget target = {node, std::int16_t(Pick(-1, doc.Nodes[node].Width - 1))};
            Model(target, first, last, pattern);
            return EvaluateTarget(target, pattern, first, last);
        }
        for (const auto& [target, start, end] : SelectedSpans(doc))
            Model(target, counts ? first : start, counts ? last : end, pattern);
        counts ? CountSelection(pattern, first, last) : WriteSelection(pattern);
    }
    void Exchange(bool undo) {
        now_.Nodes = Kept(doc);
        const bool possible(undo ? doc.UndoAvailable : doc.ResumeAvailable);
        if (possible) std::swap(now_, other_);
        Do(undo ? 'u' : 'U');
        EXPECT_EQ(Kept(doc), now_.Nodes);
        exchanges_ += possible;
    }
    void Gesture() {
        constexpr std::string_view mouse = "PMRPMRrDpmlLLCSBdW", other = "stzcfwo1NFaExX+-ei";
        const char event = (Pick(0, 2) ? mouse : other)[Pick(0, 17)];
        const int far = event == 'c' || event == 'f' ? 130 : 3;
        if (mouse.find(event) < mouse.size())
            return Do(event, float(Pick(-20, 650)), float(Pick(-20, 310)));
        Do(event, float(Pick(-far, far)));
    }
    void Reset() {
        doc.Dots = Pick(8, 120);
        doc.CaliperDefault = Pick(0, 150);
        ResetDigitDocument(doc);
        now_.Words.assign(doc.Dots, 0);
    }

    DigitDocument& doc = DigitAt(0);
    State now_, other_;  // other_: of the snapshot
    int exchanges_ = 0;
    std::mt19937 random_{GetParam()};
};

TEST_P(RandomDigitTest, AgreesWithPlainWords) {
    MakeDocument("");
    Reset();
    bool edited = false;
    TheHost().ShowTitle = [&](auto) { edited = true; };
    for (int step = 0; step < 3500; ++step) {
        const int kind = Pick(0, 20);
        SCOPED_TRACE(::testing::Message() << "step " << step << " of kind " << kind);
        State before = {now_.Words, Kept(doc)};
        edited = false;
        if (kind < 3) Write();
        if (kind == 3 || kind == 4) Exchange(kind == 3);
        if (kind == 5 && Pick(0, 30) == 0) Reset();
        if (kind > 5) Gesture();
        if (edited && kind != 3 && kind != 4) other_ = std::move(before);
        ASSERT_NO_FATAL_FAILURE(ExpectSound(doc));
        for (int dot = 0; dot < doc.Dots; ++dot) ASSERT_EQ(WordAt(doc, dot), now_.Words[dot]);
    }
    EXPECT_GT(exchanges_, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDigitTest, ::testing::Values(1U, 2U, 20240607U));

}  // namespace
