#pragma once
// Where the program's own file stands.
#include <string>

/// The folder "temp" beside the program, for documents; empty where there is none.
std::string ProgramTempFolder();
