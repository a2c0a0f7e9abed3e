#pragma once
// The per-user store of settings: one text value by application, section and key.
#include <string>
#include <string_view>

/// The application whose sections hold the editor's own dialogs.
inline constexpr std::string_view ApplicationTitle = "TideMark";

/// Uses the store in the given file from now on (tests, the tour). Empty: the user's own store.
void UseSettingsStore(const std::string& path);

/// The value as text, `fallback` when absent.
std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view fallback);
/// Writes the value. A store that cannot be written keeps the old value; nothing is reported.
void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value);
