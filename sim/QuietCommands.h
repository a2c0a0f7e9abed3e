#pragma once
// The rest of the vocabulary: commands that the instrument knows and that change nothing on what is
// simulated, such as modulation, sweep and burst.
#include <optional>
#include <string>
#include <string_view>

namespace sim {

/// Whether the message is one of these commands, with an argument where it needs one.
bool IsQuietCommand(std::string_view message);

/// The answer if the message is a query about the state memory, which is empty.
std::optional<std::string> AnswerQuietly(std::string_view message);

}  // namespace sim
