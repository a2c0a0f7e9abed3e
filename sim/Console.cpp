// The lines that can be typed while the simulator runs.
#include "Picture.h"
#include "Simulator.h"

#include <cstdio>

namespace sim {

namespace {

struct Line {
    std::string_view Name;
    const char* Help;
    void (*Run)(Simulator& simulator, const std::string& argument);
};

void Show(Simulator& simulator, const std::string&) {
    std::fputs(NumbersOf(simulator.Device).c_str(), stdout);
}

void ListWaves(Simulator& simulator, const std::string&) {
    const WaveMemory& memory = simulator.Device.Memory;
    for (const std::string_view name : BuiltInNames) {
        std::printf("%-12s built in\n", std::string(name).c_str());
    }
    std::printf("%-12s %zu dots\n", std::string(VolatileName).c_str(), memory.Volatile.size());
    if (HasDigital(simulator.Device.Id)) {
        std::printf("%-12s %zu dots, digital\n", std::string(VolatileName).c_str(),
                    memory.DigitVolatile.size());
    }
    for (const StoredWave& wave : memory.Stored) {
        std::printf("%-12s %zu dots, %sstored\n", wave.Name.c_str(), wave.Codes.size(),
                    wave.Kind == WaveKind::Digital ? "digital, " : "");
    }
    std::printf("%zu of %zu locations free\n", memory.Locations - memory.Stored.size(),
                memory.Locations);
}

void SavePicture(Simulator& simulator, const std::string& path) {
    const bool written = !path.empty() && WritePicture(simulator.Device, path);
    std::printf("%s %s\n", written ? "written:" : "cannot write", path.c_str());
}

void Quit(Simulator& simulator, const std::string&) {
    simulator.HasEnded = true;
}

void Help(Simulator& simulator, const std::string& argument);

constexpr Line Lines[] = {
    {"show", "the active output in numbers", Show},
    {"list", "all waves and the free locations", ListWaves},
    {"picture", "FILE.svg: a picture of the active output", SavePicture},
    {"quit", "unplugs the instrument", Quit},
    {"help", "these lines", Help},
};

void Help(Simulator&, const std::string&) {
    for (const Line& line : Lines) {
        std::printf("  %-8s %s\n", std::string(line.Name).c_str(), line.Help);
    }
}

}  // namespace

void RunTypedLine(Simulator& simulator, std::string_view text) {
    const auto start = text.find_first_not_of(" \t\r");
    if (start == text.npos) return;
    text = text.substr(start, text.find_last_not_of(" \t\r") + 1 - start);
    const std::string_view name = text.substr(0, text.find(' '));
    const auto argument = text.find_first_not_of(' ', name.size());
    for (const Line& line : Lines) {
        if (line.Name != name) continue;
        line.Run(simulator, std::string(argument == text.npos ? "" : text.substr(argument)));
        std::fflush(stdout);
        return;
    }
    std::printf("no such line; type help\n");
    std::fflush(stdout);
}

}  // namespace sim
