#include "platform/ProgramFolder.h"

#include <filesystem>
#include <system_error>

std::string ProgramTempFolder() {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (error) return {};
    const fs::path folder = program.parent_path() / "temp";
    return fs::is_directory(folder, error) ? folder.string() : std::string();
}
