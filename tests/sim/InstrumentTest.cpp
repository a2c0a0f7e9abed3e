#include "sim/Instrument.h"
#include "sim/Options.h"
#include "sim/Picture.h"
#include "sim/StoreOption.h"
#include "sim/Transcript.h"

#include <gtest/gtest.h>
#include <fstream>
#include <sstream>

namespace {

using sim::Samples;
using namespace std::literals;

// An instrument as the command line makes it, and short ways to talk to it.
class SimTest : public ::testing::Test {
protected:
    void Plug(const std::vector<std::string>& arguments) {
        sim::Options options;
        ASSERT_EQ(sim::ReadOptions(arguments, options), "");
        device = sim::MakeInstrument(options.Id, options.Fault);
    }

    sim::Outcome Send(std::string_view message, sim::Link link = sim::Link::Usb) {
        return sim::HandleMessage(device, link, message);
    }
    std::string Ask(std::string_view message) { return Send(message).Reply; }
    std::string Serial(std::string_view message) {
        return sim::ReplyAfterFaults(device.Fault, sim::Link::Serial,
                                     Send(message, sim::Link::Serial));
    }
    bool Takes(std::string_view message) { return Send(message).Error.empty(); }

    sim::Instrument device = sim::MakeInstrument({}, {});
};

TEST_F(SimTest, IdentifiesAtFixedPositions) {
    EXPECT_EQ(Ask("*IDN?"), "NORVIK TECHNOLOGIE,KT3300,SIM0001,08.06.073\n");
    Plug({"--variant", "--serial", "X-7"});
    EXPECT_EQ(Ask("*IDN?"), "NORVIK TECHNOLOGIE,KT1102,X-7,02.20.043.00.08SP1\n");
    Plug({"--model", "KT2200", "--firmware", "03.13.001", "--fault", "nineteen"});
    EXPECT_EQ(Ask("*IDN?"), "NORVIK TECHNOLOGIES,KT2200,SIM0001,03.13.001\n");
    sim::Options options;
    EXPECT_NE(sim::ReadOptions({"--variant", "--firmware", "old"}, options), "");
    EXPECT_NE(sim::ReadOptions({"--variant", "--model", "KT3300"}, options), "");
    EXPECT_NE(sim::ReadOptions({"--serial", "../X"}, options), "");
}

TEST_F(SimTest, BinaryPacketsMakeAWaveUpToTheLongest) {
    Plug({"--model", "KT1100"});
    EXPECT_TRUE(Takes("DATA:DAC16 Volatile,CON,2,          \x00\x00\xFF\x3F"s));
    EXPECT_TRUE(Takes("DATA:DAC16 Volatile,CON,4093,       " + std::string(8186, '\1')));
    EXPECT_FALSE(Takes("DATA:DAC16 Volatile,END,2,          \1\1\1\1"));
    const Samples& wave = device.Memory.Volatile;
    EXPECT_TRUE(wave.empty() && Takes("DATA:DAC16 Volatile,END,1,          \x00\x20"s));
    ASSERT_EQ(wave.size(), 4096u);
    EXPECT_EQ((Samples{wave[0], wave[1], wave[4094], wave[4095]}), (Samples{0, 16383, 257, 8192}));
    const auto packet = "DATA:DAC16 Volatile,END,1,          \x07\x00"s;
    EXPECT_TRUE(Send(packet, sim::Link::Serial).Error == "only on USB" && Takes(packet));
    EXPECT_EQ(wave, (Samples{7}));
}

TEST_F(SimTest, TextPacketsAreAcknowledgedOnTheSerialLineAndCanBeBrokenOff) {
    EXPECT_EQ(Serial("DATA:DAC Volatile,0,16383,CON"), "PARSE FINISHED\n");
    EXPECT_EQ(Serial("DATA:DAC Volatile,8192"), "PARSE FINISHED\n");
    EXPECT_EQ(device.Memory.Volatile, (Samples{0, 16383, 8192}));
    EXPECT_EQ(Serial("DATA:COPY B"), "PARSE FINISHED\n");
    EXPECT_EQ(Serial("DATA:COPY SINC") + Serial("DATA:DELete B"), "");
    EXPECT_EQ(Serial("DATA Volatile,-1,0,1"), "PARSE FINISHED\n");
    EXPECT_EQ(device.Memory.Volatile, (Samples{0, 8192, 16383}));
    EXPECT_EQ(Ask("DATA:DAC Volatile,1,2,CON"), "");
    Ask("*IDN?");  // breaks the transfer off
    EXPECT_TRUE(device.Memory.Volatile == (Samples{1, 2}) && Takes("DATA:DAC Volatile,3"));
    EXPECT_EQ(device.Memory.Volatile, (Samples{3}));
}

TEST_F(SimTest, OutputFollowsTheActiveWave) {
    Ask("APPLy:USER 2500,5,-0.25");
    EXPECT_EQ(Ask("FREQuency?") + Ask("VOLTage?") + Ask("VOLTage:OFFSet?"), "2500\n5\n-0.25\n");
    EXPECT_DOUBLE_EQ(sim::VoltsOf(device, 16383), 2.25);
    EXPECT_DOUBLE_EQ(sim::VoltsOf(device, 0), -2.75);
    for (const char* line :
         {"DATA:DAC Volatile,1", "DATA:COPY A", "FUNction:USER A", "DATA:REName A B"})
        EXPECT_TRUE(Takes(line)) << line;
    EXPECT_EQ(sim::OutputSamples(device), (Samples{1}));
    const auto version = device.OutputVersion;
    Ask("DATA:DAC Volatile,2");  // not what is played
    EXPECT_EQ(device.OutputVersion, version);
    Ask("DATA:COPY B");
    EXPECT_TRUE(sim::OutputSamples(device) == (Samples{2}) && device.OutputVersion > version);
    Ask("DATA:DELete B");
    EXPECT_TRUE(device.ActiveWave == "EXP_RISE" && Takes("FUNction:USER NEG_RAMP"));
    EXPECT_EQ(sim::OutputSamples(device).front(), 16383);
}

TEST_F(SimTest, LocationsAreFilledFromFiles) {
    const std::string path = testing::TempDir() + "codes.txt";
    const auto store = [&](const char* codes, const char* kind = "") {
        std::ofstream(path) << codes;
        return sim::StoreFromOption(device.Memory, 4, "F="s + kind + path);
    };
    EXPECT_TRUE(store("65535", "words:") == "" && store("65536", "words:") != "");
    EXPECT_TRUE(device.Memory.Stored[0].Codes == (Samples{65535}) && store("0, 5\n16383\n") == "");
    for (const char* bad : {"", "1 16384", "1.5", "1 2 3 4 5", "x", "1 -2"})
        EXPECT_NE(store(bad), "");
    EXPECT_EQ(device.Memory.Stored[0].Codes, (Samples{0, 5, 16383}));
    for (const char* bad : {"F", "sinc=sine:4", "SINC=sine:4", "F=sine:5", "F=sine:0", "F=/none"})
        EXPECT_NE(sim::StoreFromOption(device.Memory, 4, bad), "") << bad;
    EXPECT_EQ(sim::StoreFromOption(device.Memory, 4, "S=sine:4"), "");
    EXPECT_EQ(device.Memory.Stored[1].Codes, (Samples{8192, 16383, 8192, 0}));
}

// A digital packet of one channel in its map, D9, and samples of two bytes each.
std::string DigitPacket(const std::string& text, const std::string& samples) {
    return "DATA:DIGITAL16," + text + "\x01\x09" + std::string(15, '\0') + samples;
}

TEST_F(SimTest, DigitalPacketsMakeAWaveOfWordsAndChannels) {
    const auto map = "\x03\x05\x00\x0F\0\0\0\0\0\0\0\0\0\0\0\0\0"s;
    EXPECT_TRUE(Takes("DATA:DIGITAL16,CON,2," + map + "\x01\x80\xFF\xFF"));
    EXPECT_FALSE(Takes(DigitPacket("END,1,", "ab")));  // another map
    EXPECT_FALSE(Takes("DATA:DIGITAL16,END,2," + map + "ab"));
    EXPECT_TRUE(device.Memory.DigitVolatile.empty());
    const std::string end = "DATA:DIGITAL16,END,1," + map + "\x02\0"s;
    EXPECT_EQ(sim::MessageLine(sim::Link::Usb, end, Send(end)),
              "USB   -> DATA:DIGITAL16,END,1,  (1 samples, 3 channels; wave of 3 dots complete)");
    EXPECT_EQ(sim::MessageLine(sim::Link::Serial, "*idn\t", Send("*idn\t")),
              "RS232 -> *idn\\x09  ERROR: unknown command");
    EXPECT_EQ(device.Memory.DigitVolatile, (Samples{0x8001, 0xFFFF, 2}));
    EXPECT_EQ(device.Memory.DigitChannels, (sim::ChannelMap{5, 0, 15}));
    // A packet of the other kind ends a transfer, as any other command does.
    EXPECT_TRUE(Takes("DATA:DAC Volatile,7,CON") && Takes(DigitPacket("CON,1,", "\4\0"s)));
    EXPECT_TRUE(device.Memory.Volatile == (Samples{7}) && Takes("DATA:DAC Volatile,8"));
    EXPECT_EQ(device.Memory.DigitVolatile, (Samples{4}));
    EXPECT_EQ(device.Memory.Volatile, (Samples{8}));
    EXPECT_EQ(Send(DigitPacket("END,1,", "ab"), sim::Link::Serial).Error, "only on USB");
    for (int packet = 0; packet < 4; ++packet)
        EXPECT_TRUE(Takes(DigitPacket("CON,262144,", std::string(524288, '\1'))));
    EXPECT_FALSE(Takes(DigitPacket("END,1,", "ab")));  // 1048576 is all
}

TEST_F(SimTest, DamagedPacketsAreRefused) {
    const std::string head = "DATA:DAC16 Volatile,", one = head + "END,1,          ";
    const std::string zeros(13, '\0'), digital = "DATA:DIGITAL16,END,1,";
    const std::string all16 = "\x10\xF\xE\xD\xC\xB\xA\x9\x8\x7\x6\x5\x4\x3\x2\x1"s + '\0';
    std::vector<std::string> packets = {head + "END,0,          "};
    for (const char* field : {"END,2,          ", "end,1,          ", "END,01,         ",
                              "END,1,         x", "END 1,          ", "END,1           ", "END,1,"})
        packets.push_back(head + field + "\0\0"s);
    for (const std::string& data : {"\0"s, "\0\0\0"s, "\0\x40"s}) packets.push_back(one + data);
    for (const char* text : {"", "CON", "1,", ",1", "1, 2", "16384", "-1", "1.5", "CON,1", "1,END"})
        packets.push_back("DATA:DAC Volatile,"s + text);
    for (const char* text : {"", "END", "end,1,", "END,01,", "END,1", "END 1,", "END,0,", "END,,",
                             "END,2,", "END, 1,", "END,1 ,"})
        packets.push_back(DigitPacket(text, "ab"));
    for (const char* samples : {"", "a", "abc", "abcd"})
        packets.push_back(DigitPacket("END,1,", samples));
    for (const std::string& map :
         {"\0\0\0\0"s + zeros, "\x11" + all16.substr(1), "\1\x10\0\0"s + zeros, "\2\4\4\0"s + zeros,
          "\2\0\0\0"s + zeros, "\2\4\5\6"s + zeros, "\1\1"s})
        packets.push_back(digital + map + "ab");
    for (const std::string& packet : packets)
        EXPECT_FALSE(Takes(packet)) << testing::PrintToString(packet);
    EXPECT_TRUE(device.Memory.Volatile.empty() && device.Memory.DigitVolatile.empty());
    EXPECT_TRUE(!device.IsReceiving && Takes(one + "\0\0"s) && Takes(digital + all16 + "ab"));
}

TEST_F(SimTest, BothKindsShareLocationsAndNames) {
    const std::string start = R"("EXP_RISE","EXP_FALL","NEG_RAMP","SINC","CARDIAC","VOLATILE")";
    EXPECT_EQ(Ask("DATA:Catalog?"), start + "\n");
    EXPECT_EQ(Ask("DATA:DIGIT:Catalog?"), "\"VOLATILE\"\n");
    EXPECT_EQ(Ask("DIGIT:PROTOCOL?"), "\"RS232\",\"USB\",\"SPI\",\"CAN\",\"LAN\",\"DS\",\"TV\"\n");
    for (const char* early : {"DATA:COPY D", "DATA:DIGIT:COPY D", "FUNction:USER VOLATILE"})
        EXPECT_FALSE(Takes(early)) << early;  // nothing in the volatile memories
    EXPECT_TRUE(Takes("DATA:DAC Volatile,1") && Takes(DigitPacket("END,1,", "\2\0"s)));
    EXPECT_TRUE(Takes("DATA:COPY D") && Takes("FUNction:USER D"));
    EXPECT_EQ(Serial("DATA:DIGIT:COPY C"), "PARSE FINISHED\n");
    EXPECT_TRUE(Takes("DATA:COPY B") && Takes("DATA:DIGIT:COPY A"));
    EXPECT_EQ(Ask("DATA:Nvolatile:FREE?"), "0\n");
    Ask("DATA:DAC Volatile,2");
    EXPECT_TRUE(Takes("DATA:COPY B"));  // its own location again
    EXPECT_EQ(device.Memory.Stored[2].Codes, (Samples{2}));
    for (const char* taken :
         {"DATA:COPY E", "DATA:DIGIT:COPY E", "DATA:REName C B", "DATA:REName C SPI"})
        EXPECT_FALSE(Takes(taken)) << taken;
    EXPECT_TRUE(Takes("DATA:REName B SPI") && Takes("DATA:REName C AB"));
    EXPECT_TRUE(Takes("DATA:DELete A") && Takes("DATA:DIGIT:COPY D"));  // of the other kind now
    EXPECT_EQ(device.ActiveWave, "EXP_RISE");
    EXPECT_EQ(Ask("DATA:DIGIT:Catalog?"), "\"VOLATILE\",\"D\",\"AB\"\n");
    EXPECT_EQ(Ask("DATA:Catalog?"), start + ",\"SPI\"\n");
    EXPECT_EQ(Ask("DATA:Nvolatile:Catalog?") + Ask("DATA:Nvolatile:FREE?"), "\"SPI\"\n1\n");
    for (const char* name : {"RS232", "USB", "SPI", "CAN", "LAN", "DS", "TV", "PO", "VOLATILE"})
        EXPECT_FALSE(Takes("DATA:DIGIT:COPY "s + name)) << name;
    Plug({"--variant"});
    EXPECT_EQ(Ask("DATA:Nvolatile:FREE?"), "10\n");
}

TEST_F(SimTest, LoadGivesTheCountThenPackets) {
    const std::string analog = "DATA:LOAD ", digital = "DATA:DIGIT:LOAD ";
    Ask("DATA:DAC Volatile,258,16383");
    Ask(DigitPacket("END,2,", "\xFE\xFF\1\2"));
    std::string rest;  // dots 32768 to 39999
    for (const auto& [load, option, bytes] :
         {std::tuple(analog, "A=ramp:40000", "\x02\x01\xFF\x3F"),
          {digital, "D=count:40000", "\xFE\xFF\1\2"}}) {
        ASSERT_EQ(sim::StoreFromOption(device.Memory, 1048576, option), "");
        const std::string name(option, 1);
        EXPECT_TRUE(Ask(load + name) == name + ",40000" && Ask(load + name).size() == 65536u);
        rest = Ask(load + name);
        EXPECT_EQ(rest.size(), 14464u);
        for (const char* next : {"VOLATILE,2", bytes, "VOLATILE,2"})
            EXPECT_EQ(Ask(load + "VOLATILE"), next);
        Ask("nonsense");
        EXPECT_EQ(Ask(load + "VOLATILE"), "VOLATILE,2");
    }
    EXPECT_EQ(rest.substr(0, 4) + rest.substr(14462), "\x00\x80\x01\x80\x3F\x9C"s);
    EXPECT_EQ(Ask(analog + "VOLATILE"), "VOLATILE,2");  // and not on with the other kind
    for (const char* name : {"SINC", "SINC", "D"})      // as if they had no samples
        EXPECT_EQ(Ask(analog + name), name + ",0"s);
    EXPECT_EQ(Ask(digital + "NONE"), "NONE,0");
    EXPECT_NE(Send(analog + "A", sim::Link::Serial).Error, "");
}

TEST_F(SimTest, DigitalOutputBeginsWhenItsSetUpIsFinished) {
    for (const auto& [rate, told] : {std::pair("999.5", "999.5\n"),
                                     {"1000", "1Kbps\n"},
                                     {"999999", "999.999Kbps\n"},
                                     {"2500000", "2.5Mbps\n"}})
        EXPECT_EQ((Ask("DIGIT:RATE "s + rate), Ask("DIGIT:RATE?")), told);
    EXPECT_FALSE(Takes("DIGIT:FINISH"));  // no pattern yet
    EXPECT_TRUE(Takes(DigitPacket("END,2,", "\0\2\0\0"s)) && Takes("DATA:DIGIT:COPY A"));
    EXPECT_TRUE(Takes("DIGIT:PROTOCOL SPI"));
    const auto version = device.OutputVersion;
    EXPECT_TRUE(Send("").Note == "empty message" && Takes("DIGIT:USER A"));
    EXPECT_EQ(device.OutputVersion, version);
    EXPECT_EQ(Send("DIGIT:FINISH").Note, "plays PO, rate 2.5Mbps: A, 2 dots");
    Ask("DATA:REName A B");
    EXPECT_EQ(sim::OutputWords(device), (Samples{0x200, 0}));
    // D9 in the first of 16 rows of 25 pixels from 60 on: high for half of the 800 columns.
    EXPECT_NE(sim::PictureOf(device).find("d='M90 64H490V81H890'"), std::string::npos);
    Ask("DATA:DELete B");
    EXPECT_EQ(device.Playing, sim::WaveKind::Analog);
    Ask("DIGIT:PROTOCOL USB");
    EXPECT_EQ(Send("DIGIT:FINISH").Note, "plays USB, rate 2.5Mbps");
    EXPECT_NE(sim::PictureOf(device).find("output: USB"), std::string::npos);
    EXPECT_TRUE(Takes("FUNction:USER SINC") && device.Playing == sim::WaveKind::Analog);
}

constexpr unsigned Kt1100New = 1, Kt2200New = 2, Kt3300New = 4, Variant = 8, New = 15;
constexpr unsigned Kt1100Old = 16, Kt2200Old = 32, Kt3300Old = 64, Old = 112, All = New | Old;
constexpr unsigned None = 0;

const std::pair<unsigned, std::vector<std::string>> Instruments[] = {
    {Kt1100New, {"--model", "KT1100"}},
    {Kt2200New, {"--model", "KT2200"}},
    {Kt3300New, {}},
    {Variant, {"--variant"}},
    {Kt1100Old, {"--model", "KT1100", "--firmware", "old"}},
    {Kt2200Old, {"--model", "KT2200", "--firmware", "old"}},
    {Kt3300Old, {"--firmware", "old"}},
};

// Taken by these instruments, and refused by all others.
const std::pair<unsigned, std::vector<std::string_view>> Rows[] = {
    {All,
     {"", "*IDN?", "FUNction:USER A", "APPLy:USER 1E-06,2.5,-0.5", "DATA:COPY A",
      "DATA:COPY ABCDEFGHIJ_2", "AM:STATe ON"}},
    {New, {"DATA:DAC Volatile,1,2", "DATA:DAC16 Volatile,END,1,          a?"}},
    {Old, {"DATA:DAC_Volatile,1,2", "DATA:DAC16_Volatile,END,1,          a?"}},
    {Variant, {"DATA:REName A,B"}},
    {Old | Kt2200New, {"DATA:REName,A,B"}},
    {Kt1100New | Kt3300New, {"DATA:REName A B", "DATA:REName A A"}},
    {Kt1100New | Kt2200New | Kt3300New, {"FUNction:USER NEG_RAMP"}},
    {Old | Variant, {"FUNction:USER NEGRAMP"}},
    {Kt3300New,
     {"DATA:CATALOG?", "DIGIT:PROTOCOL SPI", "DATA:DIGIT:LOAD D",
      "DATA:DIGITAL16,END,1,\1\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0ab"sv}},
    {None,
     {"*idn?", "FUNction:USER B", "DIGIT:PROTOCOL I2C", "DATA:DIGIT:COPY D", "DATA:DIGITAL,1,0,5",
      "DIGIT:USER A", "APPLy:USER 1000,2", "APPLy:USER 1000, 2, 0", "APPLy:USER 0,2,0",
      "DATA:COPY b", "DATA:COPY ABCDEFGHIJ_23", "DATA:COPY SINC", "DATA:COPY VOLATILE",
      "DATA:REName SINC B", "DATA:DELete CARDIAC", "AM:STATe MAYBE"}},
};

// Every instrument gets a volatile wave of two dots and the stored wave A; then one message.
TEST_F(SimTest, CommandsAreTakenByWhoKnowsThemAndChangeNothingElsewhere) {
    for (const auto& [taken, messages] : Rows)
        for (const std::string_view message : messages)
            for (const auto& [instrument, arguments] : Instruments) {
                SCOPED_TRACE(std::string(message) + testing::PrintToString(arguments));
                Plug(arguments);
                device.Memory.Volatile = {5, 6};
                device.Memory.Stored = {{"A", sim::WaveKind::Analog, {7, 8}}};
                const sim::Outcome outcome = Send(message);
                EXPECT_EQ(outcome.Error.empty(), (taken & instrument) != 0) << outcome.Error;
                if (outcome.Error.empty()) continue;
                EXPECT_TRUE(outcome.Reply.empty() && device.OutputVersion == 0u);
                EXPECT_EQ(device.Memory.Volatile, (Samples{5, 6}));
                EXPECT_EQ(sim::StoredNamesText(device.Memory, sim::WaveKind::Analog), "\"A\"");
            }
}

}  // namespace
