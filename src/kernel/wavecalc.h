#ifndef WAVECALC_H
#define WAVECALC_H
/*
 * wavecalc: the numeric routines of the wave editor, usable from any language that can call C.
 *
 * Every routine works straight on the caller's array, keeps no pointer after it returns, and
 * touches no element but those that its arguments name. A null array, or a count below 1, leaves
 * everything as it was unless a routine says otherwise. A 32-bit float argument that is not finite
 * counts as 0. Nothing is thrown and nothing is printed. All routines may run at the same time in
 * several threads on different arrays.
 */
#include <stdint.h>

#if defined(WAVECALC_BUILD)
#define WAVECALC_API __attribute__((visibility("default")))
#else
#define WAVECALC_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* One dot of an analog wave, 16 bytes. */
typedef struct WaveDot { /* NOLINT(modernize-use-using): the interface is C */
    double X; /* position in dots; the element's index, or one less inside a drawn line */
    double Y; /* normalised amplitude, -1..1 */
} WaveDot;

/*
 * Computes a standard wave into Dots[Start] .. Dots[Start + Count - 1].
 *
 * Dots is the first dot of the array, Start (0 or more) the first one written. Each dot gets its
 * index as X and Offset + Amplitude / 2 * shape as Y, the shape lying in -1..1. Amplitude (peak to
 * peak) and Offset are normalised: 1.0 is half of the wave's full peak-to-peak range. Y is not
 * clipped: with Amplitude / 2 + |Offset| above 1 it leaves -1..1, and clipping is the caller's.
 *
 * The run holds Cycles periods of Count / Cycles dots, which need not be a whole number. Dot k of
 * the run (k from 0) stands at p = frac(k * Cycles / Count + Phase / 360) of its period. So the
 * first dot of a period is included at phase 0, the end of a period is the first dot of the next,
 * and the same run written again behind itself goes on without a seam. p is found in whole numbers,
 * so that the last dot of a long run is as exact as the first.
 *
 *   Kind       shape over p                                                          parameters
 *   0 Sine     sin(2 pi p)
 *   1 Square   +1 for p < Duty / 100, else -1                                        Duty
 *   2 Ramp     from -1 at p = 0 up to +1 at Symmetry percent, then back to -1;       Symmetry
 *              0 only falls from +1, 100 only rises from -1
 *   3 Pulse    in dots from p = 0: rises from -1 to +1 over SlopeDots, stays +1      PWidthDots,
 *              until PWidthDots, falls to -1 over SlopeDots, stays -1; the width     SlopeDots
 *              is that at half height; SlopeDots 0 makes both edges upright
 *   4 ExpRise  2 (e^(Damp p) - 1) / (e^Damp - 1) - 1: rises from -1 towards +1 at    Damp
 *              the period's end whatever the sign; below 0 it is steep first (a
 *              capacitor being charged), above 0 steep last, at 0 a straight line
 *   5 ExpFall  ExpRise upside down: falls from +1 towards -1                         Damp
 *   6 Noise    independent uniform values in -1..1, see wavecalc_seed; Cycles
 *              and Phase play no part
 *   7 Sinc     sin(pi u) / (pi u), u = (p - 0.5) (2 Overzero + 1): +1 in the         Overzero
 *              middle of the period, Overzero crossings of 0 on each side, and at
 *              the ends the extreme that would follow (so periods join smoothly)
 *   8 DC       0: Y is Offset in every dot
 *   others     nothing is written
 *
 * Ranges: Cycles below 1 counts as 1. Phase is in degrees, any value, taken modulo 360 and rounded
 * to 1/65536 degree. Duty and Symmetry are percents, held to 0..100. PWidthDots is held to 0 .. the
 * period, SlopeDots to 0 .. the smaller of the width and the rest of the period. Overzero is held
 * to 1 or more, Damp to -500..500.
 */
WAVECALC_API void drawcurves(WaveDot* Dots, int32_t Start, int32_t Count, int32_t Kind,
                             float Amplitude, float Offset, int32_t Cycles, float Phase,
                             int16_t Duty, int32_t PWidthDots, int32_t SlopeDots, int16_t Symmetry,
                             int16_t Overzero, float Damp);

/*
 * Restarts the noise of drawcurves: the same seed gives the same values on every machine. The noise
 * is one sequence per process, each call goes on where the last one ended. A process starts as if
 * seeded with 1. The generator is SplitMix64 (G. Steele, D. Lea, C. Flood, "Fast splittable
 * pseudorandom number generators", 2014) with Seed as its first state; the upper 53 bits of each
 * output, divided by 2^52, less 1, are the value.
 */
WAVECALC_API void wavecalc_seed(uint32_t Seed);

