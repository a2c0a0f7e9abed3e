#pragma once
// Start-up order of the program.
class Mainfrm;

/// Splash, main window, globals, language, texts; then the main window is shown and the splash
/// goes. The caller owns the window.
Mainfrm* StartProgram();
