// tidemark-sim: a signal generator to try the editor on, without one on the desk.
#include "Simulator.h"

#include <cstdio>

namespace {

void PrintStart(const sim::Simulator& simulator) {
    const sim::Identity& id = simulator.Option.Id;
    std::printf("%s, serial number %s, firmware %s (%s), %zu locations\nUSB    %s\n",
                sim::RowOf(id.Model).Name, id.Serial.c_str(), id.Firmware.c_str(),
                sim::IsOld(id) ? "old" : "new", sim::LocationCount(id),
                simulator.Names.SocketPath.c_str());
    if (simulator.SerialFault.empty())
        std::printf("RS232  %s -> %s\n", simulator.Names.TerminalPath.c_str(),
                    simulator.Serial.Device.c_str());
    else
        std::printf("RS232  no pseudo-terminal: %s\n", simulator.SerialFault.c_str());
    std::fflush(stdout);
}

}  // namespace

int main(int count, char** arguments) {
    sim::Options options;
    std::string error = sim::ReadOptions({arguments + 1, arguments + count}, options);
    if (error.empty() && options.WantsHelp) {
        std::fputs(sim::HelpText().c_str(), stdout);
        return 0;
    }
    if (error.empty() && options.WantsVersion) {
        std::puts("tidemark-sim " TIDEMARK_VERSION);
        return 0;
    }
    sim::Simulator simulator;
    if (error.empty()) error = sim::StartSimulator(simulator, options);
    if (!error.empty()) {
        std::fprintf(stderr, "tidemark-sim: %s\n", error.c_str());
        return 1;
    }
    PrintStart(simulator);
    sim::RunSimulator(simulator);
    sim::EndSimulator(simulator);
    return 0;
}
