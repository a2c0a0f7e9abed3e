#pragma once
// Folders of one run each: a run holds its own by a lock that the system takes away with the
// process, however it ends. So a folder that nobody holds was left behind by a crash.
#include <string>
#include <vector>

struct SessionFolder {
    std::string Path;  // empty: none
    int Lock = -1;     // handle of the file "lock" in it
};

/// Makes a folder with a name of its own below `parent`, which is made where it is missing, and
/// holds it. Returns 0, or the system's error number.
int MakeSessionFolder(const std::string& parent, SessionFolder& folder);

/// Takes hold of all folders below `parent` that no run holds, by name.
std::vector<SessionFolder> TakeLeftFolders(const std::string& parent);

/// Names of the files that were put into a folder, in order: without its lock, unfinished files,
/// links and the like.
std::vector<std::string> FilesOf(const SessionFolder& folder);

/// Lets go of a folder and removes it, unless anything but its lock and unfinished files is in it;
/// its parent goes with the last one.
void LeaveSessionFolder(SessionFolder& folder);
