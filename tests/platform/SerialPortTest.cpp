#include "platform/qt/SerialPort.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <cstdlib>
#include <QCoreApplication>
#include <QDeadlineTimer>

namespace {

// The port on one end of a pseudo-terminal; the instrument holds the other end.
class SerialPortTest : public ::testing::Test {
protected:
    SerialPortTest() {
        unlockpt(instrument);
        TheSerialPort().OnEvent = [this](std::int16_t code, std::string_view bytes) {
            code == SerialInput ? received += bytes : events += std::to_string(code) + ' ';
        };
    }
    ~SerialPortTest() override {
        close(instrument);
        TheSerialPort() = former;
    }
    /// Runs events until it is so; false after two seconds.
    template <typename So>
    static bool PumpUntil(So so) {
        for (const QDeadlineTimer end(2000); !end.hasExpired(); QCoreApplication::processEvents())
            if (so()) return true;
        return false;
    }

    int argc = 0;
    QCoreApplication app{argc, nullptr};
    const SerialPort former = TheSerialPort();
    const SerialPort port = QtSerialPort();
    int instrument = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    const std::string device = ptsname(instrument);
    std::string received, events;
};

TEST_F(SerialPortTest, LinesGoBothWaysRawUntilTheHangUp) {
    ASSERT_EQ(port.Open(device, "19200,n,8,1"), "");
    ASSERT_EQ(port.Output("*IDN?\r"), "");
    char sent[20] = {};
    EXPECT_TRUE(PumpUntil([&] { return read(instrument, sent, sizeof sent) > 0; }));
    EXPECT_STREQ(sent, "*IDN?\r");
    ASSERT_EQ(write(instrument, "KT\r\n\x03\xFF", 6), 6);
    EXPECT_TRUE(PumpUntil([&] { return received == "KT\r\n\x03\xFF"; }));
    port.Close();
    EXPECT_EQ(port.Output("x"), "The port is not open");
    ASSERT_EQ(port.Open(device, "9600,n,8,1"), "");
    close(std::exchange(instrument, -1));
    EXPECT_TRUE(PumpUntil([&] { return !port.IsOpen(); }));
    EXPECT_EQ(port.Output("x"), "The port was lost");
    EXPECT_EQ(events, "7 ");
}

TEST_F(SerialPortTest, RefusedOpeningSaysWhy) {
    EXPECT_EQ(port.Open("/dev/no-such-line", "9600,n,8,1"), "No such file or directory");
    for (const std::string settings : {"0,n,8,1", "9600,x,8,1", "9600,n,9,1", "9600,n,8"})
        EXPECT_EQ(port.Open(device, settings), "Invalid line settings: " + settings);
}

}  // namespace