/*
 * Stretches or squeezes a run of dots to another count and scales its amplitude.
 *
 * Source holds n = SourceCount dots. Target is the first of the m = SourceCount + Delta dots that
 * are written, resampled over the same span: the first new dot is the first old one, the last the
 * last. Dot i gets SelStart + i as X and the resampled Y times AmplPercent / 100 as Y. Y is not
 * clipped; above 100 percent that is the caller's.
 *
 *   Delta > 0  new dot k stands at k (n - 1) / (m - 1) of the source. Between two source dots runs
 *              the monotone cubic of Fritsch and Butland (1984): smooth, and never outside the two
 *              dots, so that no new peak arises. Where k falls on a source dot, its Y is taken as
 *              it is. A single source dot is repeated.
 *   Delta < 0  new dot k is the average of the source over one step s = (n - 1) / (m - 1) around
 *              k s, each source dot i filling i - 1/2 .. i + 1/2 and the steps of the first and
 *              last new dot being cut to the source. So each source dot counts in full, no spike
 *              is lost, and a constant stays what it is; m = 1 gives the average of all.
 *   Delta = 0  Y times AmplPercent / 100, at 100 percent bit by bit.
 *
 * Nothing is written if Target or Source is null, or n or m is below 1. Target and Source must not
 * overlap. Needs no working memory.
 */
WAVECALC_API void resizewv(WaveDot* Target, const WaveDot* Source, int32_t SourceCount,
                           int32_t Delta, int32_t AmplPercent, int32_t SelStart);

/*
 * Replaces the Y of Count dots by the same wave through a low-pass filter. X stays.
 *
 * The filter is a sinc of FilterLen taps under a Kaiser window for 60 dB of stopband attenuation.
 * Its taps add up to 1, so a constant passes unchanged, bit by bit. It is symmetric about its dot
 * and therefore delays nothing; an even FilterLen, which has no middle, counts as one less. Before
 * the first and behind the last dot the wave goes on with that dot's value.
 * CutOff is the frequency at which the gain is one half (-6 dB); 1.0 is half the sample rate, or a
 * period of two dots. From there to the stopband the gain falls within about 3.6 / FilterLen.
 * Negative or not finite it counts as 0, which leaves the bare window; above 1 it counts as 1.
 * FftLength, the transform length of the caller's choice, has no effect: the routine finds the
 * lengths that suit it.
 *
 * Y is not clipped: behind a steep edge the filtered wave swings beyond the dots that it came from,
 * and clipping is the caller's. With one tap nothing changes, nor if null Dots are given, Count or
 * FilterLen is below 1, or the working memory (about 3 numbers for each dot of a wave with a filter
 * as long) cannot be had.
 */
WAVECALC_API void Fir_Calculate(WaveDot* Dots, int32_t Count, int32_t FilterLen, double CutOff,
                                int32_t FftLength);

/*
 * Spreads the codes of a short wave over an instrument's fixed length: sample and hold, no code is
 * invented between two others.
 *
 * Codes holds n = LastIndex + 1 codes, Spread has room for L = SpreadLength codes and is filled.
 * For n <= L place j takes code floor(j * n / L), so that every code is held for L / n places,
 * give or take one, the first code first and the last one last. For n > L codes are left out: place
 * j takes code j * (n - 1) / (L - 1), rounded with ties to even; first and last are kept (the first
 * alone when L is 1). Spread and Codes must not overlap.
 * Flag is 1 and has no effect. LastIndexAgain is LastIndex once more; if the two differ, the
 * smaller one counts.
 */
WAVECALC_API void stoInitArbConstruct(uint16_t* Spread, const uint16_t* Codes, int32_t LastIndex,
                                      int32_t Flag, int32_t LastIndexAgain, int32_t SpreadLength);

/*
 * Finds the largest and the smallest Y in Count dots.
 *
 * Dots is the dot at First, not the first dot of the array; First itself has no effect. MaxPos and
 * MinPos are relative to it, 0 .. Count - 1, the earliest position where several are equal; MaxY
 * and MinY are the Y found there. Dots that are not a number are passed over. With Count below 1,
 * null Dots, or no number among the dots, all four results are 0. A null result pointer is left
 * out.
 */
WAVECALC_API void MaxMin(const WaveDot* Dots, int32_t First, int32_t Count, int32_t* MaxPos,
                         int32_t* MinPos, double* MaxY, double* MinY);

/*
 * Turns the dots First .. Last (both included) into the set of pixels that they cover in an area of
 * Width by Height pixels, (0, 0) at the top left.
 *
 * Dots is the first dot of the array; dot i stands at its index, X is not read. With the view
 * ViewStart .. ViewEnd (dots) and ViewTop .. ViewBottom (normalised amplitude):
 *   px = (i - ViewStart) / (ViewEnd - ViewStart) * Width
 *   py = (ViewTop - Y) / (ViewTop - ViewBottom) * (Height - 1)
 * both rounded to the nearest whole number, ties to even. The last dots of the view, which round to
 * px = Width, are shown in the last column; any other pixel outside the area is dropped.
 *
 * Pixels receives pairs x, y without duplicates, column by column from the left, and the number of
 * pairs is returned. It needs room for min(Last - First + 1, Width * Height) pairs of two numbers;
 * what stands behind the returned pairs within that room is not defined.
 * Returns 0 and writes nothing for a null array, an area without pixels, ViewEnd not above
 * ViewStart, ViewTop equal to ViewBottom or either not finite. First below 0 counts as 0. A
 * ViewTop below ViewBottom turns the picture upside down. Returns 0 also if Height numbers of
 * working memory cannot be had.
 */
