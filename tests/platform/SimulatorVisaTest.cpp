#include "platform/SimulatorVisa.h"

#include "platform/SimulatorPlace.h"
#include "platform/TempFolder.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <tuple>

namespace {

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

// The base has a manager, 10, and finds one instrument in a list, 12.
class SimulatorVisaTest : public TempFolderTest {
protected:
    SimulatorVisaTest() {
        setenv("TIDEMARK_SIM_DIR", folder.c_str(), 1);
        VisaApi base = TheVisa();
        base.viOpenDefaultRM = [](ViSession*) { return VisaSystemError; };
        base.viFindRsrc = [this](auto, auto, ViSession*, std::uint32_t* count, char* to) {
            *count = 1;
            strcpy(to, "GPIB0::1::INSTR");
            return baseFinds;
        };
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
    ViStatus Read(ViSession session, std::uint32_t most) {
        return visa.viRead(session, buffer, most, &moved);
    }
    ViStatus Find(ViSession manager, const char* expression) {
        return visa.viFindRsrc(manager, expression, &list, &moved, name);
    }
    void Say(std::string_view bytes) const {
        EXPECT_GT(send(peer, bytes.data(), bytes.size(), 0), 0);
    }
    std::string Hear() const {
        char bytes[100];
        const ssize_t count = recv(peer, bytes, sizeof bytes, MSG_DONTWAIT);
        return count < 0 ? "nothing" : std::string(bytes, static_cast<std::size_t>(count));
    }

    VisaApi visa;
    ViStatus baseFinds = VisaSuccess;
    int listener = ListenAt(PathOf(Name)), peer = -1;
    ViSession list = 0;
    std::uint32_t moved = 0;
    std::uint8_t buffer[300] = {'*', 'O', 'N'};
    char name[VisaNameLength] = "";
};

TEST_F(SimulatorVisaTest, StandsBehindTheInstrumentsOfTheBase) {
    close(ListenAt(PathOf("USB0::0x0000::0x1100::GONE::INSTR")));  // left by a killed simulator
    for (const char* port : {"tty-SIM1", "tty-GONE"})
        std::filesystem::create_symlink("/dev/null", PathOf(port));
    EXPECT_EQ(SimulatorPorts(), std::vector{PathOf("tty-SIM1")});
    EXPECT_TRUE(Find(10, "?*") == VisaSuccess && moved == 2U);
    EXPECT_STREQ(name, "GPIB0::1::INSTR");
    EXPECT_TRUE(visa.viFindNext(list, name) == VisaSuccess && name == Name);
    EXPECT_EQ(visa.viFindNext(list, name), VisaNotFound);
    baseFinds = VisaNotFound;
    EXPECT_EQ(Find(10, "GPIB?*"), VisaNotFound);

    ViSession manager = 0;
    EXPECT_EQ(visa.viOpenDefaultRM(&manager), VisaSuccess);  // for the simulator alone
    EXPECT_TRUE(Find(manager, "?*") == VisaSuccess && name == Name);
    close(std::exchange(listener, -1));
    EXPECT_EQ(visa.viOpenDefaultRM(&manager), VisaSystemError);
    EXPECT_EQ(visa.viOpen(10, Name.c_str(), 0, 0, &list), VisaNotFound);
}

TEST_F(SimulatorVisaTest, ExchangesMessages) {
    const ViSession session = Open();
    Say("A\3\0\0\0"sv);
    EXPECT_EQ(visa.viWrite(session, buffer, 3, &moved), VisaSuccess);
    EXPECT_EQ(Hear(), "W\3\0\0\0*ON"sv);
    const std::tuple<std::string_view, std::uint32_t, ViStatus, std::uint32_t> rows[] = {
        {"D\2\0\0\0KT"sv, 300, VisaSuccess, 2},
        {"D\2\0\0\0KT"sv, 2, VisaEndBySize, 2},
        {"D\3\0\0\0KTx"sv, 2, VisaIoError, 0}};
    for (const auto& [answer, most, status, count] : rows) {
        Say(answer);
        EXPECT_TRUE(Read(session, most) == status && moved == count) << answer;
    }
    EXPECT_TRUE(buffer[1] == 'T' && Hear() == "R\x2C\1\0\0R\2\0\0\0R\2\0\0\0"sv);
}

TEST_F(SimulatorVisaTest, AGoneSimulatorIsLostAndSilenceTimesOutOnANewConnection) {
    const ViSession session = Open();
    close(peer);
    EXPECT_TRUE(Read(session, 1) == VisaConnectionLost && Read(session, 1) == VisaTimeOut);
    peer = accept(listener, nullptr, nullptr);
    EXPECT_EQ(Hear(), "R\1\0\0\0"sv);
    EXPECT_EQ(Hear(), "");  // closed, so that the simulator stops waiting
    close(std::exchange(listener, -1));
    EXPECT_EQ(visa.viWrite(session, buffer, 1, &moved), VisaConnectionLost);
    EXPECT_EQ(visa.viClose(session), VisaSuccess);
}

}  // namespace
