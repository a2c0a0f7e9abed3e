#pragma once
// The commands that rewrite dots in place without a dialog: of the selection, or windows over the
// whole wave. Values are normalised amplitudes, -1..1.
#include "kernel/wavecalc.h"

#include <span>

// What becomes of the dots of a run.
void AbsoluteDots(std::span<WaveDot> dots);
void InvertDots(std::span<WaveDot> dots);
/// Reverses the amplitudes; of an odd run the middle one stays.
void MirrorDots(std::span<WaveDot> dots);

// What becomes of the N dots of a wave, at least two; dot i is scaled by
//   Extend Cosine   0.5 (1 - cos(2 pi 5 i / (N - 1))) in the first and the last tenth, else 1
//   Raised Cosine   0.5 (1 - cos(2 pi i / (N - 1)))
//   Hamming         0.08 + 0.46 (1 - cos(2 pi i / (N - 1)))
void ExtendCosineDots(std::span<WaveDot> dots);
void RaisedCosineDots(std::span<WaveDot> dots);
void HammingDots(std::span<WaveDot> dots);

/// Math Cut of the active document: the selected dots are held between the horizontal limit lines.
/// Nothing happens without a selection or without the lines.
void CutSelection();

/// Applies a window to the whole active wave as one edit. Nothing happens below two dots.
void ApplyWindow(void (*window)(std::span<WaveDot>));
