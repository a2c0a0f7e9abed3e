#pragma once
// The windows' side of what procedures may ask for: message boxes, file dialogs, modal dialogs,
// repaints. The one place that shows messages and picks files.
class Mainfrm;

/// Installs the table for the main window.
void InstallHost(Mainfrm& window);
