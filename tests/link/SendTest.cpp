#include "analog/DacCode.h"
#include "link/DigitTransfer.h"
#include "LinkFixture.h"
#include "TextRows.h"

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
    /// Data packets: a head, a field and a tail for each field, then at most `most` of the words,
    /// low byte first.
    static Texts Packets(const std::string& head, const Texts& fields, const std::string& tail,
                         const std::vector<int>& words, std::ptrdiff_t most) {
        Texts packets;
        for (auto word = words.begin(); const std::string& field : fields) {
            std::string& bytes = packets.emplace_back(head);
            bytes.append(field).append(tail);
            for (const auto end = word + std::min(most, words.end() - word); word != end; ++word) {
                bytes += static_cast<char>(*word % 256);
                bytes += static_cast<char>(*word / 256);
            }
        }
        return packets;
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
            std::vector<int> codes(dots);
            for (int i = 0; i < dots; ++i) codes[i] = i % 16384;
            packets.clear();
            MakeCodes(old, codes);
            SendWaveData();
            const std::string head = old ? "DATA:DAC16_Volatile," : "DATA:DAC16 Volatile,";
            EXPECT_TRUE(packets == Packets(head, fields, "", codes, 32747)) << dots;
        }
    EXPECT_EQ(packets[0].size(), 65530U);
}

