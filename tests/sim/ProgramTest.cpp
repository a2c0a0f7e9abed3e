#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include <gtest/gtest.h>

// The program itself, run in a folder of its own, spoken to as an editor does.
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;

constexpr int Patience = 5000, Impatience = 100;  // milliseconds

class ProgramTest : public ::testing::Test {
protected:
    void SetUp() override {
        std::string name = testing::TempDir() + "simXXXXXX";
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        setenv("TIDEMARK_SIM_DIR", (folder = name + "/sims").c_str(), 1);
        socketPath = folder + "/USB0::0x0000::0x3300::T1::INSTR";
        terminalPath = folder + "/tty-T1";
    }
    void TearDown() override {
        if (process > 0) End(SIGKILL);
        fs::remove_all(fs::path(folder).parent_path());
    }

    pid_t Spawn(std::vector<const char*> arguments) {
        arguments.insert(arguments.begin(), {TIDEMARK_SIM, "--serial", "T1"});
        arguments.push_back(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            const int nothing = open("/dev/null", O_RDWR);
            for (const int stream : {0, 1, 2}) dup2(nothing, stream);
            execv(TIDEMARK_SIM, const_cast<char**>(arguments.data()));
            _exit(127);
        }
        return child;
    }
    void Start(std::vector<const char*> arguments = {}) {
        process = Spawn(std::move(arguments));
        for (int tries = 0; tries < 500; ++tries) {
            const int connection = Connect();
            if (connection >= 0) {
                close(connection);
                return;
            }
            usleep(10000);
        }
        FAIL() << "no socket";
    }
    int End(int signal) {
        int status = 0;
        kill(process, signal);
        waitpid(std::exchange(process, 0), &status, 0);
        return status;
    }
    int Connect() const {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
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
    std::string Exchange(const std::string& frame, std::size_t count) const {
        const int fd = Connect();
        Write(fd, frame);
        std::string answer = Read(fd, count);
        close(fd);
        return answer;
    }

    std::string folder, socketPath, terminalPath;
    pid_t process = 0;
};

TEST_F(ProgramTest, UsbKeepsAReplyBetweenConnections) {
    Start();
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms(0700));
    EXPECT_EQ(Exchange("W\x05\0\0\0*IDN?"s, 5), "A\x05\0\0\0"s);
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
    EXPECT_EQ(Exchange("R\x06\0\0\0"s, 11), "D\x06\0\0\0NORVIK"s);
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 38), "D\x21\0\0\0 TECHNOLOGIE,KT3300,T1,08.06.073\n"s);
    Exchange("W\x05\0\0\0*IDN?"s, 5);
    Exchange("W\x08\0\0\0VOLTage?"s, 5);  // the identification is lost
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 7), "D\x02\0\0\0001\n"s);
    EXPECT_EQ(End(SIGTERM), 0);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(ProgramTest, ReadWaitsAndIsForgottenWithItsConnection) {
    Start();
    const int gone = Connect(), waiting = Connect();
    Write(gone, "R\xC8\0\0\0"s);
    EXPECT_EQ(Read(gone, 1, Impatience), "");
    close(gone);
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
    for (const char* answer : {"PARSE FINISHED\n", "PARSE FINISHED\n"}) {
        const int fd = open(terminalPath.c_str(), O_RDWR | O_NOCTTY);
        ASSERT_GE(fd, 0);
        Write(fd, "DATA:DAC Volatile,1,2\r\n");
        EXPECT_EQ(Read(fd, std::strlen(answer)), answer);
        Write(fd, "DATA:LOAD VOLATILE\rVOLTage?\r");
        EXPECT_EQ(Read(fd, 2), "1\n");
        close(fd);
    }
    EXPECT_EQ(End(SIGINT), 0);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(ProgramTest, NameIsTakenOnlyWhileSomebodyRuns) {
    Start();
    int status = 0;
    waitpid(Spawn({"--model", "KT1100"}), &status, 0);  // the same serial number
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
    End(SIGKILL);
    EXPECT_TRUE(fs::exists(socketPath));
    Start();
    EXPECT_EQ(Exchange("W\0\0\0\0"s, 5), "A\0\0\0\0"s);
}

TEST_F(ProgramTest, DropsAfterItsCommands) {
    Start({"--fault", "drop-after=2"});
    Exchange("W\x05\0\0\0*IDN?"s, 5);
    EXPECT_EQ(Exchange("R\x01\0\0\0"s, 6), "D\x01\0\0\0N"s);
    EXPECT_EQ(Exchange("W\x05\0\0\0*IDN?"s, 5), "A\x05\0\0\0"s);
    int status = 0;
    waitpid(std::exchange(process, 0), &status, 0);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(ProgramTest, RepliesComeLateOrNotAtAll) {
    Start({"--fault", "slow=300"});
    Exchange("W\x08\0\0\0VOLTage?"s, 5);
    const int fd = Connect();
    Write(fd, "R\xC8\0\0\0"s);
    EXPECT_EQ(Read(fd, 7, Impatience), "");
    EXPECT_EQ(Read(fd, 7), "D\x02\0\0\0001\n"s);
    close(fd);
    End(SIGTERM);
    Start({"--fault", "lost-read"});
    Exchange("W\x08\0\0\0VOLTage?"s, 5);
    EXPECT_EQ(Exchange("R\xC8\0\0\0"s, 5), "D\0\0\0\0"s);
}

TEST_F(ProgramTest, RefusesAFolderThatIsNone) {
    const std::string file = folder + "x";
    close(open(file.c_str(), O_CREAT | O_WRONLY, 0600));
    for (const std::string& place : {file, folder + std::string(100, 'y'), "/"s}) {
        setenv("TIDEMARK_SIM_DIR", place.c_str(), 1);
        if (place == "/" && getuid() == 0) continue;  // root's own
        int status = 0;
        waitpid(Spawn({}), &status, 0);
        EXPECT_EQ(WEXITSTATUS(status), 1) << place;
    }
    EXPECT_TRUE(fs::is_regular_file(file));
}

}  // namespace
