#include "digital/DigitFixture.h"
#include "digital/DigitValueFuncBox.h"

namespace {

using ValueTest = DigitFixture;

// Nodes | samples | selection | operation, value; for counting start, increment, interval, first
// and last; a target => samples, lengths, width of the selection. Operations: 0, 1, 2 invert, 3
// clock, 4 arbitrary, 5 counting.
constexpr char Rows[] = R"(
    a b|0011 0101|a:1-2|1 => 0111 0101 4 4 w1; a b|0011 0101|b:0-3|0 => 0011 0000 4 4 w1;
    a b|0011 0101|a:0-0 b:3-3|2 => 1011 0100 4 4 w1; a b|0011 01|a:1-2|3 => 0011 0100 4 2 w1;
    a d[2]|- 11111 11111|a:1-4 d:2-4|3 => 00101 11010 11010 5 5 w1; a b|1 -|b:3-4|1 => 10000 00011 1 5 w1;
    a d[3]* e[2]||a:0-1 d:0-0 d.1:2-3|1 => 11 10 10 10 00 00 2 1 0 w1;
    a d[3]*||d.0:0-1 d.2:1-2|1 => 000 110 000 011 0 3 w1; d[3] a||d.1:0-3 a:0-0|1 => 0 0 0 1 0 1 w1;
    a d[4] e[2]||d:1-2 e:0-2|4 6 => 000 000 011 011 000 111 000 0 3 3 w4;
    a d[2]*|11 11 00|a:0-1 d.0:0-1 d.1:1-1|4 2 => 00 00 00 2 2 w1;
    a d[2]*|00 11 00|a:0-1 d.1:1-1|4 3 => 11 11 01 2 2 w1;
    d[16]||d:0-0|4 43690 => 1 0 1 0 1 0 1 0 1 0 1 0 1 0 1 0 1 w16;
    d[2]|1111111 1111111|d:0-0|5 0 0 1 1 2 6 => 1100110 1101010 7 w2;
    a d[2]||d:9-20|5 0 1 2 2 0 7 => 00000000 00110011 11111111 0 8 w2;
    d[2]||d:0-0|5 0 6 1 1 0 4 => 11111 01010 5 w2; a d[2]||a:0-0 d:1-1|5 0 0 1 1 0 3 => 0101 0011 0101 4 4 w1;
    d[2]*|00 11|d.0:5-5|5 0 3 1 1 1 3 => 0111 1100 4 w1; d[3]||d:0-0|5 0 1 9 1 0 2 => 000 000 111 3 w3;
    a d[2]||a:0-1|1 0 0 0 0 1 2 d.1 => 000 000 011 0 3 w1; a d[2]|||4 5 0 0 0 1 1 d => 00 00 01 0 2 w1;
    d[2]* e|1 1 1|d.1:0-1|5 0 2 1 1 0 2 d => 111 010 100 3 1 w1; d[3] e||e:5-9|3 0 0 0 0 0 3 e =>
    0000 0000 0000 0101 0 4 w1)";

TEST_F(ValueTest, OperationsWritePatternsAndComeBack) {
    ForRows(Rows, [](const std::string& left, const std::string& right) {
        std::istringstream line(left);
        std::string part[4], target;
        for (std::string& text : part) std::getline(line, text, '|');
        DigitDocument& document = MakeDocument(part[0], part[1]);
        Select(document, part[2]);
        const std::string before = Shown(document), selection = Selection(document);
        const std::string width = " w" + std::to_string(SelectedWidth(document));
        DigitPattern pattern;
        std::int32_t operation = 0, first = 0, last = 0;
        std::istringstream(part[3]) >> operation >> pattern.Value >> pattern.Start >>
            pattern.Increment >> pattern.Interval >> first >> last >> target;
        pattern.Operation = DigitOperation(operation);
        if (!target.empty())
            EvaluateTarget(TargetOf(document, target), pattern, first, last);
        else if (operation == 5)
            CountSelection(pattern, first, last);
        else
            WriteSelection(pattern);
        const std::string after = Shown(document);
        std::string written;
        for (const DigitNode& node : document.Nodes)
            for (int k = 0; k < node.Width; ++k, written += ' ')
                for (const std::int32_t word : document.DigitSamples)
                    written += word >> node.Channels[k] & 1 ? '1' : '0';
        written.pop_back();
        for (const DigitNode& node : document.Nodes)
            written += ' ' + std::to_string(node.DataLength);
        EXPECT_EQ(written + width, right);
        EXPECT_EQ(Selection(document), target.empty() ? "none" : selection);
        ExpectSound(document);
        EXPECT_TRUE(document.Changed && document.UndoAvailable && !document.ResumeAvailable);
        for (int turn = 0; turn < 2; ++turn) {
            document.Changed = false;
            Play("u u");  // the second one finds it off
            EXPECT_EQ(Shown(document) + Selection(document), before + "none");
            EXPECT_TRUE(document.Changed && !document.UndoAvailable && document.ResumeAvailable);
            Play("U U");
            EXPECT_EQ(Shown(document), after);
            EXPECT_TRUE(document.UndoAvailable && !document.ResumeAvailable);
        }
    });
}

TEST_F(ValueTest, ToolsNeedASelection) {
    std::int16_t number = 9;
    for (const std::string result :
         {"000", "110", "100", "010", "010ArbitraryValueFrm", "010CountFrm"}) {
        DigitDocument& document = MakeDocument("a", "010");
        RunValueTool(number);
        CountSelection({.Operation = DigitOperation::Counting, .Start = 1}, 0, 9);
        WriteSelection({.Operation = DigitOperation::Value1});
        EXPECT_TRUE(Shown(document) == "a:0=010" && !document.Changed);
        EXPECT_EQ(asked.at(0), "Please select the valid digital waveform");
        Select(document, "a:0-1");
        asked = {""};
        RunValueTool(number++);
        EXPECT_EQ(Shown(document).substr(4) + asked.back(), result);
        asked.clear();
    }
}

}  // namespace
