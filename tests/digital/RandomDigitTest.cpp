#include "digital/DigitFixture.h"
#include "digital/DigitValueFuncBox.h"
#include "Soak.h"

#include <map>
#include <random>

// Thousands of random gestures and commands on two documents, presses and releases at any time
// among them, beside a plain model: a word for each dot, what the snapshot holds, and the bits that
// were copied, channel by channel.

namespace {

class RandomDigitTest : public DigitFixture, public ::testing::WithParamInterface<unsigned> {
protected:
    struct State {
        std::vector<std::int32_t> Words;
        std::string Nodes;
    };
    using Bits = std::vector<std::vector<int>>;
    static constexpr int Far = 300;  // dots of the model: data may pass the end of the waveform

    void SetUp() override {
        DigitFixture::SetUp();
        TheHost().RunDialog = [this](auto window, auto...) {
            if (window != "InsertNodeFrm") return false;
            InsertNodeDialog node = OpenInsertNode();
            const std::string names[] = {node.Name, "a", "B", "a9", "a10", ""};
            node.Name = names[std::max(Pick(-9, 5), 0)];
            node.Radix = std::int16_t(Pick(0, 3));
            if (Pick(0, 1)) node.BusCount = std::to_string(Pick(0, 6));
            node.StartNumber = std::to_string(Pick(0, 12));
            return ConfirmInsertNode(node) == DialogEnd::Done;
        };
        TheHost().ShowTitle = [this](auto) { edited_ = true; };
    }
    int Pick(int low, int high) { return std::uniform_int_distribution(low, high)(random_); }

