#include "platform/qt/SerialPort.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>
#include <cstdlib>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

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
    /// Runs events and takes in what was sent until it is so; false after two seconds.
    template <typename So>
    bool PumpUntil(So so) {
        const QDeadlineTimer end(2000);
        QTimer wake;
        for (wake.start(5); !so() && !end.hasExpired();) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            char bytes[4096];
            const auto count = read(instrument, bytes, sizeof bytes);
            if (count > 0) sent.append(bytes, static_cast<std::size_t>(count));
        }
        return so();
    }

    int argc = 0;
    QCoreApplication app{argc, nullptr};
    const SerialPort former = TheSerialPort();
    const SerialPort port = QtSerialPort();
    int instrument = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    const std::string device = ptsname(instrument);
    std::string sent, received, events;
};

TEST_F(SerialPortTest, LinesGoBothWaysRawUntilTheHangUp) {
    ASSERT_EQ(port.Open(device, "19200,n,8,1"), "");
    ASSERT_EQ(port.Output("*IDN?\r"), "");
    ASSERT_EQ(write(instrument, "KT\r\n\x03\xFF", 6), 6);
    EXPECT_TRUE(PumpUntil([&] { return sent == "*IDN?\r" && received == "KT\r\n\x03\xFF"; }));
    port.Close();
    EXPECT_EQ(port.Output("x"), "The port is not open");
    ASSERT_EQ(port.Open(device, "9600,n,8,1"), "");
    close(std::exchange(instrument, -1));
    EXPECT_TRUE(PumpUntil([&] { return !port.IsOpen(); }));
    EXPECT_EQ(port.Output("x"), "The port was lost");
    EXPECT_EQ(events, "7 ");
}

TEST_F(SerialPortTest, SlowReaderLosesNothing) {
    ASSERT_EQ(port.Open(device, "9600,n,8,1"), "");
    std::string whole;
    for (int i = 10000; i < 50000; ++i) whole += std::to_string(i);
    for (std::size_t at = 0; at < whole.size(); at += 2000)
        ASSERT_EQ(port.Output(std::string_view(whole).substr(at, 2000)), "");
    EXPECT_TRUE(PumpUntil([&] { return sent == whole; })) << sent.size();
}

TEST_F(SerialPortTest, RefusedOpeningSaysWhy) {
    EXPECT_EQ(port.Open("/dev/no-such-line", "9600,n,8,1"), "No such file or directory");
    for (const std::string settings : {"0,n,8,1", "9600,x,8,1", "9600,n,9,1", "9600,n,8"})
        EXPECT_EQ(port.Open(device, settings), "Invalid line settings: " + settings);
}

}  // namespace
