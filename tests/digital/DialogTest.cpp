#include "digital/ArbitraryValueFuncBox.h"
#include "digital/CountFuncBox.h"
#include "digital/DigitPropertyFuncBox.h"
#include "digital/EvaluateFuncBox.h"
#include "digital/GlobalDigitDefineCode.h"
#include "digital/InsertNodeFuncBox.h"
#include "frame/LoadLanguageCode.h"
#include "platform/Host.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using enum ValueBox;

// 100 dots; channel "A", and "BUS" of channels 1..4 with the numbers 3..6, selected in 10..12.
class DigitRulesTest : public testing::Test, protected TempFolder {
protected:
    void SetUp() override {
        UseSettingsStore(PathOf("settings.ini"));
        UseEnglish = 1;
        TheHost().ShowBox = [this](auto text, auto, auto, auto title) {
            asked = std::string(title).append(": ").append(text);
            return answer;
        };
        DigitDocUsed.fill(false);
        DigitDocUsed[0] = true;
        ActiveDigitIndex = EvaluateMode = EvaluateNode = 0;
        EditDigitProperty = EvaluateIsMember = false;
        LastInserted = {};
        for (DigitDocument& each : DigitDocTable) each = DigitDocument();
        document.Dots = 100;
        AppendNode(document, {.Name = "A"});
        AppendNode(document, {.Name = "BUS", .Width = 4, .StartNumber = 3});
        SelectSpan(document, {1, -1}, 10, 12);
        MarkWaveSelection(document);
    }
    void TearDown() override { TheHost() = silent; }

    static std::string Saved(std::string_view section, std::span<const char* const> keys) {
        std::string text;
        for (const char* key : keys) text += GetSetting(ApplicationTitle, section, key, "-") + " ";
        return text;
    }
    std::string BusValues(int first, int last) const {
        std::string text;
        for (int dot = first; dot <= last; ++dot)
            text += std::to_string(ValueAt(document, {1, -1}, dot)) + " ";
        return text;
    }

    DigitDocument& document = DigitDocTable[0];
    std::string asked;
    Answer answer = Answer::Ok;
    const Host silent = TheHost();
};

constexpr std::string_view CountSection = "Tidemark_CountingValue",
                           EvaluateSection = "Tidemark_EvaluateValue",
                           PropertySection = "Tidemark_DigitProperty";
constexpr ValueBox CountOrder[] = {Start, Increment, First, Last, Interval};
constexpr const char *CountKeys[] = {"DataType", "StartValue", "IncrementValue",
                                     "StartPos", "EndPos",     "CountPos"},
                     *EvaluateKeys[] = {"DataType", "ArbValue", "CountPos", "StartValue", "EndPos"},
                     *PropertyKeys[] = {"MaxDots", "Rate", "Position"};

TEST_F(DigitRulesTest, ValuesAreHeldWhileTypedAndEmptyBoxesStay) {
    const struct {
        std::int16_t Radix;
        const char *Typed, *Held;
    } rows[] = {
        {0, "10000", "1111"}, {1, "f", "f"},   {1, "10", "F"}, {2, "20", "17"},
        {3, "15", "15"},      {3, "16", "15"}, {3, "", ""},    {3, "99999999999999999999", "15"}};
    for (const auto& [radix, typed, held] : rows) {
        ValueBoxes boxes{radix, 15, 100, {}};
        ChangeValueBox(boxes, Start, typed);
        LeaveValueBoxes(boxes);
        EXPECT_EQ(TextIn(boxes, Start) + TextIn(boxes, Last) + TextIn(boxes, Interval), held);
    }
}

