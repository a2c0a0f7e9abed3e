#pragma once
// Files in and out. A file that is there is never half overwritten: the new content is
// written beside it and takes its name only when it is safely on the disk.
#include <cstddef>
#include <string>
#include <string_view>

/// Reads a regular file of at most `maxBytes` bytes. Returns 0, or the system's error number
/// (EISDIR for a folder, ENOTSUP for a pipe or device, EFBIG for a longer file); `bytes` is then
/// undefined.
int ReadWholeFile(const std::string& path, std::size_t maxBytes, std::string& bytes);

/// Reads the first `maxBytes` bytes of a regular file, all of a shorter one. Refuses folders, pipes
/// and devices as ReadWholeFile does.
int ReadFileHead(const std::string& path, std::size_t maxBytes, std::string& bytes);

/// Writes or replaces a file. A link is followed to its target, the target keeps its permissions
/// and, where the system allows, its owner; a new file gets those of the umask. A write-protected
/// file is not replaced. Returns 0, or the system's error number: the old file is then untouched
/// and nothing is left beside it.
int WriteFileSafely(const std::string& path, std::string_view bytes);

/// Whether a file's name is that of unfinished content, which a crash leaves beside a target.
bool IsUnfinished(std::string_view name);

/// The system's wording of an error number, for messages.
std::string FileErrorText(int error);
