#pragma once
// The pages of the help and the windows that they belong to. A page is a file NAME.html in the
// folder of each language, "TideMark_EN" and "TideMark_CN".
#include <span>
#include <string>
#include <string_view>

struct HelpPage {
    std::string_view Name;
    std::string_view English, Chinese;  // titles in the table of contents
    bool Sub = false;                   // stands below the last page without this mark
};
/// In the order of the contents.
std::span<const HelpPage> HelpPages();

/// The page of a window or dialog, by its object name; the first page for any other.
std::string_view HelpPageOf(std::string_view window);

/// The folder of the pages in the current language.
std::string HelpFile();
