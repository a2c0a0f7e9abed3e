#pragma once
// One open analog document: dots, segments, electrical properties, view, selection, tools,
// drawing surfaces and file identity. Amplitudes are normalised: Y = 1.0 stands for +Vpp/2 volts;
// positions are dots from 0, ends inclusive; dot n lies at n * Period / MaxDots seconds.
// Invariants: 0 <= Dots <= MaxDots == DotArray.size(); Y in -1..1; segments 0..SegmentCount-1
// cover dots 0..Dots-1 by RunStart..EndDot without hole or overlap.
#include "frame/Flag.h"
#include "kernel/wavecalc.h"
#include "platform/Surface.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// A run of dots made by one editing action. The order of the fields is the order in files.
struct WaveSegment {
    Flag Custom = true;           // free-form dots; false: made from the fields below
    std::int32_t StartDot = 0;    // where the run was first generated
    std::int32_t RunStart = 0;    // first dot of the run
    std::int32_t EndDot = 0;      // last dot of the run; the marker stands here
    std::int16_t Kind = 0;        // wave type, 0..9, see StandardWaveFuncBox.h
    std::int32_t DotCount = 0;    // dots of the generated wave
    float Amplitude = 0.0F;       // volts peak to peak
    float Offset = 0.0F;          // volts
    std::int32_t Cycles = 0;      // whole periods in DotCount dots
    float Phase = 0.0F;           // degrees, 0..359
    std::int16_t Duty = 0;        // percent high, Square
    std::int32_t PWidthDots = 0;  // pulse width, dots
    std::int32_t SlopeDots = 0;   // pulse edge, dots
    std::int16_t Symmetry = 0;    // percent rising, Ramp
    std::int16_t Overzero = 0;    // zero crossings on a side, Sinc
    float Damp = 0.0F;            // exponent, ExpRise and ExpFall
};

// One of the small boxes of the status strip, as this document fills it.
struct EntryBox {
    std::string Text;  // what the box shows; empty: no number
    Flag HasValue;     // the field behind the box was given a value
};
inline constexpr std::size_t EntryBoxCount = 15;  // in the order of `Entry`, see EntryFuncBox.h

struct AnalogWaveRecord {
    std::int32_t MaxDots = 0;           // capacity, dots
    std::int32_t Dots = 0;              // defined dots, from index 0
    std::int32_t SegmentCount = 0;      // used elements of Segments
    std::int32_t UndoDots = 0;          // Dots of the snapshot
    std::int32_t UndoSegmentCount = 0;  // SegmentCount of the snapshot
    std::vector<WaveSegment> Segments;
    std::vector<WaveSegment> UndoSegments;
    std::vector<WaveDot> DotArray;       // size MaxDots
    std::vector<WaveDot> UndoDotArray;   // size MaxDots
    std::vector<std::int32_t> PixelMap;  // size MaxDots

