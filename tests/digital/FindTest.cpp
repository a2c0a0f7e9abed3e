#include "digital/DigitFixture.h"
#include "digital/RadixText.h"

namespace {

using FindTest = DigitFixture;

// Point edit (q) or find (Q)|nodes|samples of 20 dots|name|dot|value|name chosen last => the
// changed document or "same", first dot, caliper, the value of find, messages.
constexpr char Rows[] = R"(
    q|a|1|a|3|1 => a:0=1001 @3 4; q|d[4]|-|d|0|110 => d:0=0,1=1,2=1,3=0 @0 1;
    q|d[4]%1|-|d|1|a => d%1:0=01,1=00,2=01,3=00 @1 2; q|d[4]%2|-|d|0|13 => d%2:0=1,1=0,2=1,3=1 @0 1;
    q|d[4]%3 e|- - - - 1|d|0|9 => d%3:0=1,1=0,2=0,3=1 e:4=1 @0 1; q|d[4]%3|-|d|0|16 =>
    d%3:0=1,1=1,2=1,3=1 @0 1; q|d[3]*%1@4|-|d  5|2|1 => d*%1@4:0=000,1=001,2=000 @2 3;
    q|d[2]@9|1 1|d  10|0|0 => d@9:0=1,1=0 @0 1; q|a b|11 11|b|0|0 => a:0=11 b:1=01 @0 1;
    q|a|1|a|99|1 => a:0=10000000000000000001 @19 19; q|a b a|1 1 1|a|0|0 => a:0=0 b:1=1 a:2=1 @0 1;
    q|a|1|a|0| => same @0 1 Please input value all!; q|a|1|a||1 => same @0 1 Please input value all!;
    q|d[4]%1 e[4]%3|-|d|0|B|e => d%1:0=,1=,2=,3= e%3:4=1,5=0,6=1,7=1 @0 1;
    q|d[2]%3 a|-|d|0|2|a => d%3:0=,1= a:2=1 @0 1; Q|a|1|b|0| => same @0 1;
    Q|d[4]%1|1 0 1 0|d|0| => same @0 1 AH; Q|d[4]%2|1 0 1 0|d|0| => same @0 1 12O;
    Q|d[4]%3|1 0 1 0|d|0| => same @0 1 10U; Q|d[4]|0 0 1 0|d|0| => same @0 1 0010B;
    Q|d[2]*%3@4|1 0|d  5|0| => same @0 1 0B; Q|d[2]%3@4|1 0|d  4|0| => same @0 1 1B;
    Q|a b|11 1111|a|2| => same @0 1; Q|a|11|a|1| => same @0 1 1B; Q|a b a|1 0 0|a|0| => same @0 1 1B;
    Q|a|1|a|99| => same @0 1; Q|a|1|a|| => same @0 1 Please input value all!;
    Q|a|0000000000001|a|12| => same @12 13 1B; Q|a b|1 1|a|0||b => same @0 1 1B)";

TEST_F(FindTest, PointsAreWrittenAndFound) {
    ForRows(Rows, [&](const std::string& left, const std::string& right) {
        std::istringstream line(left);
        std::string part[7];
        for (std::string& text : part) std::getline(line, text, '|');
        DigitDocument& doc = MakeDocument(part[1], part[2], 20);
        const std::string before = Shown(doc);
        Do(part[0][0]);
        ChangeFindName(doc, part[3]);
        ChangeFindDot(doc, part[4]);
        if (doc.PointEditOn) ChangeFindValue(doc, part[5]);
        if (!part[6].empty()) ChangeFindName(doc, part[6]);
        asked.clear();
        Do('O');
        const bool same = Shown(doc) == before;
        std::ostringstream result;
        result << (same ? "same" : Shown(doc)) << " @" << doc.FirstDot << ' ' << doc.Caliper;
        if (doc.FindOn && !doc.FindBoxes.Value.empty()) result << ' ' << doc.FindBoxes.Value;
        for (const std::string& text : asked) result << ' ' << text;
        EXPECT_EQ(result.str(), right);
        EXPECT_TRUE(bool(doc.UndoAvailable) != same && bool(doc.Changed) != same);
        EXPECT_TRUE(doc.EditName == (doc.EditDot < 0 ? "" : doc.FindBoxes.Name));
        ExpectSound(doc);
    });
}

TEST_F(FindTest, EitherUseEndsTheOther) {
    DigitDocument& doc = MakeDocument("a d[2]%1@4", "1 1 0");
    EXPECT_EQ(TargetNames(doc), (std::vector<std::string>{"a", "d", "d  4", "d  5"}));
    Play("q Q");
    ChangeFindName(doc, "d");
    ChangeFindDot(doc, "0");
    EXPECT_EQ(FindValueKeys(doc), KeysOfRadix(1));
    Do('O');
    EXPECT_TRUE(doc.FindOn && !doc.PointEditOn && doc.FindBoxes.Value == "2H" && doc.EditDot == 0);
    ChangeFindName(doc, "d  5");
    EXPECT_TRUE(FindValueKeys(doc) == KeysOfRadix(0) && doc.FindBoxes.Value.empty());
    Do('q');
    EXPECT_TRUE(!doc.FindOn && doc.PointEditOn && doc.EditDot == -1 && doc.EditName.empty());
    Play("q O");
    EXPECT_TRUE(!doc.FindOn && !doc.PointEditOn && asked.empty() && !doc.Changed);
}

}  // namespace
