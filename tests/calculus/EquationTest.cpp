#include "calculus/EquationFuncBox.h"

#include "calculus/DialogFixture.h"
#include "TextRows.h"

namespace {

constexpr std::string_view EquationSection = "Tidemark_Equation";

class EquationTest : public DialogFixture {
protected:
    // The value at new dot `n` of five, 10 V peak to peak, which begin at dot 10 of 100 in 1 ms.
    static double At(std::string_view text, int n) {
        WaveDot dot{double(n), 0.0};
        const EquationScales scales{5, 10, 100, 1e-3, 10.0, 7};
        const EquationFault fault = EvaluateEquation(text, scales, {&dot, 1});
        EXPECT_EQ(FaultText(fault, text), "") << text;
        return dot.Y;
    }
    static EquationDialog Open(std::string_view text, const char* dots, bool replace = false) {
        EquationDialog dialog = OpenEquation(replace);
        LeaveEquationDots(dialog, dots);
        ChangeEquation(dialog, text);
        return dialog;
    }
};

TEST_F(EquationTest, ValuesByHand) {
    // The number of the dot in front; 1e400 is infinite, not the largest number.
    const std::string table =
        "3 t => 0.00013; 1 A*sin(2*pi*x) => 5; 3 2n => 2e-9; 3 2*n => 6;"
        "0 .5M*1e-3+2.2k+100m => 2700.1; 0 3p*1u*1f*1G*1G*1G*1G => 3e3; 0 1e400-1e308>1e308 => 1; "
        "0 3\u00B5 => 3e-6; 2 3\u03BC*n => 6e-6; 0 -2^2 => -4; 1 x<0.5 ? 1 : 2 => 1; "
        "2 x<0.5 ? 1 : 2 => 2; 0 ln(e^2)+log10(100) => 4; 0 (sinc(0)+sinc(0.5)-1)*pi => 2; "
        "0 square(pi/2)-square(-pi/2) => 2; 0 saw(pi/2) => -0.5; 0 tri(pi/2)-tri(7*pi/4) => 1.5; "
        "0 2*step(0)+step(-0.001) => 2; 0 rect(x-0.5)+rect(0.6) => 1; 0 ln(gauss(2)) => -2; "
        "0 mod(-1,3)+floor(-0.5)+ceil(0.5) => 2";
    for (const auto& [left, right] : Rows(table)) {
        const double value = std::stod(right);
        EXPECT_NEAR(At(left.substr(2), left[0] - '0'), value,
                    1e-12 * std::max(1.0, std::abs(value)))
            << left;
    }
    EXPECT_NE(At("noise()", 1), At("noise()", 2));
    EXPECT_NE(At("noise()-noise()", 1), 0.0);
    EXPECT_EQ(At("noise()", 1), At("noise()", 1));
}

TEST_F(EquationTest, FaultsPointAtTheirColumn) {
    const auto told = [](const std::string& text) {
        return FaultText(EvaluateEquation(text, {}, {}), text);
    };
    for (const auto& [text, fault] : Rows(R"~(
        => 1: an expression is missing; 2*foo+1 => 3: "foo" is unknown;
        1+sin x => 3: "sin" needs its arguments in ( ); (1+2 => 5: a closing parenthesis is missing;
        2 µ+$ => 3: the character "µ" cannot stand here; 1+ => 3: the expression ends too early;
        3µ*x+$ => 6: the character "$" cannot stand here; sin(1),2 => 7: a comma cannot stand here;
        "x" => 1: the character """ cannot stand here; x?1:0:2 => 6: a colon cannot stand here;
        1+*2 => 3: the operator "*" cannot stand here; x ? 1 => 6: "?" needs a ":" behind it;
        --1 => 2: the operator "-" cannot stand here; 1+max( ) => 3: "max" has too few arguments;
        2 x => 3: an operator is missing in front of "x"; - => 2: the expression ends too early;
        1+2) => 4: the parenthesis ")" cannot stand here; x=3 => 2: a single "=" cannot stand here;
        1+sin(1,2) => 3: "sin" has too many arguments)~"))
        EXPECT_EQ(told(text), "Column " + fault);
    EXPECT_EQ(told(std::string(501, '1')), "Column 502: the expression is too long");
    UseEnglish = 0;
    EXPECT_EQ(told("2*foo+1"), "第 3 列：未知名称“foo”");
    for (const std::string hostile : {"(", "-", "?", "sin(", "1?", "2^", "max(1,"}) {
        std::string text;  // as deep as the length allows, without its ends
        while (text.size() + hostile.size() <= 500) text += hostile;
        EXPECT_NE(EvaluateEquation(text, {}, {}).Error, EquationError::None) << hostile;
    }
}

TEST_F(EquationTest, InsertsDotsAndMovesTheRest) {
    // Runs; first and last dot selected and segment picked, none below 0; whether it replaces; dots
    // wished; runs after it and the first of the new dots.
    const std::tuple<const char*, int, int, int, bool, const char*, const char*, int> rows[] = {
        {"", -1, -1, -1, false, "5", "c0-4", 0},
        {"gc", -1, -1, -1, true, "9", "g0-9 c10-19 c20-28", 20},
        {"gc", 5, 12, -1, false, "99", "g0-9 c10-19 c20-39", 20},  // held to the room of 20
        {"gcg", 5, 12, -1, true, "3", "c0-14 g15-24@20", 5},
        {"gcg", 5, 12, -1, true, "99", "c0-29 g30-39@20", 5},  // held to 10 + 8
        {"ggg", 10, 19, 1, true, "12", "g0-9 c10-21 g22-31", 10},
    };
    for (const auto& [runs, first, last, pick, replace, dots, after, start] : rows) {
        AnalogWaveRecord& wave = MakeDocument(runs, 10, 40);
        if (first >= 0) SelectDots(wave, first, last);
        if (pick >= 0) PickSegment(wave, pick);
        const std::int32_t before = wave.Dots;
        const std::int32_t removed = replace && first >= 0 ? last - first + 1 : 0;
        EquationDialog dialog = Open("n/1000+1", dots, replace);
        ASSERT_TRUE(ConfirmEquation(dialog));
        EXPECT_EQ(Runs(wave), after);
        const std::int32_t made = wave.Dots - before + removed;
        EXPECT_TRUE(wave.HasSelection && wave.SelStart == start);
        EXPECT_EQ(wave.SelEnd, start + made - 1);
        ExpectInserted(wave, start, removed, made,
                       [](int n) { return (n / 1000.0 + 1.0) / 2.0; });  // of 4 V
    }
}

TEST_F(EquationTest, OpensWithWhatFitsAndLeavesAFullDocument) {
    MakeDocument("gc", 10, 40);
    EXPECT_EQ(EquationDotsText(OpenEquation(true)), "20");
    EXPECT_EQ(EquationPlace(OpenEquation(true)), "appended from dot 20 on");
    SelectDots(ActiveAnalog(), 3, 8);
    EquationDialog dialog = OpenEquation(true);
    EXPECT_EQ(EquationDotsText(dialog), "6");
    EXPECT_EQ(EquationPlace(dialog), "replaces dots 3 to 8");
    LeaveEquationDots(dialog, "0");
    EXPECT_EQ(EquationDotsText(dialog), "1");
    SpinEquationDots(dialog, 1, true);
    EXPECT_EQ(EquationDotsText(dialog), "26");

    MakeDocument("g", 40, 40);
    EquationDialog full = OpenEquation(false);
    EXPECT_FALSE(ConfirmEquation(full));
    ActiveAnalog().Dots = 30;
    EquationDialog faulty = Open("1+", "5");
    EXPECT_FALSE(ConfirmEquation(faulty));
    EXPECT_FALSE(ActiveAnalog().Modified || ActiveAnalog().UndoAvailable);
}

TEST_F(EquationTest, ValuesPastTheRailsAndNoNumbersAreToldAndHeld) {
    MakeDocument("", 0, 100000);  // 4 V
    EquationDialog dialog = Open("n<3 ? 1/0*0 : n<10 ? 9 : n>=99999 ? -9 : 1", "100000");
    int rounds = 1;
    while (!CountEquation(dialog)) ++rounds;
    EXPECT_GT(rounds, 1);
    EXPECT_EQ(EquationNote(dialog),
              "3 of 100000 values are not numbers and count as 0 V. "
              "8 of 100000 values lie beyond the rails and are clipped.");
    std::vector<WaveDot> shown;
    EXPECT_TRUE(PreviewEquation(dialog, shown));
    EXPECT_TRUE(shown.size() == 4096 && shown.back().X == 4095 && shown.back().Y == -1.0);
    ASSERT_TRUE(ConfirmEquation(dialog));
    const auto at = [](int dot) { return ActiveAnalog().DotArray[dot].Y; };
    EXPECT_EQ(std::tuple(at(2), at(9), at(10), at(99999)), std::tuple(0.0, 1.0, 0.5, -1.0));
    ChangeEquation(dialog, "A");
    while (!CountEquation(dialog)) {
    }
    EXPECT_EQ(EquationNote(dialog), "");
}

TEST_F(EquationTest, HistoryKeepsTheLastTenWithoutDoubles) {
    MakeDocument("", 0, 100);
    EXPECT_EQ(OpenEquation(false).Text, "A*sin(2*pi*x)");
    for (int i = 0; i < 12; ++i) {
        EquationDialog dialog = Open(" " + std::to_string(i) + "*x ", "1");
        ASSERT_TRUE(ConfirmEquation(dialog));
    }
    EquationDialog again = Open("5*x", "1");
    ASSERT_TRUE(ConfirmEquation(again));
    const std::vector<std::string> history = OpenEquation(false).History;
    EXPECT_EQ(history, (std::vector<std::string>{"5*x", "11*x", "10*x", "9*x", "8*x", "7*x", "6*x",
                                                 "4*x", "3*x", "2*x"}));
    Save(EquationSection, {{"Count", "99"},
                           {"Expression1", ""},
                           {"Expression3", "5*x"},
                           {"Expression4", "5*x"},
                           {"Expression5", "1\n2"}});
    EXPECT_EQ(OpenEquation(false).History,
              (std::vector<std::string>{"11*x", "5*x", "7*x", "6*x", "4*x", "3*x", "2*x"}));
}

TEST_F(EquationTest, ExamplesFillTheRailsAndNoMore) {
    MakeDocument("", 0, 4096).Period = 1e-5;
    for (const std::string_view text : EquationExamples) {
        EquationDialog dialog = Open(text, "4096");
        CountEquation(dialog);
        EXPECT_EQ(EquationNote(dialog), "") << text;
        std::vector<WaveDot> dots;
        EXPECT_TRUE(PreviewEquation(dialog, dots));
        double peak = 0.0;
        for (const WaveDot& dot : dots) peak = std::max(peak, std::abs(dot.Y));
        EXPECT_GT(peak, 0.8) << text;
    }
}

}  // namespace