// Word n is n with bits above the 16 of a word. Data that ends before or behind the dots is filled
// with zeros or left out.
TEST_F(SendTest, DigitalPacketsByteForByte) {
    using Nodes = std::vector<std::vector<std::uint8_t>>;
    const std::pair<Nodes, std::string> layouts[] = {
        {{{2, 0}, {5}}, {"\3\2\0\5\0\0\0\0\0\0\0\0\0\0\0\0\0", 17}},
        {{{9}, {15, 0, 14, 1, 13, 2}, {12, 3, 11, 4, 10, 5, 8, 6, 7}},
         {"\20\11\17\0\16\1\15\2\14\3\13\4\12\5\10\6\7", 17}}};
    const std::tuple<std::int32_t, std::int32_t, Texts> rows[] = {
        {1, 1, {"END,1,"}},
        {100, 100, {"END,100,"}},
        {32746, 32746, {"END,32746,"}},
        {32747, 32747, {"CON,32746,", "END,1,"}},
        {100, 70, {"END,100,"}},
        {100, 170, {"END,100,"}},
        {40000, 40000, {"CON,32746,", "END,7254,"}}};
    for (const auto& [nodes, channels] : layouts)
        for (const auto& [dots, samples, fields] : rows) {
            SetUp();
            std::vector<int> words(samples), expected(dots);
            for (int i = 0; i < samples; ++i) words[i] = 0x7FFF0000 | i;
            for (int i = 0; i < std::min(dots, samples); ++i) expected[i] = i;
            UseDigital(nodes, words).Dots = dots;
            SendDigitData();
            EXPECT_TRUE(packets == Packets("DATA:DIGITAL16,", fields, channels, expected, 32746))
                << dots << " " << samples;
        }
    EXPECT_EQ(packets[0].size(), 65534U);
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

// Several faults at once: each message in its turn. An analog wave that passes meets the 4096 dots
// of the connected KT1100 (19), and its flow goes on. A digital one without channels is empty, and
// the names of built-in analog waves are free to it.
TEST_F(SendTest, ChecksBeforeAStoreInTheirOrder) {
    // The width of a digital waveform, A for an analog one; name, dots and locations in use; the
    // answers. Then the messages, the number of exchanges and whether many dots were accepted.
    const std::map<char, Answer> letters = {
        {'o', Answer::Ok}, {'n', Answer::No}, {'y', Answer::Yes}, {'c', Answer::Cancel}};
    for (const auto& [left, right] : Rows(R"(
        A -- 0 4 => 21 0 0; A SINC 0 4 => 17,18 0 0; A SINC 524289 4 => 17,19 0 0;
        A SINC 131073 1 oc => 17,27 0 1; A SINC 131073 1 ooc => 17,27,23 0 1;
        A SINC 131073 1 => 17,27,23 0 0; A S1 131072 4 => 22 0 0; A S1 131072 2 n => 23 0 0;
        A S1 131072 2 y => 23,19 3 0; A s1 131072 1 => 19 5 0; A NEW 131073 2 => 27,19 5 1;
        0 USB 524289 4 => 17,18 0 0; 1 USB 524289 4 => 17,19 0 0; 1 PO 131072 4 => 17 0 0;
        1 S1 8 2 y => 23 5 0; 1 SINC 0 1 => 19 0 0; 1 SINC 8 1 => - 10 0)")) {
        SetUp();
        MaxWaveDots = 524288;
        std::string kind, given, told;
        std::int32_t dots = 0, sent = 0;
        bool accepted = false;
        std::istringstream(left) >> kind >> dialog.txtUserWaveName >> dots >>
            dialog.Stored.UsedStoreCount >> given;
        std::istringstream(right) >> told >> sent >> accepted;
        ActiveAnalog().Dots = dots;
        if (kind != "A") {
            UseDigital({std::vector<std::uint8_t>(kind[0] - '0')}, {}).Dots = dots;
            DigitAt(0).NodeCount = static_cast<std::uint8_t>(kind[0] - '0');
        }
        dialog.Stored.UserWaveName = {"S1", "S2", "S3", "S4"};
        if (dialog.txtUserWaveName == "--") dialog.txtUserWaveName = "  ";
        answers.clear();
        for (const char letter : given) answers.push_back(letters.at(letter));
        EnterUserWaveName(dialog);
        EXPECT_EQ(Told(), told == "-" ? "" : told) << left;
        EXPECT_TRUE(exchanges == sent && Link.BigWaveAccepted == Flag(accepted)) << left;
    }
    for (const char* name : {"RS232", "USB", "SPI", "DS", "TV", "VOLATILE", "PO", "CAN", "LAN"})
        EXPECT_EQ(CheckWaveName(name, ReservedDigitNames()), NameFault::Reserved) << name;
}

TEST_F(SendTest, WhatADigitalSendRefuses) {
    const std::string most = std::string(ResText(19)) + " 1048576 !";
    const std::tuple<std::uint8_t, std::uint8_t, std::int32_t, std::string> rows[] = {
        {0, 0, 1048577, std::string(ResText(18))},
        {0, 1, 1048577, most},
        {0, 1, 0, most},
        {1, 1, 8, "Function not available"},
        {2, 0, 0, "Function not available"}};
    for (const auto& [ioType, nodes, dots, told] : rows) {
        SetUp();
        Link.IOType = ioType;
        UseDigital({{0}}, {}).Dots = dots;
        DigitAt(0).NodeCount = nodes;
        PickStoreTarget(dialog, 0);
        SaveToInstrument(dialog);
        EXPECT_EQ(Road(), "box TideMark: " + told + "|");
        EXPECT_TRUE(Link.StoreTarget == 1 && !Link.SendBusy);
    }
    Link.IOType = UsbLink;
    for (const std::int32_t dots : {524288, 524289}) {
        Link.DigitStoreTarget = 1;
        DigitAt(0).Dots = dots;
        OpenSend(dialog);
        PickStoreTarget(dialog, 1);
        EXPECT_EQ(Link.DigitStoreTarget, dots == 524288 ? 1 : 0);
    }
}

TEST_F(SendTest, CommandsOfDigitalWavesAskForWhatTheyNeed) {
    const std::string none = "TideMark: Function not available";
    const std::tuple<bool, std::int16_t, std::uint8_t, std::string, std::string> rows[] = {
        {false, 0, 0, "TideMark: " + std::string(ResText(25)),
         "TideMark: " + std::string(ResText(25))},
        {true, 0, 1, "TideMark: " + std::string(ResText(26)), none},
        {true, 1, 1, none, none},
        {true, 1, 2, "SendDigitWaveFrm", "DownLoadDigitWaveFrm"},
        {true, 10, 2, "SendDigitWaveFrm", "TideMark: Exceed maximum digit file numbers limit"}};
    TheHost().RunDialog = [this](auto window, auto) {
        road.push_back("box " + std::string(window));
        return false;
    };
    for (const auto& [connected, documents, model, send, upload] : rows) {
        Link.IsConnected = connected;
        Link.ConnectedModel = model;
        DigitDocCount = documents;
        road.clear();
        SendDigitWaveform();
        UploadDigitWave();
        EXPECT_EQ(Boxes(), (Texts{send, upload}));
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
        OpenSend(dialog);
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
