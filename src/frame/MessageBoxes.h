#pragma once
// Message boxes that several modules show.
#include "platform/Host.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Shows a message, with its reason behind it where there is one.
void Complain(std::string_view text, std::string_view reason = "");
/// False, with a message, when as many documents of a kind are open as there may be.
bool MayOpenAnother(std::int16_t open);
/// Tells that a file could not be written; `error` is the system's number.
void TellSaveFault(int error);
/// True where no file stands at the path, or the user lets it be replaced.
bool MayReplaceFile(const std::string& path);
/// Asks whether the changes of the document of a slot are to be saved before it closes; false when
/// its window must stay. `save` is the save command and returns false when nothing was saved.
bool MayClose(const std::string& title, std::int16_t index, bool (*save)(std::int16_t index));
