#include "sim/Picture.h"
#include "sim/SimFixture.h"
#include "sim/StoreOption.h"
#include "sim/Transcript.h"

#include <fstream>

namespace {

using sim::Samples;
using namespace std::string_literals;

class InstrumentTest : public SimTest {};

struct FirmwareRow {
    const char* Version;
    const char* Threshold;
    bool IsOld;
};

TEST(FirmwareTest, ComparesFieldByFieldAndServicePacksLast) {
    constexpr FirmwareRow rows[] = {
        {"03.14.070", "03.14.070", true},
        {"03.14.071", "03.14.070", false},
        {"03.13.999", "03.14.070", true},
        {"04.01.001", "03.14.070", false},
        {"V03.14.069", "03.14.070", true},
        {"3.14.069", "03.14.070", false},  // another shape
        {"03.14", "03.14.070", false},     // another shape
        {"00.07SP2", "00.07SP2", true},
        {"00.07SP3", "00.07SP2", false},
        {"00.07SP1", "00.07SP2", true},
        {"00.07", "00.07SP2", true},
        {"00.07SP1", "00.07", false},
        {"00.06SP9", "00.07", true},
        {"00.08", "00.07SP2", false},
        {"00.6SP9", "01.07SP2", true},   // decided ahead of the last fields
        {"00.6SP9", "00.07SP2", false},  // last fields of unequal length
    };
    for (const FirmwareRow& row : rows) {
        EXPECT_EQ(sim::IsAtOrBelow(row.Version, row.Threshold), row.IsOld) << row.Version;
    }
}

TEST_F(InstrumentTest, IdentifiesAtFixedPositions) {
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

TEST_F(InstrumentTest, BinaryPacketsMakeAWave) {
    EXPECT_TRUE(Takes("DATA:DAC16 Volatile,CON,2,          \x00\x00\xFF\x3F"s));
    EXPECT_TRUE(device.Memory.Volatile.empty());
    EXPECT_TRUE(Takes("DATA:DAC16 Volatile,END,1,          \x00\x20"s));
    EXPECT_EQ(device.Memory.Volatile, (Samples{0, 16383, 8192}));
    EXPECT_TRUE(Takes("DATA:DAC16 Volatile,END,1,          \x07\x00"s));
    EXPECT_EQ(device.Memory.Volatile, (Samples{7}));
}

TEST_F(InstrumentTest, DamagedPacketsAreRefused) {
    const std::string binary[] = {
        "END,1,          \x00"s,
        "END,1,          \x00\x00\x00"s,
        "END,2,          \x00\x00"s,
        "END,1,          \x00\x40"s,
        "end,1,          \x00\x00"s,
        "END,01,         \x00\x00"s,
        "END,1,         x\x00\x00"s,
        "END 1,          \x00\x00"s,
        "END,1           \x00\x00"s,
        "END,0,          "s,
        "END,1,"s,
        ""s,
        "END,-1,         \x00\x00"s,
    };
    for (const std::string& packet : binary) {
        EXPECT_FALSE(Takes("DATA:DAC16 Volatile," + packet)) << testing::PrintToString(packet);
    }
    for (const char* packet :
         {"", "CON", "1,", ",1", "1, 2", "16384", "-1", "1.5", "CON,1", "1,END"}) {
        EXPECT_FALSE(Takes("DATA:DAC Volatile,"s + packet)) << packet;
    }
    EXPECT_TRUE(device.Memory.Volatile.empty());
    EXPECT_FALSE(device.IsReceiving);
}

TEST_F(InstrumentTest, TextPacketsAreAcknowledgedOnTheSerialLine) {
    EXPECT_EQ(Serial("DATA:DAC Volatile,0,16383,CON"), "PARSE FINISHED\n");
    EXPECT_EQ(Serial("DATA:DAC Volatile,8192"), "PARSE FINISHED\n");
    EXPECT_EQ(device.Memory.Volatile, (Samples{0, 16383, 8192}));
    EXPECT_EQ(Serial("DATA:COPY B"), "PARSE FINISHED\n");
    EXPECT_EQ(Serial("DATA:COPY SINC"), "");
    EXPECT_EQ(Serial("DATA:DELete B"), "");
    EXPECT_EQ(Ask("DATA:DAC Volatile,1"), "");
    EXPECT_EQ(Serial("DATA Volatile,-1,0,1"), "PARSE FINISHED\n");
    EXPECT_EQ(device.Memory.Volatile, (Samples{0, 8192, 16383}));
    EXPECT_EQ(Send("DATA:DAC16 Volatile,END,1,          \x07\x00"s, sim::Link::Serial).Error,
              "only on USB");
}

TEST_F(InstrumentTest, ModelsHoldTheirLongestWaveAndNotADotMore) {
    Plug({"--model", "KT1100"});
    const std::string packet = "DATA:DAC16 Volatile,CON,4095,       " + std::string(8190, '\1');
    EXPECT_TRUE(Takes(packet));
    EXPECT_FALSE(Takes("DATA:DAC16 Volatile,END,2,          \1\1\1\1"));
    EXPECT_TRUE(Takes("DATA:DAC16 Volatile,END,1,          \1\1"));
    EXPECT_EQ(device.Memory.Volatile, Samples(4096, 257));
}

TEST_F(InstrumentTest, AnotherCommandBreaksATransferOff) {
    EXPECT_TRUE(Takes("DATA:DAC Volatile,1,2,CON"));
    Ask("*IDN?");
    EXPECT_EQ(device.Memory.Volatile, (Samples{1, 2}));
    EXPECT_TRUE(Takes("DATA:DAC Volatile,3"));
    EXPECT_EQ(device.Memory.Volatile, (Samples{3}));
}

TEST_F(InstrumentTest, CatalogueAndFreeCountFollowTheLocations) {
    const std::string start = R"("EXP_RISE","EXP_FALL","NEG_RAMP","SINC","CARDIAC","VOLATILE")";
    EXPECT_EQ(Ask("DATA:Catalog?"), start + "\n");
    EXPECT_FALSE(Takes("DATA:COPY A"));  // nothing in the volatile memory
    EXPECT_FALSE(Takes("FUNction:USER VOLATILE"));
    Ask("DATA:DAC Volatile,1");
    for (const char* name : {"D", "C", "B", "A"}) EXPECT_TRUE(Takes("DATA:COPY "s + name));
    EXPECT_FALSE(Takes("DATA:COPY E"));
    EXPECT_EQ(Ask("DATA:Nvolatile:FREE?"), "0\n");
    Ask("DATA:DAC Volatile,2");
    EXPECT_TRUE(Takes("DATA:COPY C"));  // its own location again
    EXPECT_TRUE(Takes("DATA:REName B NEW"));
    EXPECT_FALSE(Takes("DATA:REName NEW A"));
    EXPECT_TRUE(Takes("DATA:DELete D"));
    EXPECT_EQ(Ask("DATA:Catalog?"), start + R"(,"C","NEW","A")" + "\n");
    EXPECT_EQ(Ask("DATA:Nvolatile:FREE?"), "1\n");
    EXPECT_EQ(device.Memory.Stored[0].Codes, (Samples{2}));
    EXPECT_EQ(Ask("DATA:DIGIT:Catalog?"), "\"VOLATILE\"\n");
    EXPECT_EQ(Ask("DATA:CATALOG?"), "");
    EXPECT_EQ(Ask("DIGIT:PROTOCOL?"), R"("RS232","USB","SPI","CAN","LAN","DS","TV")"
                                      "\n");
    Plug({"--variant"});
    EXPECT_EQ(Ask("DATA:Nvolatile:FREE?"), "10\n");
}

TEST_F(InstrumentTest, OutputFollowsTheActiveWave) {
    Ask("APPLy:USER 2500,5,-0.25");
    EXPECT_EQ(Ask("FREQuency?"), "2500\n");
    EXPECT_EQ(Ask("VOLTage?"), "5\n");
    EXPECT_EQ(Ask("VOLTage:OFFSet?"), "-0.25\n");
    EXPECT_DOUBLE_EQ(sim::VoltsOf(device, 16383), 2.25);
    EXPECT_DOUBLE_EQ(sim::VoltsOf(device, 0), -2.75);
    Ask("DATA:DAC Volatile,1");
    Ask("DATA:COPY A");
    EXPECT_TRUE(Takes("FUNction:USER A"));
    Ask("DATA:REName A B");
    EXPECT_EQ(sim::OutputSamples(device), (Samples{1}));
    const auto version = device.OutputVersion;
    Ask("DATA:DAC Volatile,2");  // not what is played
    EXPECT_EQ(device.OutputVersion, version);
    Ask("DATA:COPY B");
    EXPECT_EQ(sim::OutputSamples(device), (Samples{2}));
    EXPECT_GT(device.OutputVersion, version);
    Ask("DATA:DELete B");
    EXPECT_EQ(device.ActiveWave, "EXP_RISE");
    EXPECT_TRUE(Takes("FUNction:USER NEG_RAMP"));
    EXPECT_EQ(sim::OutputSamples(device).front(), 16383);
}

TEST_F(InstrumentTest, LoadGivesTheCountThenPackets) {
    ASSERT_EQ(sim::StoreFromOption(device.Memory, 1048576, "ARB1=ramp:40000"), "");
    EXPECT_EQ(Ask("DATA:LOAD ARB1"), "ARB1,40000");
    const std::string first = Ask("DATA:LOAD ARB1");
    EXPECT_EQ(first.size(), 65536u);
    EXPECT_EQ(Ask("DATA:LOAD ARB1").size(), 80000u - 65536u);
    EXPECT_EQ(Ask("DATA:LOAD ARB1"), "ARB1,40000");
    EXPECT_EQ(Ask("DATA:LOAD ARB1"), first);
    Ask("nonsense");
    EXPECT_EQ(Ask("DATA:LOAD ARB1"), "ARB1,40000");
    EXPECT_EQ(Ask("DATA:LOAD SINC"), "SINC,0");  // built in: as if it had no samples
    EXPECT_EQ(Ask("DATA:LOAD SINC"), "SINC,0");
    EXPECT_EQ(Ask("DATA:LOAD NONE"), "NONE,0");
    Ask("DATA:DAC Volatile,258,16383");
    EXPECT_EQ(Ask("DATA:LOAD VOLATILE"), "VOLATILE,2");
    EXPECT_EQ(Ask("DATA:LOAD VOLATILE"), "\x02\x01\xFF\x3F");
    EXPECT_NE(Send("DATA:LOAD ARB1", sim::Link::Serial).Error, "");
}

TEST_F(InstrumentTest, FaultsSpoilTheAnswers) {
    Plug({"--fault", "stale-free-count", "--fault", "noise", "--fault", "vendor"});
    // 4 locations less a free count of -3: seven in use, and the catalogue has six names.
    EXPECT_EQ(Ask("DATA:Nvolatile:FREE?"), "-3\n");
    EXPECT_EQ(Serial("FREQuency?"), "~R#1000\n");
    EXPECT_EQ(Serial("DATA:DAC Volatile,1"), "PARSE FINISHED\n");
    EXPECT_FALSE(Ask("*IDN?").starts_with("NORVIK"));
    Plug({"--fault", "no-parse-finished", "--fault", "short-read"});
    EXPECT_EQ(Serial("DATA:DAC Volatile,1"), "");
    EXPECT_EQ(Serial("FREQuency?"), "10");
    Plug({"--fault", "silence"});
    EXPECT_EQ(Serial("*IDN?"), "");
    sim::Faults faults;
    for (const char* name : {"", "loud", "silence=1", "drop-after", "drop-after=0", "slow=1x"}) {
        EXPECT_FALSE(sim::SetFault(faults, name)) << name;
    }
}

TEST_F(InstrumentTest, LocationsAreFilledFromFiles) {
    const std::string path = testing::TempDir() + "codes.txt";
    const auto store = [&](const char* codes) {
        std::ofstream(path) << codes;
        return sim::StoreFromOption(device.Memory, 4, "F=" + path);
    };
    EXPECT_EQ(store("0, 5\n16383\n"), "");
    EXPECT_EQ(device.Memory.Stored[0].Codes, (Samples{0, 5, 16383}));
    for (const char* bad : {"", "1 16384", "1.5", "1 2 3 4 5", "x", "1 -2"})
        EXPECT_NE(store(bad), "");
    EXPECT_EQ(device.Memory.Stored[0].Codes.size(), 3u);
    for (const char* bad : {"F", "sinc=sine:4", "SINC=sine:4", "F=sine:5", "F=sine:0", "F=/none"}) {
        EXPECT_NE(sim::StoreFromOption(device.Memory, 4, bad), "") << bad;
    }
    EXPECT_EQ(sim::StoreFromOption(device.Memory, 4, "S=sine:4"), "");
    EXPECT_EQ(device.Memory.Stored[1].Codes, (Samples{8192, 16383, 8192, 0}));
}

TEST_F(InstrumentTest, TranscriptTellsSamplesByTheirNumber) {
    const auto packet = "DATA:DAC16 Volatile,END,1,          \x07\x00"s;
    EXPECT_EQ(sim::MessageLine(sim::Link::Usb, packet, Send(packet)),
              "USB   -> DATA:DAC16 Volatile,END,1,            "
              "(1 samples, 7..7; wave of 1 dots complete)");
    EXPECT_EQ(sim::MessageLine(sim::Link::Serial, "*idn\t", Send("*idn\t")),
              "RS232 -> *idn\\x09  ERROR: unknown command");
    Send("DATA:LOAD VOLATILE");
    const sim::Outcome samples = Send("DATA:LOAD VOLATILE");
    EXPECT_EQ(sim::ReplyLine(sim::Link::Usb, samples.Reply, samples),
              "USB   <- 1 samples (2 bytes)");
}

TEST_F(InstrumentTest, PictureShowsEachPeakAndStaysSmall) {
    device.Memory.Volatile.assign(1048576, 0);
    device.Memory.Volatile[524288] = 16383;  // in the middle: column 400 of 800
    Ask("FUNction:USER VOLATILE");
    const std::string dense = sim::PictureOf(device);
    EXPECT_NE(dense.find("M490.5 99.25V420.75"), std::string::npos);  // 90 + 400.5; 100, 420
    EXPECT_LT(dense.size(), 50000u);
    device.Memory.Volatile = {16383, 0};
    EXPECT_NE(sim::PictureOf(device).find("M90.00 100.00L490.00 420.00L890.00 100.00"),
              std::string::npos);
}

TEST(UnitTest, TakesThePrefixThatSuits) {
    EXPECT_EQ(sim::WithUnit(0.0, "V"), "0 V");
    EXPECT_EQ(sim::WithUnit(-0.0025, "V"), "-2.5 mV");
    EXPECT_EQ(sim::WithUnit(0.99999, "s"), "1 s");
    EXPECT_EQ(sim::WithUnit(2e7, "Hz"), "20 MHz");
    EXPECT_EQ(sim::WithUnit(40e-9, "s"), "40 ns");
}

}  // namespace
