#pragma once
// What the user writes behind the program's name.
#include <optional>
#include <QStringList>

struct CommandLine {
    std::optional<int> ExitStatus;  // set: all is done, --help say, or an option is wrong
    QString TourFolder;             // empty: no tour
    bool UntilPainted = false;      // ends with the first picture of the main window
    QStringList Files;              // absolute paths, in the order of the command line
};

/// Reads the arguments; needs no display and no application. --help and --version are answered on
/// the standard output; an option that is not known or lacks its value gets a line on the standard
/// error and exit status 2. Files are paths or file:// addresses, relative ones start at the
/// current folder. Options of the toolkit are left to it.
CommandLine ReadCommandLine(int argc, char** argv);
