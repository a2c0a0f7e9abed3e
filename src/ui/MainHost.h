#pragma once
// The windows' side of what procedures may ask for: message boxes, file dialogs, modal dialogs,
// repaints. The one place that shows messages and picks files.
#include <string_view>
#include <vector>

class Mainfrm;

/// Installs the table for the main window.
void InstallHost(Mainfrm& window);

/// The names of all dialogs that the host can run.
std::vector<std::string_view> DialogNames();
