#include "LinkFixture.h"
#include "TextRows.h"

// What is read from the instrument: the catalogue and stored waveforms.

namespace {

class ReadTest : public LinkFixture {
public:
    /// Names / entries of the locations / waves that can be managed / places marked as free.
    std::string Shown() {
        std::string managed, free;
        for (std::int16_t i = 0; i < MostWaveNames; ++i) {
            PickStoredWave(dialog, i);
            if (CanManageWave(dialog)) managed += dialog.txtAllWaveName + " ";
            if (dialog.Stored.UserWaveFree[i]) free += std::to_string(i);
        }
        const auto all = std::span(dialog.Stored.AllWaveName).first(dialog.Stored.AllWaveCount);
        return Joined(all) + "/" + Joined(LocationEntries(dialog)) + "/" + managed + "/" + free;
    }
    static std::string Zeros(std::size_t bytes) {
        std::string zeros;
        zeros.resize(bytes);
        return zeros;
    }
};

// With protocols the list is of digital waveforms: protocols first, and the locations hold analog
// ones before them. A free count that lies opens no protocol.
TEST_F(ReadTest, RepliesBecomeListsAndButtons) {
    const std::string two = Quoted("SINC,VOLATILE,A1,B2"), names = "SINC,VOLATILE,A1,B2/";
    const std::string most = "A,B,C,D,E,F,G,H,I,J,K,L,M,N,O,P,Q,R,S,T,U";
    const std::string sinc = Quoted("SINC") + "\n", d1 = Quoted("D1"), usb = Quoted("USB") + "\n";
    struct Row {
        int IOType;
        std::uint8_t Model;
        int Locations;
        std::string Analog, Free, Digital, Protocols, Shown;
    };
    const Row rows[] = {
        {0, 1, 4, two + "\n", "2\n", d1, "", names + "A1,B2,3/A1 B2 /2"},
        {0, 1, 10, two + "\n", "8.0 free", "", "", names + "A1,B2,3/A1 B2 /2"},
        {0, 0, 4, sinc, "4", "", "", "SINC/1//0"},
        {0, 0, 4, Quoted("S,A,B,C,D"), "0", "", "", "S,A,B,C,D/A,B,C,D/A B C D /"},
        {0, 2, 4, two, "1", Quoted("VOLATILE,D1") + "\n", "", names + "D1,A1,B2,4/A1 B2 /3"},
        {0, 0, 4, Quoted("SINC,,A1") + R"(,"B2)", "3", "", "", "SINC,A1/A1,2/A1 /1"},
        {2, 0, 4, Quoted("SINC,A1") + "PARSE FINISHED\n", "3\n", "", "", "SINC,A1/A1,2/A1 /1"},
        {2, 0, 4, Quoted("SINC,A1") + "\r\n", "9\n", "", "", "SINC,A1/1//0"},
        {0, 0, 4, two, "-1", "", "", names + "SINC,VOLATILE,A1,B2/A1 B2 /"},
        {0, 0, 4, Quoted("SINC"), "2", "", "", "SINC///"},  // a contradiction: locations as before
        {0, 0, 4, "gone\n", "4", "", "", "/1//0"},
        {0, 0, 4, Quoted(most + ",V,W"), "3", "", "", most + "/U,2/U /1"},
        {0, 2, 4, Quoted("SINC,A1") + "\n", "1\n", Quoted("VOLATILE,D1,D2") + "\n",
         Quoted("USB,SPI") + "\n", "USB,SPI,D1,D2/A1,D1,D2,4/D1 D2 /3"},
        {0, 2, 4, sinc, "4", Quoted("VOLATILE"), usb, "USB/1//0"},
        {0, 2, 4, Quoted("SINC,A,B,C,D"), "0", Quoted("VOLATILE"), usb, "USB/A,B,C,D//"},
        {0, 2, 4, sinc, "3", Quoted("D1,VOLATILE,D2"), usb, "USB,D1,D2/D2,2/D2 /1"},
        {0, 2, 4, Quoted("A1"), "0", d1, usb, "USB,D1/A1,,,D1/D1 /"},
        {0, 2, 4, sinc, "2", Quoted("CAN,usb"), usb, "USB,CAN,usb/CAN,usb,3/usb /2"},
        {0, 2, 4, sinc, "4", d1, Quoted(most + ",V"), most + "/1//0"}};
    for (const auto& row : rows) {
        SetUp();
        if (!row.Protocols.empty()) UseDigital({{0}}, {1});
        Link.IOType = static_cast<std::uint8_t>(row.IOType);
        Link.ConnectedModel = row.Model;
        Link.StoreLocationCount = static_cast<std::uint8_t>(row.Locations);
        replies["DATA:Catalog?"] = {row.Analog};
        replies["DATA:Nvolatile:FREE?"] = {row.Free};
        replies["DATA:DIGIT:Catalog?"] = {row.Digital};
        replies["DIGIT:PROTOCOL?"] = {row.Protocols};
        OpenSend(dialog);
        EXPECT_EQ(Shown(), row.Shown) << row.Analog << row.Digital;
        EXPECT_TRUE(Boxes().empty() && !dialog.CloseAsked);
    }
    SetUp();
    replies["DATA:Catalog?"] = {"busy", "", Quoted("A1"), "", "", "", Quoted("A1")};
    for (const bool gone : {false, true}) {  // asked three times
        exchanges = 0;
        OpenSend(dialog);
        EXPECT_TRUE(exchanges == (gone ? 3 : 4) && dialog.CloseAsked == Flag(gone));
    }
}

TEST_F(ReadTest, ChoicesFollowTheListsAndSpareBuiltInWaves) {
    OpenSend(dialog);
    EXPECT_TRUE(dialog.UserIndex == 2 && CanNameLocation(dialog));
    PickLocation(dialog, 1);
    EXPECT_TRUE(dialog.txtUserWaveName == "B2" && !CanNameLocation(dialog));
    PickStoredWave(dialog, 3);
    replies["DATA:Catalog?"] = {Quoted("SINC,VOLATILE,A1")};
    DeleteChosenWave(dialog);  // the last one
    EXPECT_EQ(dialog.txtAllWaveName, "A1");
    exchanges = 0;
    PickStoredWave(dialog, 0);
    DeleteChosenWave(dialog);
    BeginRename(dialog);
    EXPECT_TRUE(exchanges == 0 && !dialog.Renaming);
    OpenDownLoad(load);
    for (load.AllIndex = -1; load.AllIndex < 4; ++load.AllIndex)
        EXPECT_EQ(CanLoadWave(load), load.AllIndex == 1 || load.AllIndex == 2) << load.AllIndex;
}

// y = (2 w / 16383 - 1) * amplitude / 20 + 2 * offset / 20, here of 15 V and 5 V; the upper two
// bits of w are masked off.
TEST_F(ReadTest, WordsBecomeVoltsOfATwentyVoltScale) {
    SaveSetting("TideMark", "Tidemark_Property", "Quanit", "12");
    replies["DATA:LOAD A1"] = {"A1,4", std::string("\0\0\xFF\xFF\xFF\xDF\x55", 7), "\xCC\x0C!"};
    LoadChosenWave(load);
    const AnalogWaveRecord& wave = AnalogDocs[1];
    ASSERT_TRUE(AnalogInUse[1] && load.CloseAsked);
    ExpectSound(wave);
    EXPECT_EQ(wave.Name + " " + Runs(wave), "A1 c0-3");
    EXPECT_TRUE(wave.MaxDots == 4 && wave.Quantify == 12 && !wave.Modified);
    EXPECT_TRUE(wave.Vpp == 20.0 && wave.Period == 0.001);
    const double expected[] = {-0.25, 1.0, -0.75 / 16383 + 0.5, 0.75 * (6552.0 / 16383 - 1) + 0.5};
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(wave.DotArray[i].Y, expected[i], 1e-15) << i;
}

TEST_F(ReadTest, ALoadEndsWithADocumentOrWithNothing) {
    const std::string four = Zeros(4), large = Zeros(1048576);
    const std::tuple<Texts, const char*, const char*, std::int32_t, std::int32_t, int> rows[] = {
        {{"x,3\n", Zeros(2), Zeros(40)}, "5", "1", 4096, 3, 6},  // too long a last packet
        {{"x,2", Zeros(1)}, "5", "1", 4096, 0, 2},
        {{"x,4", four, ""}, "5", "1", 4096, 0, 3},
        {{"9,100", Zeros(200)}, "5", "1", 100, 100, 5},
        {{"9,101", Zeros(202)}, "5", "1", 100, 0, 1},
        {{"524289", large, four}, "5", "1", 1048576, 524289, 6},
        {{"524290", large, four}, "5", "1", 1048576, 0, 1},
        {{"x,0"}, "5", "1", 4096, 0, 1},
        {{"3,x"}, "5", "1", 4096, 0, 1},
        {{"2", four}, "0", "1", 4096, 0, 5},
        {{"2", four}, "1E-12", "1", 4096, 2, 5},
        {{"2", four}, "", "1", 4096, 0, 3},
        {{"2", four}, "1E+300", "1", 4096, 2, 5},
        {{"2", four}, "5", "", 4096, 0, 5},
    };
    for (const auto& [blocks, frequency, voltage, most, dots, steps] : rows) {
        SetUp();
        MaxWaveDots = most;
        replies["DATA:LOAD A1"] = blocks;
        replies["FREQuency?"] = {frequency};
        replies["VOLTage?"] = {voltage};
        LoadChosenWave(load);
        SCOPED_TRACE(blocks[0] + " " + frequency + " " + voltage);
        EXPECT_TRUE(AnalogDocCount == (dots > 0 ? 2 : 1) && AnalogDocs[1].Dots == dots);
        EXPECT_LE(AnalogDocs[1].Period, 1e9);  // no file takes more
        EXPECT_TRUE(load.CloseAsked == Flag(dots > 0) && load.Note.empty() == (dots > 0));
        EXPECT_TRUE(exchanges == steps && Boxes().empty()) << exchanges;
        EXPECT_GE(AnalogDocs[1].Period, dots > 0 ? 1e-9 : 0.0);  // a file holds no shorter one
    }
}

TEST_F(ReadTest, DigitalWordsBecomeSixteenChannels) {
    for (const auto& [reply, told] : Rows(R"(100000 => 1e5; 12.5 Kbps => 12500; 1.5Mbps => 1.5e6;
        2E+3 bps => 2000; 9 Mbps => 2e6; 0.25 => 1; => 0; fast Kbps => 0; 0 => 0; -5 => 0)")) {
        const double rate = std::stod(told);
        SetUp();
        UseDigital({{0}}, {1});
        replies["DATA:DIGIT:LOAD A1"] = {"A1,3\n", std::string("\0\0\xFF\xFF", 4), "\x01\x80?"};
        replies["DIGIT:RATE?"] = {reply + "\n"};
        LoadChosenWave(load);
        SCOPED_TRACE(reply);
        const DigitDocument& document = DigitDocTable[1];
        ASSERT_TRUE(DigitDocUsed[1] == Flag(rate > 0) && load.CloseAsked == Flag(rate > 0));
        if (!DigitDocUsed[1]) continue;
        EXPECT_TRUE(document.Rate == rate && document.Dots == 3 && document.SampleCount == 3);
        EXPECT_EQ(document.DigitSamples, (std::vector<std::int32_t>{0, 0xFFFF, 0x8001}));
        EXPECT_TRUE(document.Title == "A1" && !document.Changed && !document.IsSaved);
        EXPECT_TRUE(document.Caliper == 0 && document.ChannelCount == 16);
        ASSERT_EQ(document.NodeCount, 16);
        for (int n = 0; n < 16; ++n) {
            const DigitNode& node = document.Nodes[n];
            EXPECT_EQ(node.Name, "D" + std::to_string(n));
            EXPECT_TRUE(node.Channels[0] == n && node.Width == 1 && node.DataLength == 3);
            EXPECT_TRUE(node.Row == n && node.Radix == 0 && !node.IsBus);
        }
    }
    ModelVariant = true;  // no variant has digital waveforms: an empty one is not asked for again
    for (const auto& [count, steps] : {std::pair("x,0", 1), {"x,4097", 1}, {"x,4096", 2}}) {
        replies["DATA:DIGIT:LOAD A1"] = {count, ""};
        exchanges = 0;
        LoadChosenWave(load);
        EXPECT_EQ(exchanges, steps);
    }
}

TEST_F(ReadTest, AVariantIsAskedUntilItHasDotsOrTheUserHasEnough) {
    ModelVariant = true;
    replies["DATA:LOAD A1"] = {"x,0", "x,0", "x,1", Zeros(2), "x,0"};
    LoadChosenWave(load);
    EXPECT_TRUE(AnalogDocs[1].Dots == 1 && exchanges == 7);
    cancelAt = pauses + 40;
    LoadChosenWave(load);
    failOpening = openings + 40;
    LoadChosenWave(load);
    EXPECT_TRUE(AnalogDocCount == 2 && Link.WorkDepth == 0 && !Link.IsConnected);
    AnalogDocCount = 10;
    load.CloseAsked = false;
    LoadChosenWave(load);
    EXPECT_TRUE(load.CloseAsked && Boxes().back().ends_with("Exceed maximum file numbers limit"));
}

}  // namespace
