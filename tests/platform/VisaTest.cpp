#include "platform/UsbTmcFrames.h"
#include "platform/VisaLibrary.h"
#include "platform/VisaNames.h"

#include <gmock/gmock.h>
#include <stdlib.h>

namespace {

using ::testing::ElementsAre;

// The folder of the stand-ins is in LD_LIBRARY_PATH. The one without viRead must not be taken.
TEST(VisaLibraryTest, TakesTheFirstCompleteLibrary) {
    if (getenv("LD_LIBRARY_PATH") == nullptr) GTEST_SKIP() << "started by hand";
    setenv("TIDEMARK_SIM_DIR", "/nowhere", 1);
    const VisaApi visa = LoadVisa();
    EXPECT_EQ(visa.viOpenDefaultRM(nullptr), 1) << "LD_LIBRARY_PATH: libvisa of the build";
    EXPECT_EQ(visa.viFindRsrc(5, "", nullptr, nullptr, nullptr), -2);
    EXPECT_EQ(visa.viFindNext(5, nullptr), 3);
    EXPECT_EQ(visa.viOpen(5, "four", 3, 7, nullptr), 5437);
    EXPECT_EQ(visa.viSetAttribute(1, 20, 300), 321);
    EXPECT_EQ(visa.viWrite(1000, nullptr, 100, nullptr), 6);
    EXPECT_EQ(visa.viRead(1000, nullptr, 100, nullptr), 7);
    EXPECT_EQ(visa.viClose(5), 8);
}

TEST(VisaNamesTest, SerialNumbersBecomeSafe) {
    EXPECT_EQ(UsbResourceName(0xF, 0, " \xC3\xA9/ 1:\x01\n"),
              "USB0::0x000F::0x0000::__/_1__::INSTR");
    EXPECT_EQ(UsbResourceName(0xF, 0, " \n"), "USB0::0x000F::0x0000::NOSERIAL::INSTR");
    char name[VisaNameLength];
    FoundNames found{0, {std::string(300, 'x')}};
    EXPECT_EQ(NextName(found, name), VisaSuccess);
    EXPECT_EQ(name, std::string(255, 'x'));
}

TEST(VisaNamesTest, ExpressionsSelect) {
    constexpr std::string_view Name = "USB0::2x::1::INSTR";
    for (const char* expression : {"?*", "usb?*::1?*instr", "USB0*::??::1::INSTR", "USBx*0::?*"})
        EXPECT_TRUE(MatchesExpression(expression, Name)) << expression;
    for (const char* expression : {"", "USB", "USB?*RAW", "USB0::2x::1::INSTR?", "?"})
        EXPECT_FALSE(MatchesExpression(expression, Name)) << expression;
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
    const auto reply = ReadReplyHeader(good, 7);
    EXPECT_TRUE(reply && reply->Size == 0x01020304U && reply->EndOfMessage);
    EXPECT_FALSE(ReadReplyHeader(std::span(good).first(11), 7));
    for (const int place : {0, 1, 2}) {
        auto bad = good;
        ++bad[place];
        EXPECT_FALSE(ReadReplyHeader(bad, 7)) << place;
    }
}

}  // namespace
