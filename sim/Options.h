#pragma once
// The command line.
#include "Faults.h"
#include "Identity.h"

#include <vector>

namespace sim {

struct Options {
    Identity Id;
    Faults Fault;
    std::vector<std::string> Stores;  // NAME=FILE
    std::string Picture;              // path; empty: none
    bool IsQuiet = false;
    bool WantsHelp = false;
    bool WantsVersion = false;
};

/// Reads the arguments behind the program's name. Returns what is wrong, or an empty text.
std::string ReadOptions(const std::vector<std::string>& arguments, Options& options);

std::string HelpText();

}  // namespace sim
