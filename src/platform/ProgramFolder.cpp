#include "platform/ProgramFolder.h"

#include <unistd.h>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

std::string dataFolder;  // in place of the user's

fs::path UsualDataFolder() {
    const char* data = std::getenv("XDG_DATA_HOME");
    if (data != nullptr && *data == '/') return fs::path(data) / "TideMark";
    const char* home = std::getenv("HOME");
    return fs::path(home != nullptr ? home : "") / ".local" / "share" / "TideMark";
}

}  // namespace

std::string ProgramFolder() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path().string();
}

std::string HelpFolder() {
    const fs::path program = ProgramFolder();
    const fs::path beside = program / "help";
    std::error_code error;
    if (fs::is_directory(beside, error)) return beside.string();
    return (program.parent_path() / "share" / "tidemark" / "help").string();
}

std::string UserDataFolder() {
    const fs::path folder = dataFolder.empty() ? UsualDataFolder() : fs::path(dataFolder);
    std::error_code error;
    fs::create_directories(folder, error);
    return fs::is_directory(folder, error) ? folder.string() : std::string();
}

void UseDataFolder(const std::string& path) {
    dataFolder = path;
}

std::string ScratchFolder() {
    const std::string program = ProgramFolder();
    return access(program.c_str(), W_OK) == 0 ? program : UserDataFolder();
}

std::string TempFolder() {
    const fs::path folder = fs::path(ScratchFolder()) / "temp";
    std::error_code error;
    return fs::is_directory(folder, error) ? folder.string() : std::string();
}
