#pragma once
// Start-up order of the program.
class Mainfrm;

/// Splash, main window, globals, language, texts; then the main window is shown and the splash
/// goes. The caller owns the window.
Mainfrm* StartProgram();

/// When the window has been painted for the first time, writes the time of the monotonic clock, in
/// nanoseconds, to the standard output and ends the program.
void EndWhenPainted(Mainfrm* window);
