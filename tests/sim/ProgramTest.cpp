#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "platform/TempFolder.h"

// The program itself, run in a folder of its own, spoken to as an editor does.
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr int Patience = 5000, Impatience = 100;  // milliseconds

class ProgramTest : public TempFolderTest {
protected:
    ProgramTest() { setenv("TIDEMARK_SIM_DIR", place.c_str(), 1); }
    ~ProgramTest() override {
        if (process > 0) End(SIGKILL);
    }

    void Spawn(const std::string& arguments = "") {
        const std::string line = "exec </dev/null >/dev/null 2>&1 '" TIDEMARK_SIM "' --serial T1 ";
        process = fork();
        if (process != 0) return;
        execl("/bin/sh", "sh", "-c", (line + arguments).c_str(), nullptr);
        _exit(127);
    }
    void Start(const std::string& arguments = "") {
        Spawn(arguments);
        for (int tries = 0; tries < 500; ++tries) {
            if (close(Connect()) == 0) return;
            usleep(10000);
        }
        FAIL() << "no socket";
    }
    int AwaitEnd() {
        int status = 0;
        waitpid(std::exchange(process, 0), &status, 0);
        return status;
    }
    int End(int signal) {
        kill(process, signal);
        return AwaitEnd();
    }
    int Connect() const {
        sockaddr_un address = {AF_UNIX, {}};
        std::strcpy(address.sun_path, socketPath.c_str());
        const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return fd;
        close(fd);
        return -1;
    }
    static std::string Read(int fd, std::size_t count, int patience = Patience) {
        std::string bytes;
        pollfd watched = {fd, POLLIN, 0};
        while (bytes.size() < count && poll(&watched, 1, patience) > 0) {
            char next = 0;
            if (read(fd, &next, 1) != 1) break;
            bytes += next;
        }
        return bytes;
    }
    static void Write(int fd, const std::string& bytes) {
        ASSERT_EQ(write(fd, bytes.data(), bytes.size()), std::ssize(bytes));
    }
    // A connection of its own for one frame and its answer.
    std::string Exchange(const std::string& frame, std::size_t count, int patience = Patience) {
        const int fd = Connect();
        Write(fd, frame);
        std::string answer = Read(fd, count, patience);
        close(fd);
        return answer;
    }

    const std::string place = PathOf("sims");
    const std::string socketPath = place + "/USB0::0x0000::0x3300::T1::INSTR";
    pid_t process = 0;
};

TEST_F(ProgramTest, UsbKeepsAReplyBetweenConnections) {
    Start();
    EXPECT_EQ(fs::status(place).permissions(), fs::perms(0700));
    EXPECT_EQ(Exchange("W\x05\0\0\0*IDN?"s, 5), "A\x05\0\0\0"s);
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
    EXPECT_EQ(Exchange("R\x06\0\0\0"s, 11), "D\x06\0\0\0NORVIK"s);
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 38), "D\x21\0\0\0 TECHNOLOGIE,KT3300,T1,08.06.073\n"s);
    Exchange("W\x05\0\0\0*IDN?"s, 5);
    Exchange("W\x08\0\0\0VOLTage?"s, 5);  // the identification is lost
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 7), "D\x02\0\0\0001\n"s);
    EXPECT_TRUE(End(SIGTERM) == 0 && fs::is_empty(place));
}

TEST_F(ProgramTest, ReadWaitsAndIsForgottenWithItsConnection) {
    Start();
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 1, Impatience), "");
    const int waiting = Connect();
    Write(waiting, "R\xC8\0\0\0"s);
    EXPECT_EQ(Read(waiting, 1, Impatience), "");
    EXPECT_EQ(Exchange("W\x08\0\0\0VOLTage?"s, 5), "A\x08\0\0\0"s);
    EXPECT_EQ(Read(waiting, 7), "D\x02\0\0\0001\n"s);
    Write(waiting, "X\0\0\0\0"s);
    EXPECT_EQ(Read(waiting, 1), "");  // hangs up on what it does not know
    close(waiting);
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
}

TEST_F(ProgramTest, SerialLineOutlivesItsEditors) {
    Start();
    const std::string answers = "PARSE FINISHED\n1\n";
    for (int editor = 0; editor < 2; ++editor) {
        const int fd = open((place + "/tty-T1").c_str(), O_RDWR | O_NOCTTY);
        ASSERT_GE(fd, 0);
        Write(fd, "DATA:DAC Volatile,1,2\r\nDATA:LOAD VOLATILE\rVOLTage?\r");
        EXPECT_EQ(Read(fd, answers.size()), answers);
        close(fd);
    }
    EXPECT_TRUE(End(SIGINT) == 0 && fs::is_empty(place));
}

TEST_F(ProgramTest, NameIsTakenOnlyWhileSomebodyRuns) {
    Start();
    const pid_t first = process;
    Spawn("--model KT1100");  // the same serial number
    EXPECT_EQ(WEXITSTATUS(AwaitEnd()), 1);
    process = first;
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
    End(SIGKILL);
    EXPECT_TRUE(fs::exists(socketPath));
    Start();
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
}

TEST_F(ProgramTest, RepliesComeLateOrNotAtAllOrItIsUnplugged) {
    Start("--fault slow=300");
    Exchange("W\x08\0\0\0VOLTage?"s, 5);
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 1, Impatience), "");
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 7), "D\x02\0\0\0001\n"s);
    End(SIGTERM);
    Start("--fault lost-read --fault drop-after=2");
    Exchange("W\x08\0\0\0VOLTage?"s, 5);
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 5), "D\0\0\0\0"s);
    EXPECT_EQ(Exchange("W\x05\0\0\0*IDN?"s, 5), "A\x05\0\0\0"s);
    EXPECT_TRUE(WIFEXITED(AwaitEnd()) && fs::is_empty(place));
}

}  // namespace
