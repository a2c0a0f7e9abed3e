#pragma once
// The one table of commands. Tool buttons, menus and context menus are doors to the same rows:
// what a row does on an analog or a digital document, when it is enabled and when it is checked
// stands here and nowhere else.
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

struct CommandRow {
    std::string_view Button;                 // tool button; empty: none
    std::array<std::string_view, 5> Menus;   // menu entries, the first bears the shortcut
    std::string_view Icon;                   // drawing without ending
    std::string_view Shortcut;               // "Ctrl+S"
    void (*Analog)(std::int16_t argument);   // on an analog document or none; null: not there yet
    void (*Digital)(std::int16_t argument);  // on a digital document; null: as Analog
    bool (*Enabled)();                       // null: always, when there is something to run
    bool (*Checked)();                       // null: not a switch
    std::int16_t Argument = 0;               // handed to the routine
};

std::span<const CommandRow> Commands();

/// The row of a tool button or a menu entry; null when there is none.
const CommandRow* FindCommand(std::string_view name);

/// What the doors show of a row now, computed from the records.
struct CommandState {
    bool Enabled, Checked;
};
CommandState StateOf(const CommandRow& row);

/// Finds the active document and runs the row's routine for its kind. Nothing happens while the
/// row is disabled.
void RunCommand(const CommandRow& row);
/// As RunCommand, by the name of a button or menu entry.
void RunCommand(std::string_view name);

/// The tools that need a waveform go on with more than one dot and off with none; with exactly one
/// they stay as they were. Called before the states are read.
void RefreshDotCommands();

// Menus and tool bars as lists of names; "-" is a separator, ">Name" opens the sub menu Name.
enum class ShownFor : std::uint8_t { Both, Analog, Digital };
struct MenuRow {
    std::string_view Name;
    std::span<const std::string_view> Entries;
    ShownFor Kind = ShownFor::Both;  // the kind of the active document; analog without one
    bool NewLine = false;            // a tool bar that begins a line
};
/// The menus of the strip, left to right.
std::span<const MenuRow> MenuStrip();
/// Sub menus, context menus and the tray menu.
std::span<const MenuRow> PopupMenus();
/// The tool bars, in two lines.
std::span<const MenuRow> ToolBars();
/// The buttons of the status strip's panels.
std::span<const MenuRow> StatusPanels();
