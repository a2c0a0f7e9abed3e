#include "sim/SimFixture.h"

namespace {

using Arguments = std::vector<std::string>;

const Arguments Kt1100New = {"--model", "KT1100"}, Variant = {"--variant"},
                Kt1100Old = {"--model", "KT1100", "--firmware", "old"},
                Kt2200New = {"--model", "KT2200"},
                Kt2200Old = {"--model", "KT2200", "--firmware", "old"}, Kt3300New = {},
                Kt3300Old = {"--firmware", "old"};

// Every instrument gets a volatile wave of two dots and the stored wave A; then one message.
struct Row {
    const char* Name;
    std::vector<Arguments> Taken, Refused;  // by these instruments
    const char* Message;
};

const Row Rows[] = {
    {"identify", {Kt1100New, Variant, Kt2200Old, Kt3300Old}, {}, "*IDN?"},
    {"wrong_case", {}, {Kt3300New}, "*idn?"},
    {"with_line_feed", {}, {Kt3300New}, "*IDN?\n"},
    {"text_new",
     {Kt1100New, Variant, Kt2200New, Kt3300New},
     {Kt1100Old, Kt2200Old, Kt3300Old},
     "DATA:DAC Volatile,1,2"},
    {"text_old",
     {Kt1100Old, Kt2200Old, Kt3300Old},
     {Kt1100New, Variant, Kt2200New, Kt3300New},
     "DATA:DAC_Volatile,1,2"},
    {"binary_new",
     {Kt1100New, Variant, Kt2200New, Kt3300New},
     {Kt1100Old, Kt2200Old, Kt3300Old},
     "DATA:DAC16 Volatile,END,1,          a?"},
    {"rename_comma", {Variant}, {Kt1100New, Kt1100Old, Kt2200New, Kt3300New}, "DATA:REName A,B"},
    {"rename_leading_comma",
     {Kt1100Old, Kt2200Old, Kt3300Old, Kt2200New},
     {Kt1100New, Variant, Kt3300New},
     "DATA:REName,A,B"},
    {"rename_blanks",
     {Kt1100New, Kt3300New},
     {Variant, Kt1100Old, Kt2200New, Kt3300Old},
     "DATA:REName A B"},
    {"neg_ramp",
     {Kt1100New, Kt2200New, Kt3300New},
     {Variant, Kt1100Old, Kt2200Old, Kt3300Old},
     "FUNction:USER NEG_RAMP"},
    {"negramp",
     {Variant, Kt1100Old, Kt2200Old, Kt3300Old},
     {Kt1100New, Kt2200New, Kt3300New},
     "FUNction:USER NEGRAMP"},
    {"select_stored", {Kt1100New}, {}, "FUNction:USER A"},
    {"select_nothing", {}, {Kt1100New}, "FUNction:USER B"},
    {"digital", {Kt3300New}, {Kt1100New, Variant, Kt2200New, Kt3300Old}, "DATA:CATALOG?"},
    {"protocol", {Kt3300New}, {Kt2200New, Kt3300Old}, "DIGIT:PROTOCOL SPI"},
    {"no_protocol", {}, {Kt3300New}, "DIGIT:PROTOCOL I2C"},
    {"digital_memory_is_empty", {}, {Kt3300New}, "DATA:DIGIT:COPY D"},
    {"apply", {Kt1100Old, Kt3300New}, {}, "APPLy:USER 1E-06,2.5,-0.5"},
    {"apply_two_values", {}, {Kt3300New}, "APPLy:USER 1000,2"},
    {"apply_blanks", {}, {Kt3300New}, "APPLy:USER 1000, 2, 0"},
    {"apply_apart", {}, {Kt3300New}, "APPLy: USER 1000,2,0"},
    {"apply_no_frequency", {}, {Kt3300New}, "APPLy:USER 0,2,0"},
    {"store_in_a", {Kt1100New}, {}, "DATA:COPY A"},
    {"store_small_letters", {}, {Kt1100New}, "DATA:COPY b"},
    {"store_12_characters", {Kt1100New}, {}, "DATA:COPY ABCDEFGHIJ_2"},
    {"store_13_characters", {}, {Kt1100New}, "DATA:COPY ABCDEFGHIJ_23"},
    {"store_over_built_in", {}, {Kt1100New}, "DATA:COPY SINC"},
    {"store_over_volatile", {}, {Kt1100New}, "DATA:COPY VOLATILE"},
    {"delete_built_in", {}, {Kt1100New}, "DATA:DELete CARDIAC"},
    {"rename_built_in", {}, {Kt1100New}, "DATA:REName SINC B"},
    {"rename_to_itself_is_nothing", {Kt1100New}, {}, "DATA:REName A A"},
    {"modulation", {Kt1100New}, {}, "AM:STATe ON"},
    {"modulation_neither_on_nor_off", {}, {Kt1100New}, "AM:STATe MAYBE"},
};

class VocabularyTest : public SimTest, public ::testing::WithParamInterface<Row> {
protected:
    void PlugWithWaves(const Arguments& arguments) {
        Plug(arguments);
        device.Memory.Volatile = {5, 6};
        device.Memory.Stored = {{"A", sim::WaveKind::Analog, {7, 8}}};
    }
};

TEST_P(VocabularyTest, IsTakenByTheInstrumentsThatKnowIt) {
    for (const Arguments& arguments : GetParam().Taken) {
        PlugWithWaves(arguments);
        EXPECT_EQ(Send(GetParam().Message).Error, "") << testing::PrintToString(arguments);
    }
}

TEST_P(VocabularyTest, ChangesNothingWhereItIsRefused) {
    for (const Arguments& arguments : GetParam().Refused) {
        PlugWithWaves(arguments);
        const sim::Outcome outcome = Send(GetParam().Message);
        EXPECT_NE(outcome.Error, "") << testing::PrintToString(arguments);
        EXPECT_EQ(outcome.Reply, "");
        EXPECT_EQ(device.Memory.Volatile, (sim::Samples{5, 6}));
        ASSERT_EQ(device.Memory.Stored.size(), 1u);
        EXPECT_EQ(device.Memory.Stored[0].Name, "A");
        EXPECT_EQ(device.OutputVersion, 0u);
    }
}

INSTANTIATE_TEST_SUITE_P(Vocabulary, VocabularyTest, ::testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.Name; });

}  // namespace
