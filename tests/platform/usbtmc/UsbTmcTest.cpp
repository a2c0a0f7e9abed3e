#include "platform/usbtmc/FakeInstrument.h"
#include "platform/UsbTmcVisa.h"
#include "vm/Pattern.h"

#include <gmock/gmock.h>

namespace {

using enum Quirk;

const std::string Name = "USB0::0x1234::0xABCD::KT__33_1::INSTR";
constexpr std::uint32_t Mebibyte = 1048576;

class UsbTmcTest : public ::testing::Test {
protected:
    UsbTmcTest() {
        EXPECT_EQ(visa.viOpenDefaultRM(&manager), VisaSuccess);
        EXPECT_EQ(visa.viOpen(manager, Name.c_str(), 0, 0, &instrument), VisaSuccess)
            << "to be run under umockdev-wrapper";
        visa.viSetAttribute(instrument, VisaTimeOutValue, 200);
    }
    ~UsbTmcTest() override { visa.viClose(manager); }

    ViStatus Write(const std::string& text) {
        return visa.viWrite(instrument, reinterpret_cast<const std::uint8_t*>(text.data()),
                            static_cast<std::uint32_t>(text.size()), &moved);
    }
    // Leaves in `got` what came; the bytes behind the buffer have to stay what they were.
    ViStatus Read(std::uint32_t most) {
        got.assign(most + 600, '#');
        const ViStatus status =
            visa.viRead(instrument, reinterpret_cast<std::uint8_t*>(got.data()), most, &moved);
        EXPECT_TRUE(moved <= most && got.substr(most) == std::string(600, '#'));
        got.resize(moved);
        return status;
    }

    FakeInstrument fake;
    VisaApi visa = UsbTmcVisa();
    ViSession manager = 0, instrument = 0;
    std::uint32_t moved = 0;
    std::string got;
};

TEST_F(UsbTmcTest, FindsByExpressionAndTakesTheInterfaceForATime) {
    char name[VisaNameLength];
    ViSession list = 0, second = 0;
    EXPECT_EQ(visa.viFindRsrc(manager, "usb?*instr", &list, &moved, name), VisaSuccess);
    EXPECT_TRUE(name == Name && moved == 1U && visa.viFindNext(list, name) == VisaNotFound);
    EXPECT_EQ(visa.viFindRsrc(manager, "GPIB?*", &list, &moved, name), VisaNotFound);
    EXPECT_EQ(visa.viOpen(manager, "USB0::0x1234::0xABCD::KT::INSTR", 0, 0, &second), VisaNotFound);
    EXPECT_EQ(visa.viClose(instrument), VisaSuccess);
    EXPECT_EQ(visa.viOpen(manager, "usb0::0X1234::0xabcd::kt__33_1::instr", 0, 0, &instrument),
              VisaSuccess);
    EXPECT_EQ(visa.viClose(manager), VisaSuccess);  // closes the instrument too
    EXPECT_EQ(fake.TakeLog(), "claim 1 release 1 attach 1 claim 1 release 1 attach 1 ");
    EXPECT_EQ(Write("x"), VisaNoSession);
}

// Packets have 512 bytes, 12 of the first are the header. After each fault the instrument is
// understood again.
TEST_F(UsbTmcTest, ReadGivesWhatCameAndGoesOn) {
    struct Row {
        const char* Name;
        std::deque<FakeReply> Replies;
        std::uint32_t Most;
        ViStatus Status;
        std::string Got;
        const char* Log = "";
    };
    const Row rows[] = {
        {"padded", {{"KT\nx", true, 3}}, 200, VisaSuccess, "KT\n"},
        {"fullPacket", {{Pattern(500)}}, Mebibyte, VisaSuccess, Pattern(500)},
        {"noEmptyEnd", {{Pattern(1012), true, -1, NoEmptyEnd}}, 1012, VisaSuccess, Pattern(1012)},
        {"emptyEndLate", {{"KT", true, -1, EmptyFirst}}, 200, VisaSuccess, "KT"},
        {"largest", {{Pattern(Mebibyte)}}, Mebibyte, VisaSuccess, Pattern(Mebibyte)},
        {"twoTransfers", {{Pattern(700), false}, {"end"}}, 800, VisaSuccess, Pattern(700) + "end"},
        {"goesOn", {{Pattern(200), false}}, 200, VisaEndBySize, Pattern(200)},
        {"emptyForEver", {{"", false}}, 200, VisaIoError, ""},
        {"tooLong", {{Pattern(300)}}, 200, VisaIoError, Pattern(200)},
        {"muchTooLong", {{Pattern(3000)}}, 200, VisaIoError, Pattern(200), "3 4 4 "},
        {"claimsMore", {{Pattern(100), true, 150}}, 200, VisaIoError, Pattern(100)},
        {"claimsLess", {{Pattern(3000), true, 500}}, 2000, VisaIoError, Pattern(500), "3 4 4 "},
        {"otherTag", {{"KT", true, -1, WrongTag}}, 200, VisaIoError, "", "3 4 4 "},
        {"stall", {{"", true, -1, Stall}}, 200, VisaIoError, "", "halt 83 "},
        {"silent", {}, 200, VisaTimeOut, "", "3 4 4 "},
        {"cut", {{Pattern(500), true, 600, NoEmptyEnd}}, 600, VisaTimeOut, Pattern(500), "3 4 4 "},
    };
    fake.TakeLog();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.Name);
        fake.Replies = row.Replies;
        EXPECT_EQ(Read(row.Most), row.Status);
        EXPECT_TRUE(got == row.Got) << got.size() << " bytes";
        EXPECT_EQ(fake.TakeLog(), row.Log);
        fake.Replies = {{"next"}};
        EXPECT_TRUE(Read(200) == VisaSuccess && got == "next");
    }
}

TEST_F(UsbTmcTest, WritesAWholeMessageAndNothingForNoBytes) {
    EXPECT_TRUE(Write("") == VisaSuccess && fake.Written.empty());
    EXPECT_TRUE(Write(Pattern(Mebibyte + 2)) == VisaSuccess && moved == Mebibyte + 2);
    ASSERT_EQ(fake.Written.size(), 12U + Mebibyte + 4);
    EXPECT_EQ(fake.Written.substr(4, 8), std::string("\2\0\x10\0\1\0\0\0", 8));
    EXPECT_TRUE(fake.Written.substr(12) == Pattern(Mebibyte + 2) + std::string(2, '\0'));
    const char tag = fake.Written[1];
    EXPECT_EQ(Write("*IDN?"), VisaSuccess);
    EXPECT_NE(fake.Written[12 + Mebibyte + 4 + 1], tag);
}

TEST_F(UsbTmcTest, FailuresAreAbortedOrClearedAndAnUnpluggedOneIsLost) {
    fake.WritesHang = true;
    EXPECT_EQ(Write("*IDN?"), VisaTimeOut);
    EXPECT_EQ(fake.TakeLog(), "claim 1 1 2 2 halt 2 ");
    fake.WritesHang = false;
    EXPECT_EQ(Write("*IDN?"), VisaSuccess);
    fake.AbortStatus = 0x81;  // another transfer than the one named is under way
    EXPECT_EQ(Read(200), VisaTimeOut);
    EXPECT_EQ(fake.TakeLog(), "3 5 6 6 halt 83 halt 2 ");
    fake.Unplugged = true;
    EXPECT_EQ(Write("*IDN?"), VisaConnectionLost);
    EXPECT_EQ(Read(200), VisaConnectionLost);
}

}  // namespace
