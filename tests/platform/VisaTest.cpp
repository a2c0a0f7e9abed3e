#include "platform/UsbTmcFrames.h"
#include "platform/VisaLibrary.h"
#include "platform/VisaNames.h"

#include <gmock/gmock.h>
#include <stdlib.h>

namespace {

using ::testing::ElementsAre;

// The folder of the stand-ins is in LD_LIBRARY_PATH. The one without viRead must not be taken.
TEST(VisaLibraryTest, TakesTheFirstCompleteLibrary) {
    setenv("TIDEMARK_SIM_DIR", "/nowhere", 1);
    const VisaApi visa = LoadVisa();
    ViSession session = 0;
    std::uint32_t count = 0;
    std::uint8_t byte = 50;
    ASSERT_EQ(visa.viOpenDefaultRM(&session), 1) << "LD_LIBRARY_PATH: libvisa of the build";
    EXPECT_EQ(session, 5U);
    EXPECT_EQ(visa.viFindRsrc(5, "", nullptr, nullptr, nullptr), -2);
    EXPECT_EQ(visa.viFindNext(5, nullptr), 3);
    EXPECT_EQ(visa.viOpen(5, "four", 3, 7, &session), 4);
    EXPECT_EQ(session, 5437U);
    EXPECT_EQ(visa.viSetAttribute(1, 20, 300), 321);
    EXPECT_EQ(visa.viWrite(1000, &byte, 100, &count), 6);
    EXPECT_EQ(count, 1150U);
    EXPECT_EQ(visa.viRead(1000, &byte, 100, &count), 7);
    EXPECT_EQ(count, 950U);
    EXPECT_EQ(visa.viClose(8), 8);
}

TEST(VisaNamesTest, SerialNumbersBecomeSafe) {
    EXPECT_EQ(UsbResourceName(0x12, 0xABCD, " S/N 1::2\n"),
              "USB0::0x0012::0xABCD::S/N_1__2::INSTR");
    EXPECT_EQ(UsbResourceName(0xF, 0, "\xC3\xA9\x01"), "USB0::0x000F::0x0000::___::INSTR");
    EXPECT_EQ(UsbResourceName(0xF, 0, " \n"), "USB0::0x000F::0x0000::NOSERIAL::INSTR");
    char name[VisaNameLength];
    CopyResourceName(std::string(300, 'x'), name);
    EXPECT_EQ(name, std::string(255, 'x'));
}

TEST(VisaNamesTest, ExpressionsSelect) {
    for (const char* expression : {"?*", "usb?*::1?*instr", "USB0*::??::1::INSTR", "USBx*0::?*"}) {
        EXPECT_TRUE(MatchesExpression(expression, "USB0::2x::1::INSTR")) << expression;
    }
    for (const char* expression : {"", "USB", "USB?*RAW", "USB0::2x::1::INSTR?", "?"}) {
        EXPECT_FALSE(MatchesExpression(expression, "USB0::2x::1::INSTR")) << expression;
    }
}

TEST(UsbTmcFramesTest, Bytes) {
    const std::uint8_t text[] = {'*', 'I', 'D', 'N', '?'};
    EXPECT_THAT(FrameMessage(0x21, text), ElementsAre(1, 0x21, 0xDE, 0, 5, 0, 0, 0, 1, 0, 0, 0, '*',
                                                      'I', 'D', 'N', '?', 0, 0, 0));
    EXPECT_EQ(FrameMessage(1, std::span(text).first(4)).size(), 16U);
    EXPECT_THAT(FrameRequest(255, 0x100000), ElementsAre(2, 255, 0, 0, 0, 0, 16, 0, 0, 0, 0, 0));
    EXPECT_EQ(NextTag(255), 1);
}

TEST(UsbTmcFramesTest, ReplyHeaders) {
    const std::vector<std::uint8_t> good = {2, 7, 0xF8, 0, 4, 3, 2, 1, 1, 0, 0, 0, 'd'};
    ASSERT_TRUE(ReadReplyHeader(good, 7));
    EXPECT_EQ(ReadReplyHeader(good, 7)->Size, 0x01020304U);
    EXPECT_TRUE(ReadReplyHeader(good, 7)->EndOfMessage);
    EXPECT_FALSE(ReadReplyHeader(std::span(good).first(11), 7));
    for (const int place : {0, 1, 2}) {
        auto bad = good;
        ++bad[place];
        EXPECT_FALSE(ReadReplyHeader(bad, 7)) << place;
    }
}

}  // namespace
