#pragma once
// What the chapters on digital documents share. Rows and dots are aimed at as a user does, on list
// and picture of the active document.
#include "app/TourSteps.h"
#include "digital/GlobalDigitDefineCode.h"

/// The active digital document.
const DigitDocument& Wave();
/// A part of the active document's window: list, picture or ruler.
QWidget* Pic(const TourState& tour, const char* name);

std::int16_t NodeOf(const char* name);
/// The middle of a dot in a node's row of the picture.
QPoint At(const char* name, int dot);
/// The first letters of a node's name in the list, clear of the mark in front.
QPoint InList(const char* name);
std::int32_t Value(const char* name, std::int32_t dot);

template <typename Expected>
bool Reads(const char* name, std::int32_t first, std::int32_t last, Expected expected) {
    for (std::int32_t dot = first; dot <= last; ++dot)
        if (Value(name, dot) != expected(dot)) return false;
    return true;
}
/// The names of all nodes, a blank behind each.
std::string Names();

/// Turns a list to its entry `index`, as the arrow keys do.
void Pick(QWidget* list, int index);

// A count as its dialog takes it, in hexadecimal.
struct CountValues {
    const char *Start, *Increment, *Last, *Interval;  // from dot 0 to dot Last
};
/// Writes a count into the selection; `picture` names a picture of the dialog, if any.
void WriteCount(TourState& tour, const CountValues& count, const char* picture);

/// A new document through its dialog; `picture` names a picture of the dialog, if any.
void NewDigitalDocument(TourState& tour, const char* dots, const char* position,
                        const char* picture);
void InsertNode(TourState& tour, const char* name, const char* width, int radix,
                const char* picture);

/// The file that the chapter on buses leaves, and its opening.
QString PatternFile(const TourState& tour);
void OpenPattern(TourState& tour);