TEST_F(DigitRulesTest, CountingHoldsItsSettingsAndWritesItsOwnDots) {
    const char *hostile[] = {"7", "300", "-4", "60", "20", "0"}, *held = "15 0 60 60 1 ";
    const char* typed[] = {"e", "1", "20", "23", "2"};
    for (std::size_t i = 0; i < 6; ++i)
        SaveSetting(ApplicationTitle, CountSection, CountKeys[i], hostile[i]);
    ValueBoxes boxes = OpenCount();
    std::string shown;
    for (const ValueBox box : CountOrder) shown += TextIn(boxes, box) + " ";
    EXPECT_TRUE(boxes.Radix == 3 && shown == held) << shown;
    ChangeValueRadix(boxes, 1);
    for (std::size_t i = 0; i < 5; ++i) ChangeValueBox(boxes, CountOrder[i], typed[i]);
    EXPECT_EQ(ConfirmCount(boxes), DialogEnd::Done);
    EXPECT_EQ(Saved(CountSection, CountKeys), "1 14 1 20 23 2 ");
    EXPECT_EQ(BusValues(19, 24) + BusValues(10, 10), "0 14 14 15 15 0 0 ");
}

TEST_F(DigitRulesTest, EvaluateFindsItsTargetAndSharesOneBox) {
    EvaluateNode = 7;  // no longer there
    EvaluateDialog dialog = OpenEvaluate();
    EXPECT_TRUE(dialog.Chosen == 0 && EvaluateNode == 0 && TextIn(dialog.Boxes, Last) == "99");
    SaveSetting(ApplicationTitle, EvaluateSection, "EndPos", "40");
    ChooseEvaluateTarget(dialog, 4);
    dialog = OpenEvaluate();
    EXPECT_EQ(TargetNames(ActiveDigit())[4], "BUS  5");
    EXPECT_TRUE(dialog.Chosen == 4 && EvaluateMember == 2 && dialog.Boxes.MaxValue == 1);
    ChooseEvaluateTarget(dialog, 1);
    ChangeValueRadix(dialog.Boxes, 1);
    for (const auto& [box, text] : {std::pair{Value, "C"}, {Interval, "5"}, {First, "39"}})
        ChangeValueBox(dialog.Boxes, box, text);
    EvaluateMode = 4;
    EXPECT_EQ(ConfirmEvaluate(dialog), DialogEnd::Done);
    EXPECT_EQ(BusValues(38, 41), "0 12 12 0 ");
    EXPECT_EQ(Saved(EvaluateSection, EvaluateKeys), "1 12 - - 40 ");
    EvaluateMode = 5;
    ChangeValueBox(dialog.Boxes, Start, "9");
    ChooseEvaluateTarget(dialog, 0);  // of one bit
    EXPECT_EQ(ConfirmEvaluate(dialog), DialogEnd::Done);
    EXPECT_EQ(Saved(EvaluateSection, EvaluateKeys), "1 12 5 1 40 ");
}

TEST_F(DigitRulesTest, EmptyBoxInUseIsRefused) {
    for (EvaluateMode = 0; EvaluateMode <= 5; ++EvaluateMode)
        for (const ValueBox box : {Value, Start, Increment, First, Last, Interval}) {
            const bool counts = box == Start || box == Increment || box == Interval;
            const bool used = counts ? EvaluateMode == 5 : box != Value || EvaluateMode == 4;
            EvaluateDialog dialog = OpenEvaluate();
            ChangeValueBox(dialog.Boxes, box, "");
            EXPECT_EQ(ConfirmEvaluate(dialog), used ? DialogEnd::Stay : DialogEnd::Done);
        }
    answer = Answer::Cancel;
    for (const ValueBox box : CountOrder) {
        ValueBoxes boxes = OpenCount();
        ChangeValueBox(boxes, box, "");
        EXPECT_EQ(ConfirmCount(boxes), DialogEnd::Close);
    }
    EXPECT_EQ(GetSetting(ApplicationTitle, CountSection, "DataType", "none"), "none");
}

