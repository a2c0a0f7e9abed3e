#pragma once
// The language in use, the message catalogue and the texts of the windows.
#include <cstdint>
#include <span>
#include <string_view>

extern std::int32_t UseEnglish;  // 1 English, 0 Chinese; a number, since it enters message ids

/// The catalogue text of a logical id 1..51 in the current language: resource id
/// UseEnglish * 200 + 100 + id. Empty when that language has none.
std::string_view ResText(std::int32_t id);

/// One of a pair of literals, by the current language.
std::string_view PickText(std::string_view english, std::string_view chinese);

// One caption, tool tip or list entry of a control.
struct WindowText {
    std::string_view Window;   // "Mainfrm", "PropertyFrm", ...
    std::string_view Control;  // the control's name; "" is the window's own title
    std::string_view English;
    std::string_view Chinese;
};

/// Every window text; a window that is much like another one has that one's rows too, behind the
/// others.
std::span<const WindowText> WindowTexts();

/// The text of a control in the current language; empty when there is no row.
std::string_view TextOf(std::string_view window, std::string_view control);

/// Writes the language setting. It is never read back: the program always starts in English.
void SaveLanguage();
