#include "platform/SessionFolder.h"

#include "platform/SafeFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

// Between the making of a folder and its lock another run may take it for one that was left, lock
// it first and remove it. A lock therefore only counts while its file still has a name.

namespace {

namespace fs = std::filesystem;

constexpr std::string_view LockName = "lock", FolderStart = "run-";
constexpr int FolderTries = 10;

// Returns 0, or the system's error number: EWOULDBLOCK for a folder that is held.
int Hold(const std::string& path, SessionFolder& folder) {
    const std::string file = (fs::path(path) / LockName).string();
    const int handle = open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (handle < 0) return errno;
    struct stat status {};
    int error = flock(handle, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
    if (error == 0 && fstat(handle, &status) != 0) error = errno;
    if (error == 0 && status.st_nlink == 0) error = EWOULDBLOCK;
    if (error != 0) {
        close(handle);
        return error;
    }
    folder = {path, handle};
    return 0;
}

std::vector<fs::directory_entry> EntriesOf(const std::string& path) {
    std::error_code error;
    std::vector<fs::directory_entry> entries;
    for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error))
        entries.push_back(*at);
    std::ranges::sort(entries);
    return entries;
}

}  // namespace

int MakeSessionFolder(const std::string& parent, SessionFolder& folder) {
    for (int i = 0; i < FolderTries; ++i) {
        std::error_code error;
        fs::create_directories(parent, error);
        if (error) return error.value();
        std::string path = (fs::path(parent) / FolderStart).string() + "XXXXXX";
        if (mkdtemp(path.data()) == nullptr) {
            if (errno == ENOENT) continue;  // another run has removed the parent
            return errno;
        }
        const int lockError = Hold(path, folder);
        if (lockError == 0) return 0;
        if (lockError == EWOULDBLOCK || lockError == ENOENT) continue;  // another run removes it
        unlink((fs::path(path) / LockName).c_str());
        rmdir(path.c_str());
        return lockError;
    }
    return EWOULDBLOCK;
}

std::vector<SessionFolder> TakeLeftFolders(const std::string& parent) {
    std::vector<SessionFolder> folders;
    for (const fs::directory_entry& entry : EntriesOf(parent)) {
        std::error_code error;
        if (entry.symlink_status(error).type() != fs::file_type::directory) continue;
        if (!entry.path().filename().string().starts_with(FolderStart)) continue;
        SessionFolder folder;
        if (Hold(entry.path().string(), folder) == 0) folders.push_back(std::move(folder));
    }
    return folders;
}

std::vector<std::string> FilesOf(const SessionFolder& folder) {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : EntriesOf(folder.Path)) {
        std::error_code error;
        if (entry.symlink_status(error).type() != fs::file_type::regular) continue;
        std::string name = entry.path().filename().string();
        if (name != LockName && !IsUnfinished(name)) names.push_back(std::move(name));
    }
    return names;
}

void LeaveSessionFolder(SessionFolder& folder) {
    if (folder.Path.empty()) return;
    bool empty = true;
    for (const fs::directory_entry& entry : EntriesOf(folder.Path)) {
        const std::string name = entry.path().filename().string();
        if (IsUnfinished(name))
            unlink(entry.path().c_str());
        else if (name != LockName)
            empty = false;
    }
    if (empty) {
        unlink((fs::path(folder.Path) / LockName).c_str());
        rmdir(folder.Path.c_str());
        rmdir(fs::path(folder.Path).parent_path().c_str());  // stays while another folder is in it
    }
    close(folder.Lock);
    folder = {};
}