    // Off-screen layers; all but the first have the plot's size.
    Surface BackSurface;         // the window's back area with the scale labels
    Surface PlotSurface;         // the plot as shown
    Surface GridSurface;         // copy of the plot taken at a mouse press
    Surface WaveSurface;         // grid and axes, the static layer
    Surface StaticSurface;       // limit lines over the grid
    double Vpp = 0.0;            // volts, peak to peak
    double Period = 0.0;         // seconds for MaxDots dots
    std::int32_t ViewStart = 0;  // first dot shown
    std::int32_t ViewEnd = 0;    // last dot shown, at most MaxDots - 1; may lie beyond Dots - 1
    double ViewTop = 1.0;        // normalised amplitude at the top of the plot
    double ViewBottom = -1.0;    // at the bottom
    std::int32_t PrevViewStart = 0, PrevViewEnd = 0;  // view before the last zoom
    double PrevViewTop = 0.0, PrevViewBottom = 0.0;
    Flag HasSelection;              // SelStart..SelEnd is a selection
    Flag SelectionDragging;         // bounds are exact, not to be taken from the pixels
    std::int32_t SelStart = 0;      // first selected dot
    std::int32_t SelEnd = 0;        // last selected dot, inclusive
    std::int32_t SelPixelLeft = 0;  // pixel columns of the selection bar as last drawn
    std::int32_t SelPixelRight = 0;
    std::int32_t KeyFixedDot = 0;   // selection by keys: the edge that stays, and
    std::int32_t KeyMovingDot = 0;  // the one that moves
    Flag MouseMoved;                // the mouse moved since the press
    Flag MouseArmed;                // a press of the tool in use waits for its release
    std::int32_t LastDot = 0;       // "End:" of files; decisions read Dots
    std::int32_t UndoLastDot = 0;   // LastDot of the snapshot
    Flag SelectionFlagA;            // SelStart is a segment's first dot
    Flag SelectionFlagB;            // SelEnd is a segment's last dot
    Flag SegmentPicked;             // the selection is exactly PickedSegment
    std::int32_t PickedSegment = 0;
    std::int32_t SelFirstSegment = 0;  // first and last segment that the selection touches
    std::int32_t SelLastSegment = 0;
    Flag SegmentMarkOn = true;
    Flag GridOn = true;
    Flag DotLinkOn = true;      // dots joined by lines; off: separate points
    std::int16_t Quantify = 0;  // bits, MinQuantify..MaxQuantify
    Flag TimeAxisOn;            // horizontal scale in time, not dots
    Flag XLimitOn;
    Flag YLimitOn;
    Flag DragLimitLeft, DragLimitRight, DragLimitTop, DragLimitBottom;
    Flag LimitFixed;                              // the limits can neither be switched nor dragged
    float YLimitBottom = 0.0F, YLimitTop = 0.0F;  // pixels of the plot
    float XLimitLeft = 0.0F, XLimitRight = 0.0F;  // pixels of the plot
    Flag RegionLimitOn;                           // at least one limit is on
    Flag UndoAvailable;
    Flag ResumeAvailable;
    std::int32_t TrackX = 0, TrackY = 0;  // pixel of the limit line under the mouse
    std::array<EntryBox, EntryBoxCount> EntryBoxes;
    std::int32_t LineX1 = -1;     // start dot of the line boxes
    double LineY1 = 30.0;         // in the unit of its box
    std::int16_t LineY1Unit = 1;  // divider of a box: 1 for V, 1000 for mV
    std::int32_t LineX2 = 0;
    double LineY2 = -1.0;
    std::int16_t LineY2Unit = 1;
    std::int32_t ValueX = -1;
    double ValueY = -1.0;
    std::int16_t ValueYUnit = 1;
    std::int16_t ZoomVY1Unit = 1;
    double ZoomVY1Value = 0.0;
    std::int16_t ZoomVY2Unit = 1;
    double ZoomVY2Value = 0.0;
    std::int16_t ZoomY1Unit = 1;
    double ZoomY1Value = 0.0;
    std::int16_t ZoomY2Unit = 1;
    double ZoomY2Value = 0.0;
    float VPointerX = 8.0F, VPointerY = 0.0F;  // vertical scale pointer: from the left edge; row
    Flag YZoomed;                              // the vertical view differs from +-1.0
    Flag VPointerDragging;
    double VPointerSpan = 0.0;                 // ViewTop - ViewBottom at the start of a drag
    float HPointerX = 0.0F, HPointerY = 4.0F;  // horizontal: column; distance above the plot
    Flag XZoomed;                              // the horizontal view differs from the whole wave
    Flag HPointerDragging;
    double HPointerSpan = 0.0;  // span of the view as a part of MaxDots
    float PointerGrip = 0.0F;   // press less the pointer's own place, along its axis
    std::int32_t RubberX1 = 0;  // zoom band: dots and amplitudes
    double RubberY1 = 0.0;
    std::int32_t RubberX2 = 0;
    double RubberY2 = 0.0;
    float RubberPixelX1 = 0.0F, RubberPixelY1 = 0.0F;  // where the band begins
    Flag ExpandToSuit;                                 // the view always shows dots 0..Dots-1
    Flag ZoomXMode, ZoomYMode, ZoomRegionMode, ZoomCenterMode;
    Flag ZoomUndoAvailable;
    Flag PrintMode;      // painting uses the print colours
    Flag ExpandApplied;  // the last paint applied ExpandToSuit
    Flag CursorTrackOn;
    std::int32_t TrackDot = 0;  // the dot under the cross of cursor track and point edit
    double TrackValue = 0.0;
    Flag TrackShown;         // a dot was chosen since the tool went on
    Flag SelectMode = true;  // the rest state of the tools
    Flag HandDrawOn;
    Flag LineDrawOn;
    std::int32_t DrawStartDot = 0;   // first dot that the stroke or line wrote, its gap included
    std::int32_t DrawAnchorDot = 0;  // last dot that it wrote
    std::int32_t DrawPrevDot = 0;    // where its last point stands
    double DrawPrevValue = 0.0;      // amplitude of that point
    Flag DrawPressed;                // mouse down inside a stroke
    Flag LinePending;                // a line has a first point and waits for the next
    Flag LineWritten;                // the line has written dots
    Flag PointEditOn;
    std::string Name;                            // title, "Waveform" and the slot at first
    std::int32_t PlotWidth = 0, PlotHeight = 0;  // device pixels at the last layout
    Flag Saved;                                  // the document has a file
    Flag Modified;                               // changes since the last save
    std::uint64_t EditStamp = 0;                 // EditClock at the last change
    std::string FileName;                        // full path
    std::string FolderName;                      // folder of the last file dialog
    Flag InUse;
};
