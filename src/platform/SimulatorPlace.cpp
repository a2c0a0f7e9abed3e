#include "platform/SimulatorPlace.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view NameStart = "USB0::";
constexpr std::string_view NameEnd = "::INSTR";

bool IsResourceName(std::string_view name) {
    return name.starts_with(NameStart) && name.ends_with(NameEnd) &&
           name.find('/') == std::string_view::npos;
}

bool IsOfKind(const std::string& path, mode_t kind) {
    struct stat status;
    return stat(path.c_str(), &status) == 0 && (status.st_mode & S_IFMT) == kind;
}

// "SERIAL" of "USB0::0x0000::0x3300::SERIAL::INSTR".
std::string SerialOf(std::string_view name) {
    name.remove_suffix(NameEnd.size());
    return std::string(name.substr(name.rfind(':') + 1));
}

// A simulator that is busy with something else has a queue, which may be full.
bool IsAnswered(const std::string& socket) {
    const int connection = ConnectSimulator(socket);
    if (connection >= 0) close(connection);
    return connection >= 0 || errno == EAGAIN;
}

}  // namespace

std::string SimulatorFolder() {
    const char* chosen = std::getenv("TIDEMARK_SIM_DIR");
    const char* runTime = std::getenv("XDG_RUNTIME_DIR");
    std::string folder = "/tmp/tidemark-sim-" + std::to_string(geteuid());
    if (runTime != nullptr && *runTime != '\0') folder = std::string(runTime) + "/tidemark-sim";
    if (chosen != nullptr && *chosen != '\0') folder = chosen;
    // Everybody may write into /tmp: the folder itself counts, not where a link leads.
    struct stat status;
    if (lstat(folder.c_str(), &status) != 0) return {};
    return S_ISDIR(status.st_mode) && status.st_uid == geteuid() ? folder : std::string();
}

std::vector<std::string> SimulatorResources() {
    std::vector<std::string> names;
    const std::string folder = SimulatorFolder();
    if (folder.empty()) return names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        const std::string socket = SimulatorSocket(name);
        if (!socket.empty() && IsAnswered(socket)) names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
}

std::vector<std::string> SimulatorPorts() {
    std::vector<std::string> ports;
    for (const std::string& name : SimulatorResources()) {
        const std::string port = SimulatorFolder() + "/tty-" + SerialOf(name);
        if (IsOfKind(port, S_IFCHR)) ports.push_back(port);
    }
    return ports;
}

std::string SimulatorSocket(std::string_view resource) {
    if (!IsResourceName(resource)) return {};
    const std::string folder = SimulatorFolder();
    if (folder.empty()) return {};
    const std::string path = folder + "/" + std::string(resource);
    return IsOfKind(path, S_IFSOCK) ? path : std::string();
}

int ConnectSimulator(const std::string& socket) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socket.size() >= sizeof address.sun_path) {
        errno = ENAMETOOLONG;
        return -1;
    }
    std::ranges::copy(socket, address.sun_path);
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (connection < 0) return -1;
    const auto* where = reinterpret_cast<const sockaddr*>(&address);
    if (connect(connection, where, sizeof address) == 0) return connection;
    const int error = errno;
    close(connection);
    errno = error;
    return -1;
}
