#include "analog/DacCode.h"
#include "LinkFixture.h"

#include <limits>

namespace {

class SendTest : public LinkFixture {
public:
    /// A document of these codes, for a KT2200 or, with old firmware, a KT3300.
    static void MakeCodes(bool old, const std::vector<int>& codes) {
        const auto dots = static_cast<std::int32_t>(codes.size());
        AnalogWaveRecord& wave = MakeDocument("c", dots, dots);
        for (std::int32_t i = 0; i < dots; ++i) wave.DotArray[i].Y = 2.0 * codes[i] / 16383 - 1.0;
        Link.ConnectedModel = old ? 2 : 1;
        Link.OldFirmwareKT3300 = old;
    }
    /// The numbers of the catalogue's messages so far: "17,23".
    std::string Told() const {
        Texts ids;
        for (const std::string& box : Boxes())
            for (const std::int32_t id : {15, 17, 18, 19, 21, 22, 23, 27})
                if (box.starts_with("TideMark: " + std::string(ResText(id))))
                    ids.push_back(std::to_string(id));
        return Joined(ids);
    }
};

TEST_F(SendTest, CodesSpanFourteenBits) {
    const std::pair<double, int> rows[] = {{-1, 0},    {0, 8192},    {1, 16383},  {-2, 0},
                                           {2, 16383}, {0.5, 12287}, {-0.5, 4096}};
    for (const auto& [y, code] : rows) EXPECT_EQ(CodeOf(y), code) << y;
    EXPECT_EQ(CodeOf(std::numeric_limits<double>::quiet_NaN()), 0);
}

// Dot n has the code n mod 16384.
TEST_F(SendTest, BinaryPacketsByteForByte) {
    const std::string full = "CON,32747,      ";
    const std::pair<int, Texts> rows[] = {
        {1, {"END,1,          "}},           {100, {"END,100,        "}},
        {32747, {"END,32747,      "}},       {32748, {full, "END,1,          "}},
        {40000, {full, "END,7253,       "}}, {65494, {full, "END,32747,      "}}};
    for (const bool old : {false, true})
        for (const auto& [dots, fields] : rows) {
            std::vector<int> codes;
            Texts expected;
            for (const std::string& field : fields) {
                std::string bytes = (old ? "DATA:DAC16_Volatile," : "DATA:DAC16 Volatile,") + field;
                for (int i = 0; i < 32747 && std::ssize(codes) < dots; ++i) {
                    codes.push_back(static_cast<int>(codes.size() % 16384));
                    bytes += static_cast<char>(codes.back() % 256);
                    bytes += static_cast<char>(codes.back() / 256);
                }
                expected.push_back(bytes);
            }
            packets.clear();
            MakeCodes(old, codes);
            SendWaveData();
            EXPECT_TRUE(packets == expected) << dots;
        }
    EXPECT_EQ(packets[0].size(), 65530U);
}

// A packet has baud / 4 characters less 21 for values with a comma behind each: 2379 at 9600 baud,
// 28779 at 115200, 65534 - 21 from 262140 on, 6 at 108; 5 at 106 hold no value.
TEST_F(SendTest, TextPacketsSplitNoValue) {
    const std::tuple<std::int32_t, int, std::vector<std::size_t>> rows[] = {
        {9600, 16383, {396, 396, 208}},
        {9600, 50, {793}},
        {9600, 50, {793, 1}},
        {115200, 16383, {4796, 204}},
        {108, 16383, {1, 1}},
        {921600, 0, {32756, 1}},
        {106, 0, {}}};
    for (const bool old : {false, true})
        for (const auto& [baud, code, counts] : rows) {
            SetUp();
            std::vector<int> codes;
            Texts expected;
            for (const std::size_t count : counts) {
                codes.resize(codes.size() + count, code);
                expected.push_back((old ? "DATA:DAC_Volatile," : "DATA:DAC Volatile,") +
                                   Joined(Texts(count, std::to_string(code))) +
                                   (expected.size() + 1 < counts.size() ? ",CON" : ""));
            }
            MakeCodes(old, counts.empty() ? std::vector<int>{code} : codes);
            Link.IOType = 2;
            Link.BaudRate = baud;
            SendWaveData();
            EXPECT_TRUE(packets == expected) << baud << " " << packets.size();
            EXPECT_EQ(Boxes().size(), counts.empty() ? 1U : 0U);
        }
}

// Several faults at once: each message in its turn. A wave that passes meets the 4096 dots of the
// connected KT1100 (19), and its flow goes on.
TEST_F(SendTest, ChecksBeforeAStoreInTheirOrder) {
    const Answer ok = Answer::Ok, no = Answer::No, yes = Answer::Yes, cancel = Answer::Cancel;
    using Answers = std::vector<Answer>;
    const std::tuple<const char*, std::int32_t, std::int16_t, Answers, const char*, int, bool>
        rows[] = {
            {"  ", 0, 4, {}, "21", 0, false},
            {"SINC", 0, 4, {}, "17,18", 0, false},
            {"SINC", 524289, 4, {}, "17,19", 0, false},
            {"SINC", 131073, 1, {ok, cancel}, "17,27", 0, true},
            {"SINC", 131073, 1, {ok, ok, cancel}, "17,27,23", 0, true},
            {"SINC", 131073, 1, {}, "17,27,23", 0, false},
            {"S1", 131072, 4, {}, "22", 0, false},
            {"S1", 131072, 2, {no}, "23", 0, false},
            {"S1", 131072, 2, {yes}, "23,19", 3, false},  // copy, select, apply
            {"s1", 131072, 1, {}, "19", 5, false},        // names and locations are read again
            {"NEW", 131073, 2, {}, "27,19", 5, true},
        };
    for (const auto& [name, dots, used, given, told, sent, accepted] : rows) {
        SetUp();
        MaxWaveDots = 524288;
        dialog.Stored.UsedStoreCount = used;
        dialog.Stored.UserWaveName = {"S1", "S2", "S3", "S4"};
        dialog.txtUserWaveName = name;
        ActiveAnalog().Dots = dots;
        answers = given;
        EnterUserWaveName(dialog);
        EXPECT_EQ(Told(), told);
        EXPECT_TRUE(exchanges == sent && Link.BigWaveAccepted == Flag(accepted)) << told;
    }
}

TEST_F(SendTest, RenameAndActivateInTheFirmwaresForm) {
    const std::tuple<std::uint8_t, bool, bool, std::string, std::string> rows[] = {
        {0, false, true, " A1,C3", "NEGRAMP"},   {0, true, false, ",A1,C3", "NEGRAMP"},
        {1, true, false, ",A1,C3", "NEGRAMP"},   {2, true, false, ",A1,C3", "NEGRAMP"},
        {0, false, false, " A1 C3", "NEG_RAMP"}, {1, false, false, ",A1,C3", "NEG_RAMP"},
        {2, false, false, " A1 C3", "NEG_RAMP"}};
    for (const auto& [model, old, variant, names, selected] : rows) {
        SetUp();
        Link.ConnectedModel = model;
        ModelVariant = variant;
        Link.OldFirmwareKT1100 = model == 0 && old;
        Link.OldFirmwareKT2200 = (model == 1) == old;  // counts on a KT2200 only
        Link.OldFirmwareKT3300 = model == 2 && old;
        ActivateWave("NEG_RAMP");
        EXPECT_EQ(road[3], "write FUNction:USER " + selected);
        OpenSendAnalog(dialog);
        PickStoredWave(dialog, 2);
        BeginRename(dialog);
        road.clear();
        for (const char* name : {" ", "sinc", "ABCDEFGHIJKLM", "c3"}) {
            ChangeAllWaveName(dialog, name);
            ConfirmRename(dialog);
        }
        EXPECT_EQ(Told() + road[6], "21,17,15write DATA:REName" + names);
    }
}

}  // namespace
