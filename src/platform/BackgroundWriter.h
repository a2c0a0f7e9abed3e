#pragma once
// Files written in the background, so that a slow disk holds nobody up. A thread works the jobs off
// one by one and ends with the last. To be called from one thread of the program, always the same.
#include <functional>
#include <string>

/// Has a file written as WriteFileSafely does. `content` makes the bytes in the background and must
/// own all that it reads. What still waits for the same path is left out.
void WriteSoon(const std::string& path, std::function<std::string()> content);

/// Has a file removed; whether that was possible is not told.
void RemoveSoon(const std::string& path);

/// Returns when nothing is left to do; the thread has ended then.
void AwaitWrites();

/// The system's number of the first error since the last call, ENOMEM where there was no memory for
/// the bytes; 0: all went well.
int WriteFault();
