#pragma once
// One open digital document: up to 16 logic channels over time, played at a fixed bit rate. All
// channels share one array of sample words, a word for each dot: channel n is bit n, 1 is high.
// Positions are dots from 0, ends inclusive; a dot at or behind SampleCount reads 0. Pixels are
// logical ones of the picture, from its left edge and its first row.
// Invariants: ChannelCount is the sum of the widths, no channel has two owners, a node of width 1
// is no bus; a node's bits behind its DataLength are 0;
// Nodes.size() == NodeCount, DigitSamples.size() == SampleCount; rows are numbered without a gap.
#include "frame/Flag.h"
#include "platform/Surface.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

inline constexpr std::int16_t MaxChannels = 16;
inline constexpr std::size_t MemberSlots = MaxChannels + 1;  // elements of the arrays of members

inline constexpr std::size_t LongestNodeName = 64;  // letters; files hold no longer one

inline constexpr std::int32_t RowMark = 30;  // EditMark of one row, logical pixels

template <typename Value>
using OfMembers = std::array<Value, MemberSlots>;

// One node of the channel list: a single channel, or a bus of several.
struct DigitNode {
    std::int16_t Radix = 0;                  // 0 binary, 1 hexadecimal, 2 octal, 3 unsigned decimal
    Flag IsBus;                              // Width is above 1
    std::int16_t Width = 1;                  // member channels, 1..16
    Flag Expanded;                           // the members have rows of their own
    std::string Name;                        // letters, digits and "_"
    std::int16_t StartNumber = 0;            // number of the first member in its name
    OfMembers<std::uint8_t> Channels{};      // 0..Width-1 used; [0] is the most significant
    std::int16_t Row = 0;                    // row in the list; members follow it
    std::int32_t DataLength = 0;             // last dot written plus 1
    std::string ValueText;                   // value at the caliper with the letter of the radix
    OfMembers<std::uint8_t> MemberValues{};  // bits at the caliper
    Flag WaveSelected;                       // SelectStart..SelectEnd is selected in all members
    OfMembers<Flag> MemberWaveSelected{};
    Flag ListSelected;  // the row is selected in the list
    OfMembers<Flag> MemberListSelected{};
    float SelectLeft = 0.0F, SelectRight = 0.0F;  // pixels of the span at the last repaint
    OfMembers<float> MemberSelectLeft{}, MemberSelectRight{};
    std::int32_t SelectStart = 0, SelectEnd = 0;  // dots, 0..Dots-1
    OfMembers<std::int32_t> MemberSelectStart{}, MemberSelectEnd{};
};

// A node, or one of its members.
struct DigitTarget {
    std::int16_t Node = -1;    // index into Nodes; -1: none
    std::int16_t Member = -1;  // -1: the node itself
    friend bool operator==(const DigitTarget&, const DigitTarget&) = default;
};

// The boxes of the panel for point edit and find.
struct DigitFindBoxes {
    std::string Name;   // cmbName
    std::string Dot;    // txtDigitX
    std::string Value;  // txtDigitY in point edit, the result in find
};

struct DigitDocument {
    std::vector<DigitTarget> ListRows;           // what stands in each row of the list
    std::int32_t Dots = 4096;                    // length of the waveform
    double Rate = 100000.0;                      // bits per second
    std::int32_t CaliperDefault = 1;             // where a reset puts the caliper
    std::int32_t FirstDot = 0, LastDot = 0;      // first dot shown; that plus VisibleDots
    std::int32_t PageCount = 1;                  // pages of the time axis
    std::int32_t PageDots = 1, VisibleDots = 1;  // dots of a page, dots on the screen
    std::int32_t UndoFirstRow = 0, UndoLastRow = 0;
    std::uint8_t NodeCount = 0;
    std::vector<DigitNode> Nodes;            // in list order
    std::vector<std::int32_t> DigitSamples;  // low 16 bits used
    std::int32_t SampleCount = 0;
    Surface StaticSurface;          // ruler above the picture: traces, selection
    Surface ShownSurface;           // the same with caliper and rubber band
    Surface ListSurface;            // heads above the rows of the list
    std::uint8_t ChannelCount = 0;  // channels in use, 0..16
    std::uint8_t UndoNodeCount = 0, UndoChannelCount = 0;
    std::vector<DigitNode> UndoNodes;
    std::vector<std::int32_t> UndoSamples;
    std::int32_t UndoSampleCount = 0;
    std::int32_t Reserved1 = 0, UndoReserved1 = 0;  // kept in files, without effect
    Flag ListScrollShown, UndoListScrollShown;      // more rows than fit on a page
    double Zoom = 1.0;                              // dots per 60 pixels, 1/8 or more
    std::uint8_t PageRows = 1;                      // rows that fit, 1 or more
    std::uint8_t FirstRow = 0, LastRow = 0;         // first row shown; FirstRow + PageRows - 1
    Flag WaveSelection, ListSelection;              // where the selection was made; never both
    std::int32_t Caliper = 0;                       // dot under the caliper
    double CaliperPixel = 0.0;
    float ClickX = 0.0F, ClickY = 0.0F;  // last press in the picture
    std::int16_t ClickRow = -1;          // row of the last press in picture or list; -1: none
    std::int16_t AnchorRow = -1;         // row from which Shift adds rows of the list
    Flag SelectDrag;                     // a rubber band is being dragged
    Flag CaliperDrag;
    float CaliperPress = 0.0F;                          // where the drag began
    Flag ValueEnabled;                                  // a span is selected: values can be written
    std::int32_t SelectStartDot = 0, SelectEndDot = 0;  // span of the rubber band, in any order
    std::int16_t SelectStartRow = 0, SelectEndRow = 0;  // its rows, in any order
    std::int32_t MouseDot = 0;                          // dot under the mouse
    Flag ShowTime;                                      // the ruler shows time, not dots
    Flag PrintMode;                                     // painting uses the print colours
    Flag ListDrag;                                      // rows of the list are being dragged
    std::int16_t ListPressRow = -1;   // row of a press in the list; -1: none is held
    Flag ListPressKept;               // that row was selected: a click without a drag selects it
    float ListPressY = 0.0F;          // where the press was
    std::int16_t ListDropNode = -1;   // node before which the drag would drop; -1: nowhere
    Flag FindOn, PointEditOn;         // the panel below the picture; never both
    DigitFindBoxes FindBoxes;         // what stands in it
    std::int32_t EditDot = -1;        // dot last edited or found, marked in the picture; -1: none
    std::int32_t EditMark = RowMark;  // height of that mark
    std::string EditName;             // its row
    Flag UndoAvailable, ResumeAvailable;
    std::string Title;            // "Digital Waveform 0" at first, then the file's name
    Flag IsSaved;                 // the document has a file
    Flag Changed;                 // since the last save
    std::uint64_t EditStamp = 0;  // EditClock at the last change
    std::string FilePath;         // for Save
    std::string OpenPath;         // where it was opened from
    std::int32_t ListWidth = 0;   // of the last layout, logical pixels, as the two below
    std::int32_t PictureWidth = 0, PictureHeight = 0;
};
