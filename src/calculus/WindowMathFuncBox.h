#pragma once
// The window math dialog without its window: one open document combined with another, dot by dot.
// The normalised values meet as they stand, whatever the volts of the two documents.
#include "calculus/DotMath.h"

#include <string>
#include <vector>

struct WindowMathDialog {
    std::vector<std::int16_t> Documents;  // slots with at least one dot, in the order of the lists
    std::int16_t Source = 0;              // place in Documents; this document takes the result
    std::int16_t Math = 0;                // place in Documents
    std::int16_t Operation = NoOperation;
    std::vector<WaveDot> PreviewDots;  // as long as the source
    std::int32_t Clipped = 0;          // results beyond the rails
};

/// Lists the open analog documents that hold dots. The source is the active one where it is among
/// them, the other the next one in the list.
WindowMathDialog OpenWindowMath();

/// True when the dialog would list a document.
bool HasWindowMath();

/// Names of the listed documents.
std::vector<std::string> WindowMathNames(const WindowMathDialog& dialog);

// A list changed. Dots behind the shorter document stay as the source has them.
void ChooseSourceWindow(WindowMathDialog& dialog, std::int16_t place);
void ChooseMathWindow(WindowMathDialog& dialog, std::int16_t place);
void ChooseWindowOperation(WindowMathDialog& dialog, std::int16_t operation);
/// Takes the operation back: the source alone.
void ResumeWindowMath(WindowMathDialog& dialog);

/// What the user should know of lengths, volts and result, in the current language; mostly empty.
std::string WindowMathNote(const WindowMathDialog& dialog);

/// OK: writes the result into the source document as one edit, whichever document is active. False
/// when nothing was done: no operation, or no document.
bool ConfirmWindowMath(const WindowMathDialog& dialog);
