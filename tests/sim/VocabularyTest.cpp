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
    std::vector<Arguments> Taken, Refused;  // by these instruments
    const char* Message;
};

const Row Rows[] = {
    {{Kt1100New, Variant, Kt2200Old, Kt3300Old}, {}, "*IDN?"},
    {{}, {Kt3300New}, "*idn?"},
    {{}, {Kt3300New}, "*IDN?\n"},
    {{Kt1100New, Variant, Kt2200New, Kt3300New},
     {Kt1100Old, Kt2200Old, Kt3300Old},
     "DATA:DAC Volatile,1,2"},
    {{Kt1100Old, Kt2200Old, Kt3300Old},
     {Kt1100New, Variant, Kt2200New, Kt3300New},
     "DATA:DAC_Volatile,1,2"},
    {{Kt1100New, Variant, Kt2200New, Kt3300New},
     {Kt1100Old, Kt2200Old, Kt3300Old},
     "DATA:DAC16 Volatile,END,1,          a?"},
    {{Variant}, {Kt1100New, Kt1100Old, Kt2200New, Kt3300New}, "DATA:REName A,B"},
    {{Kt1100Old, Kt2200Old, Kt3300Old, Kt2200New},
     {Kt1100New, Variant, Kt3300New},
     "DATA:REName,A,B"},
    {{Kt1100New, Kt3300New}, {Variant, Kt1100Old, Kt2200New, Kt3300Old}, "DATA:REName A B"},
    {{Kt1100New, Kt2200New, Kt3300New},
     {Variant, Kt1100Old, Kt2200Old, Kt3300Old},
     "FUNction:USER NEG_RAMP"},
    {{Variant, Kt1100Old, Kt2200Old, Kt3300Old},
     {Kt1100New, Kt2200New, Kt3300New},
     "FUNction:USER NEGRAMP"},
    {{Kt1100New}, {}, "FUNction:USER A"},
    {{}, {Kt1100New}, "FUNction:USER B"},
    {{Kt3300New}, {Kt1100New, Variant, Kt2200New, Kt3300Old}, "DATA:CATALOG?"},
    {{Kt3300New}, {Kt2200New, Kt3300Old}, "DIGIT:PROTOCOL SPI"},
    {{}, {Kt3300New}, "DIGIT:PROTOCOL I2C"},
    {{}, {Kt3300New}, "DATA:DIGIT:COPY D"},
    {{Kt1100Old, Kt3300New}, {}, "APPLy:USER 1E-06,2.5,-0.5"},
    {{}, {Kt3300New}, "APPLy:USER 1000,2"},
    {{}, {Kt3300New}, "APPLy:USER 1000, 2, 0"},
    {{}, {Kt3300New}, "APPLy: USER 1000,2,0"},
    {{}, {Kt3300New}, "APPLy:USER 0,2,0"},
    {{Kt1100New}, {}, "DATA:COPY A"},
    {{}, {Kt1100New}, "DATA:COPY b"},
    {{Kt1100New}, {}, "DATA:COPY ABCDEFGHIJ_2"},
    {{}, {Kt1100New}, "DATA:COPY ABCDEFGHIJ_23"},
    {{}, {Kt1100New}, "DATA:COPY SINC"},
    {{}, {Kt1100New}, "DATA:COPY VOLATILE"},
    {{}, {Kt1100New}, "DATA:DELete CARDIAC"},
    {{}, {Kt1100New}, "DATA:REName SINC B"},
    {{Kt1100New}, {}, "DATA:REName A A"},
    {{Kt1100New}, {}, "AM:STATe ON"},
    {{}, {Kt1100New}, "AM:STATe MAYBE"},
};

class VocabularyTest : public SimTest {
protected:
    void PlugWithWaves(const Arguments& arguments) {
        Plug(arguments);
        device.Memory.Volatile = {5, 6};
        device.Memory.Stored = {{"A", sim::WaveKind::Analog, {7, 8}}};
    }
};

TEST_F(VocabularyTest, IsTakenByTheInstrumentsThatKnowIt) {
    for (const Row& row : Rows)
        for (const Arguments& arguments : row.Taken) {
            PlugWithWaves(arguments);
            EXPECT_EQ(Send(row.Message).Error, "")
                << row.Message << testing::PrintToString(arguments);
        }
}

TEST_F(VocabularyTest, ChangesNothingWhereItIsRefused) {
    for (const Row& row : Rows)
        for (const Arguments& arguments : row.Refused) {
            SCOPED_TRACE(row.Message + testing::PrintToString(arguments));
            PlugWithWaves(arguments);
            const sim::Outcome outcome = Send(row.Message);
            EXPECT_TRUE(!outcome.Error.empty() && outcome.Reply.empty());
            EXPECT_EQ(device.Memory.Volatile, (sim::Samples{5, 6}));
            ASSERT_EQ(device.Memory.Stored.size(), 1u);
            EXPECT_TRUE(device.Memory.Stored[0].Name == "A" && device.OutputVersion == 0u);
        }
}

}  // namespace
