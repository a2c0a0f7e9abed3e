#pragma once
// The global tables: instrument limits, open documents, active document, clipboard. They own
// every record for the life of the program; windows are only views of them.
#include "frame/records/AnalogWaveRecord.h"

#include <array>
#include <cstdint>
#include <vector>

inline constexpr std::int16_t MaxDocuments = 10;  // slots 0..9 are used, the tables have one more
// Windows are told apart by their tags: an analog slot, or a digital slot plus this.
inline constexpr std::int16_t FirstDigitTag = 10;

// Layout of a document window's back area, logical pixels. The plot is the back area less the
// margins, placed at (WaveAreaLeft, WaveAreaTop).
inline constexpr std::int16_t WaveAreaLeft = 36;
inline constexpr std::int16_t WaveAreaTop = 32;
inline constexpr std::int16_t WaveMarginWidth = 74;
inline constexpr std::int16_t WaveMarginHeight = 60;

// Limits of the selected instrument model, set by SetInstrumentLimits.
extern std::uint8_t InstrumentModel;  // 0 KT1100, 1 KT2200, 2 KT3300
extern Flag ModelVariant;             // early KT1100: longer smallest period
extern std::int32_t MaxWaveDots, MinWaveDots;
extern double MaxVpp, MinVpp;              // volts
extern double MaxPeriod, MinPeriod;        // seconds
extern double MaxFrequency, MinFrequency;  // hertz
extern std::int16_t MaxQuantify, MinQuantify;

extern std::array<AnalogWaveRecord, MaxDocuments + 1> AnalogDocs;
extern std::array<Flag, MaxDocuments + 1> AnalogInUse;
extern std::int16_t AnalogDocCount;
extern std::int16_t ActiveAnalogIndex;
extern std::int16_t DigitDocCount;
extern std::int16_t ActiveDigitIndex;
extern Flag ActiveIsDigital;

/// Counts the changes of all documents: a record's EditStamp takes the next number, so that no two
/// states have the same one.
extern std::uint64_t EditClock;

extern Flag PropertyConfirmed;  // set by the OK of the property dialog
extern Flag PropertyEditMode;   // the property dialog edits an open document
extern Flag DocReady;           // false while a window is built: resizes do nothing
extern Flag DocBuilding;
extern std::int16_t PreviousActiveDoc;  // last built or activated document

// The program-wide clipboard of normalised amplitudes; positions are not kept.
extern std::int32_t ClipDotCount;
extern std::vector<double> ClipValues;
extern Flag ClipAvailable;

/// The dots that a model can have: 0 KT1100, 1 KT2200, 2 KT3300.
std::int32_t MostDotsOf(std::uint8_t model);

/// Sets the limits for `InstrumentModel` and `ModelVariant`.
void SetInstrumentLimits();

/// Sets the stored instrument model, KT1100 where it is missing or unknown, and its limits, and
/// clears the flags of the opening sequence.
void InitialiseGlobals();

/// Lowest slot 0..9 not in use; -1 when all are.
std::int16_t FirstFreeSlot(const std::array<Flag, MaxDocuments + 1>& used);

/// The record of a slot.
AnalogWaveRecord& AnalogAt(std::int16_t slot);
/// The record of `ActiveAnalogIndex`.
AnalogWaveRecord& ActiveAnalog();
