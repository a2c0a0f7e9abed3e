#include "digital/ArbitraryValueFuncBox.h"
#include "digital/CountFuncBox.h"
#include "digital/DigitFixture.h"
#include "digital/DigitPropertyFuncBox.h"
#include "digital/EvaluateFuncBox.h"
#include "platform/Settings.h"
#include "platform/TempFolder.h"

namespace {

using enum ValueBox;

// 100 dots; channel "A", and "BUS" of channels 1..4 with the numbers 3..6, selected in 10..12.
class DigitRulesTest : public DigitFixture, protected TempFolder {
protected:
    void SetUp() override {
        DigitFixture::SetUp();
        UseSettingsStore(PathOf("settings.ini"));
        EvaluateMode = EvaluateNode = 0;
        EvaluateIsMember = false;
        MakeDocument("A BUS[4]@3", "", 100);
        SelectSpan(document, {1, -1}, 10, 12);
        MarkWaveSelection(document);
    }
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
    DigitDocument& document = DigitAt(0);
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
    EvaluateDialog form = OpenEvaluate();
    EXPECT_TRUE(form.Chosen == 0 && EvaluateNode == 0 && TextIn(form.Boxes, Last) == "99");
    SaveSetting(ApplicationTitle, EvaluateSection, "EndPos", "40");
    ChooseEvaluateTarget(form, 4);
    form = OpenEvaluate();
    EXPECT_EQ(TargetNames(ActiveDigit())[4], "BUS  5");
    EXPECT_TRUE(form.Chosen == 4 && EvaluateMember == 2 && form.Boxes.MaxValue == 1);
    ChooseEvaluateTarget(form, 1);
    ChangeValueRadix(form.Boxes, 1);
    for (const auto& [box, text] : {std::pair{Value, "C"}, {Interval, "5"}, {First, "39"}})
        ChangeValueBox(form.Boxes, box, text);
    EvaluateMode = 4;
    EXPECT_TRUE(ConfirmEvaluate(form) == DialogEnd::Done && BusValues(38, 41) == "0 12 12 0 ");
    EXPECT_EQ(Saved(EvaluateSection, EvaluateKeys), "1 12 - - 40 ");
    EvaluateMode = 5;
    ChangeValueBox(form.Boxes, Start, "9");
    ChooseEvaluateTarget(form, 0);  // of one bit
    EXPECT_EQ(ConfirmEvaluate(form), DialogEnd::Done);
    EXPECT_EQ(Saved(EvaluateSection, EvaluateKeys), "1 12 5 1 40 ");
}

TEST_F(DigitRulesTest, EmptyBoxInUseIsRefused) {
    for (EvaluateMode = 0; EvaluateMode <= 5; ++EvaluateMode)
        for (const ValueBox box : {Value, Start, Increment, First, Last, Interval}) {
            const bool counts = box == Start || box == Increment || box == Interval;
            const bool used = counts ? EvaluateMode == 5 : box != Value || EvaluateMode == 4;
            EvaluateDialog form = OpenEvaluate();
            ChangeValueBox(form.Boxes, box, "");
            EXPECT_EQ(ConfirmEvaluate(form), used ? DialogEnd::Stay : DialogEnd::Done);
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
    SaveSetting(ApplicationTitle, PropertySection, "Rate", "123456.789");
    DigitPropertyDialog form = OpenDigitProperty();
    LeaveRate(form, "123.46");
    EXPECT_EQ(form.Rate, 123456.789);
    // The unit chosen and what is typed; what is shown, its unit and the bits per second.
    ForRows(R"(2 3000000 => 2.0000 0 2e6; 2 0.5 => 1.0 2 1; 2 999.9 => 999.9 2 999.9;
        1 1.23456 => 1.2346 1 1234.56; 1 12.3 => 12.300 1 12300; 1 123.456 => 123.46 1 123456;
        0 0.0015 => 1.5000 1 1500; 0 - => 1.0 2 1)",
            [&](const std::string& left, const std::string& right) {
                std::string typed, shown, rate;
                std::int16_t unit = 0;
                std::istringstream(left) >> form.RateUnit >> typed;
                std::istringstream(right) >> shown >> unit >> rate;
                LeaveRate(form, typed == "-" ? "" : typed);
                EXPECT_TRUE(form.RateText == shown && form.RateUnit == unit);
                EXPECT_DOUBLE_EQ(form.Rate, std::stod(rate));
            });
    form.RateUnit = 2;
    EXPECT_EQ(ChangeRate(form, "3000000") + ChangeRate(form, "0."), "20000000.");
    ChangeRateUnit(form, 0, "0.5");
    EXPECT_TRUE(form.RateText == "0.5" && form.RateUnit == 0 && form.Rate == 5e5);
}

TEST_F(DigitRulesTest, PropertyGoesToTheFreeSlotOrEmptiesTheOpenDocument) {
    DigitPropertyDialog form = OpenDigitProperty();
    EXPECT_TRUE(ActiveDigitIndex == 1 && form.Dots == 4096 && form.Position == 1);
    SpinPosition(form, 60, true);
    SpinDigitDots(form, 11, false);
    EXPECT_TRUE(form.Dots == 3596 && form.Position == 3595);
    LeaveDigitDots(form, "");
    EXPECT_EQ(ConfirmDigitProperty(form), DialogEnd::Done);
    EXPECT_TRUE(PropertyApplied && DigitAt(1).Dots == 8 && DigitAt(1).CaliperDefault == 7);
    EXPECT_EQ(Saved(PropertySection, PropertyKeys), "8 100000 7 ");
    DigitDocUsed.fill(true);
    EXPECT_TRUE(ConfirmDigitProperty(OpenDigitProperty()) == DialogEnd::Close && !PropertyApplied);

    ActiveDigitIndex = 0;
    EditDigitProperty = true;
    document.Rate = 12345.678;
    EXPECT_EQ(ConfirmDigitProperty(OpenDigitProperty()), DialogEnd::Done);
    EXPECT_TRUE(document.Dots == 100 && document.Rate == 12345.678 && document.Caliper == 7);
    EXPECT_TRUE(document.NodeCount == 0 && document.Changed);
}

TEST_F(DigitRulesTest, InsertedNodeIsProposedAndAdded) {
    AppendNode(document, {.Name = "D6"});
    InsertNodeDialog form = OpenInsertNode();
    EXPECT_TRUE(form.Name == "D7" && form.BusCount == "1" && form.StartNumber == "0");
    form = {"bus", 2, "10", "5"};
    EXPECT_EQ(ConfirmInsertNode(form), DialogEnd::Done);
    ASSERT_TRUE(document.NodeCount == 4 && document.UndoNodeCount == 3);
    const DigitNode& node = document.Nodes[3];
    EXPECT_EQ(std::tuple(node.Name, node.Radix, node.Width, node.StartNumber),
              std::tuple("bus", 2, 10, 5));
}

}  // namespace