WAVECALC_API int32_t PlotWaveDot(const WaveDot* Dots, int32_t* Pixels, int32_t First, int32_t Last,
                                 int32_t Width, int32_t Height, double ViewTop, double ViewBottom,
                                 int32_t ViewStart, int32_t ViewEnd);

/*
 * Digital waves: Words are sample words, one for each dot, of which the low 16 bits are used.
 * Channel n, 0 to 15, is bit n. Mask is 0xFFFF less the channel's bit: what stays of a word. A Bit
 * above 15, a list with a channel outside 0..15, or a number of channels outside 1..16 leaves
 * everything as it was. The bits of channels that are not listed are never touched.
 */

/* Writes Value, 0 or 1, to a channel: each of Count words becomes (word & Mask) | Value << Bit. */
WAVECALC_API void Dealvalue(int32_t* Words, int32_t Count, uint8_t Bit, int32_t Mask,
                            int32_t Value);

/* Inverts a channel in Count words; the bits of Mask stay. */
WAVECALC_API void Dealinv(int32_t* Words, int32_t Count, uint8_t Bit, int32_t Mask);

/* Makes a channel alternate from dot to dot in Count words, beginning with 0. */
WAVECALC_API void DealClock(int32_t* Words, int32_t Count, uint8_t Bit, int32_t Mask);

/*
 * Writes a rising count to ChannelCount channels (1 to 16, each listed once, Channels[0] the most
 * significant) of Count words. The count begins at Start & Maximum, stays for Interval dots, then
 * grows by Increment; where it would pass Maximum it begins again at Start & Maximum. Of a count
 * wider than the channels the low bits are written. Maximum is 0 or more, otherwise nothing is
 * written; an Increment below 0 counts as 0, an Interval below 1 as 1.
 */
WAVECALC_API void Counting(int32_t* Words, int32_t Count, int32_t Start, int32_t Maximum,
                           int32_t Increment, int32_t Interval, const uint8_t* Channels,
                           int16_t ChannelCount);

/*
 * Copies channels between words: for each of Count dots i and each j below ChannelCount (1 to 16),
 * bit TargetChannels[j] of TargetWords[i] becomes bit SourceChannels[j] of SourceWords[i] as that
 * word was before the call. Where a target channel is listed more than once, the last one stands.
 * The two arrays are the same from the same dot on, so that channels can change places, or they do
 * not overlap.
 */
WAVECALC_API void CopyPasteData(const int32_t* SourceWords, int32_t* TargetWords, int32_t Count,
                                const int16_t* SourceChannels, const int16_t* TargetChannels,
                                int16_t ChannelCount);

/*
 * The next dot behind FromDot, below Dots, at which the value of Width channels differs from that
 * at FromDot; Dots where it stays the same to the end, FromDot lies outside 0 .. Dots - 1, an array
 * is null, or the channels cannot be used. Words is the word of dot 0.
 */
WAVECALC_API int32_t GetBusDifPos(const int32_t* Words, int32_t FromDot, int32_t Dots,
                                  const uint8_t* Channels, int16_t Width);

/*
 * Whether a channel changes inside a pixel column: Result becomes 1 where two dots of
 * FirstDot .. LastDot (both included, truncated to whole dots, held to 0 .. Dots - 1) differ in the
 * bit, otherwise 0, without words or with a Bit above 15 too. A bound that is not a number counts
 * as 0. Words is the word of dot 0.
 */
WAVECALC_API void GetLinkOnePixel(const int32_t* Words, double FirstDot, double LastDot,
                                  uint8_t Bit, int32_t Dots, uint8_t* Result);

/*
 * The same for all channels and Columns pixel columns in one pass. Column c holds the dots
 * FirstDots[c] .. FirstDots[c + 1] - 1; FirstDots has Columns + 1 elements that never fall, from 0
 * on. Bit n of Changed[c] is set where channel n changes inside the column or between the dot
 * before it and its first one; before FirstDots[0] no dot is read. A column without dots has no
 * change. Words holds Dots words, a dot behind them reads 0; they may be null when Dots is 0.
 */
WAVECALC_API void GetColumnChanges(const int32_t* Words, int32_t Dots, const int32_t* FirstDots,
                                   int32_t Columns, int32_t* Changed);

#ifdef __cplusplus
}
#endif
#endif
