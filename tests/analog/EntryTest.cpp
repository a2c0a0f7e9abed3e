#include "analog/GestureFixture.h"

namespace {

using EntryTest = GestureFixture;

// Typed => corrected, after the focus has gone, in the field. Half of Vpp is 10 V; "3" was there.
TEST_F(EntryTest, TypedTextIsHeldToTheRange) {
    const char* dots = R"(
        12 => 12/12/12; 007 => 7/7/7; 201 => 200/200/200; 99999999999 => 200/200/200; -5 => 0/0/0;
        x => 0/0/0; => //3)";
    const char* volts = R"(
        10 => 10/10/10; 10.001 => 10/10/10; -11 => -10/-10/-10; 2.50 => 2.50/2.5/2.5; 5- => 0/0/0;
        --5 => 0/0/0; => /3/3; - => -/3/3; . => ./0/0; x => x/0/0)";
    const char* millivolts =
        "30 => 30/30/30; 10001 => 10000/10000/10000; -99999 => -10000/-10000/-10000";
    MakePlot(0, 201);
    for (const auto& [box, name, panel, dot, value, unit] : EntryRows())
        for (const auto& [divider, table] : {std::pair(0, dots), {1, volts}, {1000, millivolts}}) {
            if ((dot != nullptr) != (divider == 0)) continue;
            if (unit != nullptr) doc.*unit = std::int16_t(divider);
            for (const auto& [typed, expected] : Rows(table)) {
                ChangeEntry(doc, box, "3");
                ChangeEntry(doc, box, typed);
                const std::string corrected = EntryText(doc, box) + '/';
                LeaveEntry(doc, box);
                const double field = dot != nullptr ? doc.*dot : doc.*value;
                EXPECT_EQ(corrected + EntryText(doc, box) + '/' + Number(field), expected) << name;
            }
        }
}

TEST_F(EntryTest, AllUnitsSwitchThereAndBack) {
    for (const auto& [millivolts, volts] : Rows("5 => 0.005; 30 => 0.03; -500 => -0.5; =>")) {
        Play("n0 m");
        for (const EntryRow& row : EntryRows())
            if (row.Value != nullptr) ChangeEntry(doc, row.Which, millivolts);
        for (const char unit : {'v', 'v', 'm', 'm'}) {
            Do(unit, 0, 0, "");
            for (const EntryRow& row : EntryRows()) {
                if (row.Value == nullptr) continue;
                LeaveEntry(doc, row.Which);  // a box with no value stays empty
                EXPECT_EQ(EntryText(doc, row.Which), unit == 'm' ? millivolts : volts) << row.Box;
                EXPECT_EQ(doc.*row.Unit, unit == 'm' ? 1000 : 1) << row.Box;
            }
        }
    }
}

TEST_F(EntryTest, ButtonsNeedAllBoxes) {
    const std::vector<std::string> message = {"Please input value all!"};
    Expect(R"(
        t7 =0:5 k => asked; t7 =1:5 k => asked; t7 =0:5 =1:5 =0: k => asked;
        t6 =0:5 =1:5 =2:8 k =>; t6 =0:5 =1:5 =2:8 =3:- k =>; t6 =1:5 =2:8 =3:0 k =>)",
           [&] {
               EXPECT_FALSE(doc.UndoAvailable || doc.Modified);
               return std::exchange(asked, {}) == message ? "asked" : "";
           });
}

}  // namespace
