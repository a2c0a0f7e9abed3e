#pragma once
// A folder of its own for each test, and a disk that is full.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

class TempFolder {
protected:
    TempFolder() { mkdtemp(folder.data()); }
    ~TempFolder() { std::filesystem::remove_all(folder); }

    /// Makes a file and returns its path.
    std::string Put(std::string_view name, std::string_view bytes) {
        std::ofstream(PathOf(name), std::ios::binary) << bytes;
        return PathOf(name);
    }
    std::string PathOf(std::string_view name) { return folder + "/" + std::string(name); }
    std::string Content(std::string_view name) {
        std::ifstream file(PathOf(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::string folder = ::testing::TempDir() + "tidemark-XXXXXX";
};

class TempFolderTest : public ::testing::Test, protected TempFolder {};

/// Runs `write` while no file grows past 4096 bytes, as on a disk that fills up meanwhile.
template <typename Write>
auto RunOnFullDisk(Write write) {
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{4096, former.rlim_max};
    setrlimit(RLIMIT_FSIZE, &tight);
    auto result = write();
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, handler);
    return result;
}
