#include "platform/SimulatorVisa.h"

#include "platform/SimulatorPlace.h"
#include "platform/TempFolder.h"

#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>

namespace {

using ::testing::ElementsAre;
using namespace std::string_view_literals;

const std::string Name = "USB0::0x0000::0x3300::SIM1::INSTR";

int ListenAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(listen(listener, 1), 0);
    return listener;
}

// The base has a manager, 10, one instrument, 11, and a find list, 12.
class SimulatorVisaTest : public TempFolderTest {
protected:
    SimulatorVisaTest() {
        setenv("TIDEMARK_SIM_DIR", folder.c_str(), 1);
        VisaApi base = TheVisa();
        base.viOpenDefaultRM = [](ViSession*) { return VisaSystemError; };
        base.viFindRsrc = [this](ViSession, const char*, ViSession* list, std::uint32_t* count,
                                 char* name) {
            *list = 12;
            *count = 1;
            strcpy(name, "GPIB0::1::INSTR");
            return baseFinds;
        };
        base.viOpen = [](auto, auto, auto, auto, ViSession*) { return 11; };
        base.viClose = [](ViSession session) { return static_cast<ViStatus>(session); };
        visa = AddSimulators(base);
    }
    ~SimulatorVisaTest() override { close(listener); }

    // Opens the simulator; the test plays its part on `peer`.
    ViSession Open() {
        ViSession session = 0;
        EXPECT_EQ(visa.viOpen(10, Name.c_str(), 0, 0, &session), VisaSuccess);
        peer = accept(listener, nullptr, nullptr);
        visa.viSetAttribute(session, VisaTimeOutValue, 100);
        return session;
    }
    void Say(std::string_view bytes) { EXPECT_GT(send(peer, bytes.data(), bytes.size(), 0), 0); }
    std::string Hear() {
        char bytes[100];
        const ssize_t count = recv(peer, bytes, sizeof bytes, MSG_DONTWAIT);
        return count < 0 ? "nothing" : std::string(bytes, static_cast<std::size_t>(count));
    }

    VisaApi visa;
    ViStatus baseFinds = VisaSuccess;
    int listener = ListenAt(PathOf(Name)), peer = -1;
    std::uint32_t moved = 0;
    std::uint8_t buffer[300] = {'*', 'O', 'N'};
};

TEST_F(SimulatorVisaTest, StandsBehindTheInstrumentsOfTheBase) {
    close(ListenAt(PathOf("USB0::0x0000::0x1100::GONE::INSTR")));  // left by a killed simulator
    std::filesystem::create_symlink("/dev/null", PathOf("tty-SIM1"));
    std::filesystem::create_symlink("/dev/null", PathOf("tty-GONE"));
    EXPECT_THAT(SimulatorPorts(), ElementsAre(PathOf("tty-SIM1")));
    char name[VisaNameLength];
    ViSession list = 0, manager = 0;
    EXPECT_EQ(visa.viFindRsrc(10, "?*", &list, &moved, name), VisaSuccess);
    EXPECT_EQ(moved, 2U);
    EXPECT_STREQ(name, "GPIB0::1::INSTR");
    EXPECT_EQ(visa.viFindNext(list, name), VisaSuccess);
    EXPECT_EQ(name, Name);
    EXPECT_EQ(visa.viFindNext(list, name), VisaNotFound);
    EXPECT_EQ(visa.viClose(list), VisaSuccess);
    EXPECT_EQ(visa.viOpen(10, "GPIB0::1::INSTR", 0, 0, &list), 11);
    EXPECT_EQ(visa.viClose(11), 11);

    baseFinds = VisaNotFound;
    EXPECT_EQ(visa.viFindRsrc(10, "?*", &list, &moved, name), VisaSuccess);
    EXPECT_EQ(name, Name);
    EXPECT_EQ(visa.viFindRsrc(10, "GPIB?*", &list, &moved, name), VisaNotFound);
    EXPECT_EQ(visa.viOpenDefaultRM(&manager), VisaSuccess);  // for the simulator alone
    EXPECT_EQ(visa.viFindRsrc(manager, "?*", &list, &moved, name), VisaSuccess);
    close(std::exchange(listener, -1));
    EXPECT_EQ(visa.viOpenDefaultRM(&manager), VisaSystemError);
    EXPECT_EQ(visa.viOpen(10, Name.c_str(), 0, 0, &list), VisaNotFound);
}

TEST_F(SimulatorVisaTest, ExchangesMessages) {
    const ViSession session = Open();
    Say("A\3\0\0\0"sv);
    EXPECT_EQ(visa.viWrite(session, buffer, 3, &moved), VisaSuccess);
    EXPECT_EQ(moved, 3U);
    EXPECT_EQ(Hear(), "W\3\0\0\0*ON"sv);
    Say("D\2\0\0\0KT"sv);
    EXPECT_EQ(visa.viRead(session, buffer, 300, &moved), VisaSuccess);
    EXPECT_EQ(moved, 2U);
    EXPECT_EQ(buffer[1], 'T');
    EXPECT_EQ(Hear(), "R\x2C\1\0\0"sv);
    Say("D\2\0\0\0KT"sv);
    EXPECT_EQ(visa.viRead(session, buffer, 2, &moved), VisaEndBySize);
    Say("D\3\0\0\0KTx"sv);
    EXPECT_EQ(visa.viRead(session, buffer, 2, &moved), VisaIoError);
    EXPECT_EQ(moved, 0U);
}

TEST_F(SimulatorVisaTest, SilenceTimesOutAndAGoneSimulatorIsLost) {
    const ViSession session = Open();
    EXPECT_EQ(visa.viRead(session, buffer, 1, &moved), VisaTimeOut);
    EXPECT_EQ(moved, 0U);
    EXPECT_EQ(Hear(), "R\1\0\0\0"sv);
    EXPECT_EQ(Hear(), "");  // closed, so that the simulator stops waiting

    std::thread player([&] {
        peer = accept(listener, nullptr, nullptr);
        Say("A\0\0\0\0"sv);
    });
    EXPECT_EQ(visa.viWrite(session, buffer, 0, &moved), VisaSuccess);
    player.join();
    close(peer);
    EXPECT_EQ(visa.viRead(session, buffer, 1, &moved), VisaConnectionLost);
    close(std::exchange(listener, -1));
    EXPECT_EQ(visa.viWrite(session, buffer, 1, &moved), VisaConnectionLost);
    EXPECT_EQ(visa.viClose(session), VisaSuccess);
}

}  // namespace
