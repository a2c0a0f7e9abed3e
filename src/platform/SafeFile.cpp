#include "platform/SafeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <system_error>

// A rename within one folder replaces the old name in one step, so the temporary file stands
// beside the target; its data is forced to the disk before, or a power cut could leave the new
// name with no data behind it.

namespace {

namespace fs = std::filesystem;

constexpr int MaxLinks = 40;  // as many as the system itself follows
constexpr int NameTries = 100;
constexpr std::string_view TemporaryStart = ".tidemark-", TemporaryEnd = ".tmp";

int KindError(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : ENOTSUP;
}

// Follows links, also one whose target does not exist yet.
int ResolveTarget(fs::path& path) {
    for (int i = 0; i < MaxLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(path, error)) return 0;
        const fs::path next = fs::read_symlink(path, error);
        if (error) return error.value();
        path = path.parent_path() / next;
    }
    return ELOOP;
}

// A new file beside `target`. The name stays short, so that any legal target name works.
int OpenTemporary(const fs::path& target, std::string& name) {
    static std::atomic<unsigned> counter = 0;
    for (int i = 0; i < NameTries; ++i) {
        name = (target.parent_path() / TemporaryStart).string() + std::to_string(getpid()) + '-' +
               std::to_string(++counter).append(TemporaryEnd);
        const int handle = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (handle >= 0 || errno != EEXIST) return handle;
    }
    return -1;
}

int KeepRights(int handle, const struct stat& old) {
    // Only the owner or an administrator may hand a file over; failing that, it is the user's.
    if (fchown(handle, old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
    return fchmod(handle, old.st_mode & 0777) == 0 ? 0 : errno;
}

int WriteAll(int handle, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(handle, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return fsync(handle) == 0 ? 0 : errno;
}

// Makes the rename itself last. Some file systems cannot; the file is complete all the same.
void SyncFolder(const fs::path& target) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return;
    fsync(handle);
    close(handle);
}

int ReadAll(int handle, std::size_t maxBytes, bool mayCut, std::string& bytes) {
    struct stat status;
    if (fstat(handle, &status) != 0) return errno;
    if (const int error = KindError(status)) return error;
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size > maxBytes && !mayCut) return EFBIG;
    bytes.resize(std::min(size, maxBytes));
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = read(handle, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        if (count == 0) break;  // cut short by another program meanwhile
        done += static_cast<std::size_t>(count);
    }
    bytes.resize(done);
    return 0;
}

int ReadFile(const std::string& path, std::size_t maxBytes, bool mayCut, std::string& bytes) {
    // Without O_NONBLOCK a pipe would be waited for until somebody writes into it.
    const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (handle < 0) return errno;
    const int error = ReadAll(handle, maxBytes, mayCut, bytes);
    close(handle);
    return error;
}

}  // namespace

int ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes) {
    return ReadFile(path, maxBytes, false, bytes);
}

int ReadFileHead(const std::string& path, std::size_t maxBytes, std::string& bytes) {
    return ReadFile(path, maxBytes, true, bytes);
}

int WriteFileSafely(const std::string& path, std::string_view bytes) {
    fs::path target = path;
    if (const int error = ResolveTarget(target)) return error;
    std::optional<struct stat> old(std::in_place);
    if (stat(target.c_str(), &*old) != 0) {
        if (errno != ENOENT) return errno;
        old.reset();
    }
    if (old) {
        if (const int error = KindError(*old)) return error;
        if (faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) return errno;
    }

    std::string temporary;
    const int handle = OpenTemporary(target, temporary);
    if (handle < 0) return errno;
    int error = old ? KeepRights(handle, *old) : 0;
    if (error == 0) error = WriteAll(handle, bytes);
    if (close(handle) != 0 && error == 0) error = errno;
    if (error == 0 && rename(temporary.c_str(), target.c_str()) != 0) error = errno;
    if (error != 0) {
        unlink(temporary.c_str());
        return error;
    }
    SyncFolder(target);
    return 0;
}

bool IsUnfinished(std::string_view name) {
    return name.starts_with(TemporaryStart) && name.ends_with(TemporaryEnd);
}

std::string FileErrorText(int error) {
    return std::generic_category().message(error);
}
