#include "Place.h"

#include <dirent.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace sim {

namespace {

std::string FolderName() {
    if (const char* own = std::getenv("TIDEMARK_SIM_DIR"); own && *own) return own;
    if (const char* runTime = std::getenv("XDG_RUNTIME_DIR"); runTime && *runTime) {
        return std::string(runTime) + "/tidemark-sim";
    }
    return "/tmp/tidemark-sim-" + std::to_string(getuid());
}

std::string MakeFolder(const std::string& folder) {
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
        return "cannot make the folder " + folder + ": " + std::strerror(errno);
    }
    struct stat info = {};
    if (lstat(folder.c_str(), &info) != 0) return folder + ": " + std::strerror(errno);
    if (!S_ISDIR(info.st_mode)) return folder + " is not a folder";
    if (info.st_uid != getuid()) return "the folder " + folder + " belongs to another user";
    return {};
}

/// Whether somebody listens. A socket that a killed simulator has left refuses the connection.
bool IsAnswered(const std::string& path) {
    sockaddr_un address = {};
    if (path.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    const int probe = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (probe < 0) return false;
    const bool refused =
        connect(probe, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
        errno != EAGAIN;
    close(probe);
    return !refused;
}

/// Sockets of this serial number, whatever the model: they would share the terminal's name.
std::vector<std::string> SocketsOf(const std::string& folder, const std::string& serial) {
    std::vector<std::string> paths;
    const std::string ending = "::" + serial + "::INSTR";
    DIR* listing = opendir(folder.c_str());
    if (!listing) return paths;
    while (const dirent* entry = readdir(listing)) {
        const std::string_view name = entry->d_name;
        if (!name.starts_with("USB0::") || !name.ends_with(ending)) continue;
        paths.push_back(folder);
        paths.back().append("/").append(name);
    }
    closedir(listing);
    return paths;
}

}  // namespace

std::string PreparePlace(const Identity& id, Place& place) {
    const std::string folder = FolderName();
    place = {folder + "/" + ResourceOf(id), folder + "/tty-" + id.Serial};
    if (place.SocketPath.size() >= sizeof(sockaddr_un::sun_path)) {
        return "the path is too long for a socket: " + place.SocketPath;
    }
    if (std::string error = MakeFolder(folder); !error.empty()) return error;
    const auto sockets = SocketsOf(folder, id.Serial);
    for (const std::string& path : sockets) {
        if (IsAnswered(path)) return "a simulator runs already: " + path;
    }
    for (const std::string& path : sockets) unlink(path.c_str());
    unlink(place.TerminalPath.c_str());
    return {};
}

void LeavePlace(const Place& place) {
    unlink(place.SocketPath.c_str());
    unlink(place.TerminalPath.c_str());
}

}  // namespace sim