    // A pattern on one target, bit by bit.
    void Model(DigitTarget target, int first, int last, const DigitPattern& pattern) {
        const int width = WidthOf(doc, target);
        const int start = pattern.Start % (1 << width);
        for (int dot = first, count = start; dot <= last; ++dot) {
            const int n = dot - first;
            if (n > 0 && n % pattern.Interval == 0) count += pattern.Increment;
            if (count >= 1 << width) count = start;
            for (int k = 0; k < width; ++k) {
                std::int32_t& word = now_.Words[dot];
                const int channel = ChannelOf(target, k), place = width - 1 - k;
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
    int ChannelOf(DigitTarget target, int k) {
        return doc.Nodes[target.Node].Channels[std::max<int>(target.Member, 0) + k];
    }
    void Put(int channel, int first, const std::vector<int>& bits) {
        for (int dot = first; const int bit : bits) {
            std::int32_t& word = now_.Words.at(dot++);
            word = (word & ~(1 << channel)) | bit << channel;
        }
    }
    // The selected channels in list order.
    Bits Selected(int first, int count) {
        Bits all;
        for (const auto& [target, start, end] : SelectedSpans(doc))
            for (int k = 0; k < WidthOf(doc, target); ++k) {
                all.emplace_back();
                for (int dot = first; dot < first + count; ++dot)
                    all.back().push_back(now_.Words[dot] >> ChannelOf(target, k) & 1);
            }
        return all;
    }
    void Copy() {
        const auto spans = SelectedSpans(doc);
        if (doc.ListSelection) rows_ = Selected(0, Far);
        if (doc.WaveSelection) span_ = Selected(spans[0].Start, spans[0].End - spans[0].Start + 1);
        Do('y');
    }
    void Paste() {
        const auto [target, dot] = PlaceOfPaste(doc);
        const int width = target.Node < 0 ? 0 : WidthOf(doc, target);
        for (int i = 0; i < std::min(width, int(span_.size())); ++i)
            Put(ChannelOf(target, width - 1 - i), dot, span_[i]);
        Do('v');
    }
    void Repaste() {
        const std::size_t before = doc.NodeCount;
        const bool fits = doc.ChannelCount + std::ssize(rows_) <= MaxChannels;
        std::size_t next = 0;
        Do('V');
        for (std::size_t node = before; node < doc.NodeCount; ++node)
            for (int k = 0; k < doc.Nodes[node].Width; ++k)
                Put(doc.Nodes[node].Channels[k], 0, rows_.at(next++));
        EXPECT_EQ(next, fits ? rows_.size() : 0);
    }
    void Command() {
        if (event_ == 'v') return Paste();
        if (event_ == 'V') return Repaste();
        if (event_ == '2') {
            std::swap(now_, second_[0]);
            std::swap(other_, second_[1]);
        }
        if (doc.WaveSelection && (event_ == 'K' || event_ == 'k'))
            for (const auto& [target, start, end] : SelectedSpans(doc))
                Model(target, start, end, {});
        Do(event_);
    }
    void EditPoint() {
        if (!doc.PointEditOn) Do('q');
        const std::vector<std::string> names = TargetNames(doc);
        if (names.empty()) return;
        ChangeFindName(doc, names[Pick(0, int(names.size()) - 1)]);
        const DigitTarget target = TargetOfName(doc, doc.FindBoxes.Name);
        const int dot = Pick(0, 130), bit = Pick(0, 1), at = std::min(dot, doc.Dots - 1);
        ChangeFindDot(doc, std::to_string(dot));
        ChangeFindValue(doc, std::to_string(bit));  // the same in every radix
        Model(target, at, at, {DigitOperation::Arbitrary, bit});
        Do('O');
    }
    void Exchange(bool undo) {
        now_.Nodes = Shown(doc);
        const bool possible(undo ? doc.UndoAvailable : doc.ResumeAvailable);
        if (possible) std::swap(now_, other_);
        Do(undo ? 'u' : 'U');
        EXPECT_EQ(Shown(doc), now_.Nodes);
        exchanges_ += possible;
    }
    void Gesture() {
        constexpr std::string_view mouse = "PMRPMRrDpmlLLCSBdWhH", other = "stzcfwo1NFaExX+-eiqQ";
        const char event = event_ = (Pick(0, 2) ? mouse : other)[Pick(0, 19)];
        if (event == 'H' && Pick(0, 1)) Do('L', 90, float(Pick(0, 200)));
        if (event == 'H') Do('h', float(Pick(-20, 310)));
        const int far = event == 'c' || event == 'f' ? 130 : 3;
        if (mouse.find(event) < mouse.size())
            return Do(event, float(Pick(-20, 650)), float(Pick(-20, 310)));
        Do(event, float(Pick(-far, far)));
    }
    void Reset() {
        doc.Dots = Pick(8, 120);
        doc.CaliperDefault = Pick(0, 150);
        ResetDigitDocument(doc);
        now_.Words.assign(Far, 0);
    }

    DigitDocument& doc = DigitAt(0);
    State now_, other_, second_[2];  // other_: of the snapshot; second_: the document in slot 1
    Bits span_, rows_;               // the clipboards
    bool edited_ = false;
    char event_ = 0;
    std::map<char, int> edits_;
    int exchanges_ = 0;
    std::mt19937 random_{GetParam()};
};

TEST_P(RandomDigitTest, AgreesWithPlainWords) {
    for (int slot = 0; slot < 2; ++slot) {
        MakeDocument("");
        Reset();
        event_ = '2';
        Command();
    }
    for (int step = 0; step < 3500; ++step) {
        const int kind = Pick(0, 28);
        event_ = kind > 5 && kind < 13 ? "yykKvvvVVbbgGATTII2"[Pick(0, 18)] : 0;
        SCOPED_TRACE(::testing::Message() << "step " << step << " of kind " << kind << event_);
        if (event_ != 0 && Pick(0, 2) == 0) Do('L', 90, float(Pick(0, 300)));
        if (event_ == 'y' || event_ == 'k') Copy();
        State before = {now_.Words, Shown(doc)};
        edited_ = false;
        if (kind < 3) Write();
        if (kind == 3 || kind == 4) Exchange(kind == 3);
        if (kind == 5 && Pick(0, 30) == 0) Reset();
        if (event_ != 0) Command();
        if (kind == 13) EditPoint();
        if (kind > 13) Gesture();
        edits_[event_] += edited_;
        if (edited_ && kind != 3 && kind != 4) other_ = std::move(before);
        ASSERT_NO_FATAL_FAILURE(ExpectSound(doc));
        for (int dot = 0; dot < Far; ++dot) {
            now_.Words[dot] &= ~FreeChannels(doc);
            ASSERT_EQ(WordAt(doc, dot), now_.Words[dot]) << dot;
        }
        ASSERT_FALSE(AssembleMode || EditNodeMode || (doc.PointEditOn && doc.FindOn));
    }
    if (std::getenv("TIDEMARK_SEED")) return;  // what a walk has covered is up to its seed
    EXPECT_GT(exchanges_, 100);
    for (const char event : std::string("kKvVbgGATIH")) EXPECT_GT(edits_[event], 2) << event;
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDigitTest, ::testing::ValuesIn(Seeds({1U, 2U, 20240607U})));

}  // namespace
