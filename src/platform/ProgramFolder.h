#pragma once
// Where the program stands, and the folders that it reads from and writes to on its own.
#include <string>

/// The folder of the program's file.
std::string ProgramFolder();

/// The folder of the help pages: "help" beside the program, or where an installed one has it,
/// "../share/tidemark/help".
std::string HelpFolder();

/// The editor's folder in the user's data folder ("~/.local/share/TideMark"), made where it is
/// missing; empty where it cannot be.
std::string UserDataFolder();
/// Takes another folder in its place, for tests and the tour.
void UseDataFolder(const std::string& path);

/// The folder of scratch files: the program's own where it may be written, otherwise the user's
/// data folder.
std::string ScratchFolder();
/// The folder "temp" in it, for documents; empty where there is none.
std::string TempFolder();