TEST_F(DigitRulesTest, RateChoosesItsUnitAndKeepsItsDigits) {
    const struct {
        std::int16_t Unit;
        const char *Typed, *Shown;
        std::int16_t ShownUnit;
        double Rate;  // bits per second
    } rows[] = {
        {2, "3000000", "2.0000", 0, 2e6}, {2, "0.5", "1.0", 2, 1.0},
        {2, "999.9", "999.9", 2, 999.9},  {1, "1.23456", "1.2346", 1, 1234.56},
        {1, "12.3", "12.300", 1, 12300},  {1, "123.456", "123.46", 1, 123456},
        {0, "0.0015", "1.5000", 1, 1500}, {0, "", "1.0", 2, 1.0},
    };
    SaveSetting(ApplicationTitle, PropertySection, "Rate", "123456.789");
    DigitPropertyDialog dialog = OpenDigitProperty();
    LeaveRate(dialog, "123.46");
    EXPECT_EQ(dialog.Rate, 123456.789);
    for (const auto& row : rows) {
        dialog.RateUnit = row.Unit;
        LeaveRate(dialog, row.Typed);
        EXPECT_TRUE(dialog.RateText == row.Shown && dialog.RateUnit == row.ShownUnit) << row.Typed;
        EXPECT_DOUBLE_EQ(dialog.Rate, row.Rate) << row.Typed;
    }
    dialog.RateUnit = 2;
    EXPECT_EQ(ChangeRate(dialog, "3000000") + ChangeRate(dialog, "0."), "20000000.");
    ChangeRateUnit(dialog, 0, "0.5");
    EXPECT_TRUE(dialog.RateText == "0.5" && dialog.RateUnit == 0 && dialog.Rate == 5e5);
}

TEST_F(DigitRulesTest, PropertyGoesToTheFreeSlotOrEmptiesTheOpenDocument) {
    DigitPropertyDialog dialog = OpenDigitProperty();
    EXPECT_TRUE(ActiveDigitIndex == 1 && dialog.Dots == 4096 && dialog.Position == 1);
    SpinPosition(dialog, 60, true);
    SpinDigitDots(dialog, 11, false);
    EXPECT_TRUE(dialog.Dots == 3596 && dialog.Position == 3595);
    LeaveDigitDots(dialog, "");
    EXPECT_EQ(ConfirmDigitProperty(dialog), DialogEnd::Done);
    EXPECT_TRUE(PropertyApplied && DigitAt(1).Dots == 8 && DigitAt(1).CaliperDefault == 7);
    EXPECT_EQ(Saved(PropertySection, PropertyKeys), "8 100000 7 ");
    DigitDocUsed.fill(true);
    EXPECT_EQ(ConfirmDigitProperty(OpenDigitProperty()), DialogEnd::Close);
    EXPECT_FALSE(PropertyApplied);

    ActiveDigitIndex = 0;
    EditDigitProperty = true;
    document.Rate = 12345.678;
    EXPECT_EQ(ConfirmDigitProperty(OpenDigitProperty()), DialogEnd::Done);
    EXPECT_TRUE(document.Dots == 100 && document.Rate == 12345.678 && document.Caliper == 7);
    EXPECT_TRUE(document.NodeCount == 0 && document.Changed);
}

TEST_F(DigitRulesTest, InsertedNodeIsProposedJudgedAndAdded) {
    AppendNode(document, {.Name = "D6"});
    InsertNodeDialog dialog = OpenInsertNode();
    EXPECT_TRUE(dialog.Name == "D7" && dialog.BusCount == "1" && dialog.StartNumber == "0");
    const struct {
        const char *Name, *Count, *Start, *Message;
    } rows[] = {{"", "11", "0", "You have input the empty value , Please input again!"},
                {"BUS", "11", "", "You have input the empty value , Please input again!"},
                {"BUS", "11", "0", "You have input the same name , Please input again!"},
                {"bus", "11", "0",
                 "The number of channel overflow,can input number is 10, Please input again!"}};
    for (const auto& [name, count, start, message] : rows) {
        dialog = {name, 0, count, start};
        EXPECT_EQ(ConfirmInsertNode(dialog), DialogEnd::Stay);
        EXPECT_EQ(asked, std::string("Information: ") + message);
        EXPECT_TRUE(document.NodeCount == 3 && !document.UndoAvailable);
    }
    dialog = {"bus", 2, "10", "5"};
    EXPECT_EQ(ConfirmInsertNode(dialog), DialogEnd::Done);
    ASSERT_EQ(document.NodeCount, 4);
    const DigitNode& node = document.Nodes[3];
    EXPECT_TRUE(node.Name == "bus" && node.Radix == 2 && node.Width == 10);
    EXPECT_TRUE(node.StartNumber == 5 && document.UndoNodeCount == 3);
}

}  // namespace
