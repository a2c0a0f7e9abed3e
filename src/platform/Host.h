#pragma once
// What procedures may ask of the program around them. Start-up installs the windows' side, tests
// install a scripted one; no module opens a box, a dialog or a wait on its own.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

enum class Answer { Ok, Yes, No, Cancel };
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageIcon { Information, Exclamation, Question };
enum class WindowArrangement { Cascade, Horizontal, Vertical, Icons };

struct FileChoice {
    std::string Title;
    std::string Filter;  // "Text Files (.txt)|*.txt|..." pairs of caption and pattern
    std::string Folder;  // where the dialog opens; empty: the last one
    std::string Name;    // proposed name, save only
    bool Save = false;
    bool ConfirmReplace = false;  // save only: the dialog asks before an existing file is picked
    // Filter of the dialog, from 0: preselected by the caller, left as the user last chose it.
    mutable std::int32_t FilterIndex = 0;
};

// A page with one picture. Inches, places from the paper's top left corner.
struct Report {
    std::string Title;  // of the document; names the print job
    std::string Image;  // path of a bitmap
    double PageWidth = 8.5, PageHeight = 11.0;
    double Left = 1.1, Top = 2.0, Width = 6.5, Height = 5.2;  // of the picture
};

/// Answer of ChooseColour: the colour that the program comes with.
inline constexpr std::uint32_t UsualColour = 0xFF000000;

struct Host {
    /// Shows a message box, see Ask.
    std::function<Answer(std::string_view text, Buttons, MessageIcon, std::string_view title)>
        ShowBox;
    /// Lets the user pick a file; empty when cancelled. Overwriting is asked by the caller,
    /// unless ConfirmReplace is set.
    std::function<std::string(const FileChoice&)> ChooseFile;
    /// Lets the user pick a colour, 0xRRGGBB or UsualColour; `colour` is preselected. Nothing when
    /// cancelled.
    std::function<std::optional<std::uint32_t>(std::string_view title, std::uint32_t colour)>
        ChooseColour;
    /// Prints a page, or shows it first (`preview`), on the printer that was set up; where there is
    /// none yet, the user is asked. False when the page could not be printed; a cancel is no fault.
    std::function<bool(const Report&, bool preview)> RunReport;
    /// Dots per inch of the printer in use, 600 at most.
    std::function<std::int32_t()> PrinterResolution;
    /// Lets the user choose printer, paper or a PDF file.
    std::function<void()> SetUpPrinter;
    /// Opens the help at the page of a window; "" is the window in use.
    std::function<void(std::string_view window)> ShowHelp;
    /// Runs the named dialog modally; true when it was confirmed. The argument means what the
    /// dialog says, such as the wave type that is preselected.
    std::function<bool(std::string_view window, std::int16_t argument)> RunDialog;
    // Windows of documents go by their tags: an analog slot 0..9, a digital slot plus 10.
    /// Makes (or reuses) and shows the window of a document and gives the record's surfaces their
    /// size through `LayoutAnalogSurfaces` or `LayoutDigitSurfaces`.
    std::function<void(std::int16_t tag)> OpenWindow;
    /// The tag of the active child window; -1: none.
    std::function<std::int16_t()> ActiveWindowTag;
    /// Brings the picture of a document from its surfaces to the screen.
    std::function<void(std::int16_t tag)> ShowPlot;
    /// Shows captions (name, modified mark) of a document's window anew.
    std::function<void(std::int16_t tag)> ShowTitle;
    /// Sets enabled and checked states of all commands from the records.
    std::function<void()> RefreshCommands;
    /// Applies every window text in the current language.
    std::function<void()> ApplyLanguage;
    /// Puts a text into a label of the status strip and shows its panel.
    std::function<void(std::string_view label, std::string_view text)> ShowStatusText;
    /// Writes the boxes and read-outs of a document into the status strip, where it is the active
    /// one.
    std::function<void(std::int16_t tag)> ShowEntries;
    /// Opens a menu of the menu table at the mouse.
    std::function<void(std::string_view menu)> PopupMenu;
    /// Progress of long work, 0..total; total 0 ends it.
    std::function<void(std::int64_t done, std::int64_t total)> ShowProgress;
    /// Waits, letting windows repaint but taking no input. The button that cancels the work of the
    /// link ends the wait.
    std::function<void(std::int32_t milliseconds)> Wait;
    /// Lets pending events run and returns.
    std::function<void()> Pump;
    /// Lets events run until there was one; returns after a tenth of a second at the latest.
    std::function<void()> AwaitEvent;
    /// Work of the link begins or ends: meanwhile input reaches only the button that cancels it,
    /// and message boxes.
    std::function<void(bool begins)> HoldInput;
    /// Shows the state of the link anew: connection, progress, what is awaited, the open dialog.
    std::function<void()> ShowLink;
    /// Arranges the open document windows, or the minimised ones (Icons). Nothing happens without.
    std::function<void(WindowArrangement)> ArrangeWindows;
    /// Brings the minimised main window back and removes the tray icon.
    std::function<void()> ShowEditor;
    /// Ends the program by closing the main window.
    std::function<void()> CloseMainWindow;

    /// Shows a message box and returns the button pressed; closing the box is Cancel (Ok where
    /// that is the only button, No where there is no Cancel).
    Answer Ask(std::string_view text, Buttons buttons, MessageIcon icon,
               std::string_view title = "TideMark") const {
        return ShowBox(text, buttons, icon, title);
    }
};

/// The installed table; every entry does nothing (answers Cancel, empty, false) until start-up
/// or a test sets it.
Host& TheHost();
