// Layout in pixels: a plot of ten by ten divisions, with the scales left and below. The amplitude
// takes the eight divisions in the middle of the height. Few dots are joined by lines; many become
// a stroke from the smallest to the largest voltage of each column, reaching back to the last dot
// of the column before. A digital output has a row for each channel, cut at the columns in which it
// changes.
#include "Picture.h"

#include <unistd.h>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>

namespace sim {

namespace {

constexpr int Left = 90, Top = 60, Columns = 800, Rows = 400;
constexpr int Width = Left + Columns + 40, Height = Top + Rows + 60;
constexpr int Divisions = 10;
constexpr int SwingDivisions = 8;  // of the height, for the amplitude
constexpr std::size_t FirstSamples = 8;

template <typename... Values>
std::string Format(const char* form, Values... values) {
    char text[400];
    std::snprintf(text, sizeof text, form, values...);
    return text;
}

double RowOfCode(double code) {
    const double swing = double{Rows} * SwingDivisions / Divisions;
    return Top + (Rows - swing) / 2 + (1.0 - code / MaxCode) * swing;
}

double VoltsOfDivision(const Instrument& instrument, int fromMiddle) {
    const double volts = instrument.Offset + fromMiddle * instrument.Amplitude / SwingDivisions;
    return std::abs(volts) < instrument.Amplitude * 1e-9 ? 0.0 : volts;  // rounding, no volts
}

std::string JoinedDots(const Samples& codes) {
    std::string points;
    const double step = double{Columns} / static_cast<double>(codes.size());
    for (std::size_t dot = 0; dot <= codes.size(); ++dot) {  // the period ends where it began
        points += Format("%c%.2f %.2f", dot ? 'L' : 'M', Left + static_cast<double>(dot) * step,
                         RowOfCode(codes[dot % codes.size()]));
    }
    return points;
}

std::string ColumnStrokes(const Samples& codes) {
    std::string strokes;
    for (std::size_t column = 0; column < Columns; ++column) {
        const std::size_t first = column * codes.size() / Columns;
        const std::size_t end = (column + 1) * codes.size() / Columns;
        const auto from = codes.begin() + static_cast<std::ptrdiff_t>(first ? first - 1 : 0);
        const auto [low, high] =
            std::minmax_element(from, codes.begin() + static_cast<std::ptrdiff_t>(end));
        const double x = Left + static_cast<double>(column) + 0.5;
        // A flat run is drawn as high as the line is wide.
        strokes += Format("M%.1f %.2fV%.2f", x, RowOfCode(*high) - 0.75, RowOfCode(*low) + 0.75);
    }
    return strokes;
}

/// Lines and labels of the time, for a plot of `length` seconds.
void AddTimes(double length, std::string& lines, std::string& texts) {
    for (int across = 0; across <= Divisions; ++across) {
        const int x = Left + across * Columns / Divisions;
        lines += Format("M%d %dv%d", x, Top, Rows);
        const std::string time = WithUnit(across * length / Divisions, "s");
        if (across % 2 == 0) {
            texts += Format("<text x='%d' y='%d' text-anchor='middle'>%s</text>\n", x,
                            Top + Rows + 22, time.c_str());
        }
    }
}

std::string GridAndScales(const Instrument& instrument) {
    std::string lines, texts;
    AddTimes(1.0 / instrument.Frequency, lines, texts);
    for (int down = 0; down <= Divisions; ++down) {
        const int y = Top + down * Rows / Divisions;
        lines += Format("M%d %dh%d", Left, y, Columns);
        const int fromMiddle = Divisions / 2 - down;
        if (fromMiddle % 2 != 0) continue;
        const double volts = VoltsOfDivision(instrument, fromMiddle);
        texts += Format("<text x='%d' y='%d' text-anchor='end'>%s</text>\n", Left - 10, y + 4,
                        WithUnit(volts, "V").c_str());
    }
    const int middle = Top + Rows / 2, centre = Left + Columns / 2;
    return "<path d='" + lines + "' stroke='#2b3542'/>\n" +
           Format("<path d='M%d %dh%dM%d %dv%d' stroke='#4a5868'/>\n", Left, middle, Columns,
                  centre, Top, Rows) +
           "<g fill='#93a1b1' font-size='13'>\n" + texts + "</g>\n";
}

/// A row of a digital wave, `high` and `low` being the pixels of its two levels.
std::string ChannelTrace(const Samples& words, unsigned channel, int high, int low) {
    const auto levelOf = [&](std::size_t dot) { return (words[dot] >> channel & 1u) != 0; };
    bool level = levelOf(0);
    std::string trace = Format("M%d %d", Left, level ? high : low);
    std::size_t dot = 0;
    for (std::size_t column = 0; column < Columns; ++column) {
        const bool before = level;
        bool changes = false;
        for (; dot * Columns < (column + 1) * words.size(); ++dot) {
            changes |= levelOf(dot) != before;
            level = levelOf(dot);
        }
        if (!changes) continue;
        trace += Format("H%d", Left + static_cast<int>(column));
        if (level == before) trace += Format("V%d", before ? low : high);
        trace += Format("V%d", level ? high : low);
    }
    return trace + Format("H%d", Left + Columns);
}

std::string DigitalPlot(const Instrument& instrument) {
    const Samples& words = OutputWords(instrument);
    if (words.empty()) return {};  // a pattern of the instrument's own
    std::string lines, texts, traces;
    AddTimes(static_cast<double>(words.size()) / instrument.DigitOutput.Rate, lines, texts);
    constexpr int rowHeight = Rows / static_cast<int>(MaxChannels);
    int top = Top;
    for (const unsigned channel : OutputChannels(instrument)) {
        traces += ChannelTrace(words, channel, top + 4, top + rowHeight - 4);
        texts += Format("<text x='%d' y='%d' text-anchor='end'>D%u</text>\n", Left - 10, top + 17,
                        channel);
        top += rowHeight;
    }
    return "<path d='" + lines + "' stroke='#2b3542'/>\n<g fill='#93a1b1' font-size='13'>\n" +
           texts + "</g>\n<path fill='none' stroke='#ffc83d' d='" + traces + "'/>\n";
}

std::string AnalogPlot(const Instrument& instrument) {
    const Samples codes = OutputSamples(instrument);
    const bool sparse = codes.size() <= 2 * std::size_t{Columns};
    return GridAndScales(instrument) +
           "<path fill='none' stroke='#ffc83d' stroke-linejoin='round' stroke-width='1.5' d='" +
           (sparse ? JoinedDots(codes) : ColumnStrokes(codes)) + "'/>\n";
}

std::string DotsText(std::size_t dots) {
    return std::to_string(dots) + " dots";
}

// What plays, and its values, in words.
struct Caption {
    std::string Name, Values;
};

Caption CaptionOf(const Instrument& instrument) {
    if (instrument.Playing == WaveKind::Analog) {
        return {instrument.ActiveWave, WithUnit(instrument.Frequency, "Hz") + ", " +
                                           WithUnit(instrument.Amplitude, "V peak to peak") +
                                           ", offset " + WithUnit(instrument.Offset, "V") + ", " +
                                           DotsText(OutputSamples(instrument).size())};
    }
    const DigitSetup& output = instrument.DigitOutput;
    const std::string rate = WithUnit(output.Rate, "bps");
    if (output.Protocol != UserPattern) return {output.Protocol, rate};
    return {output.Wave, rate + ", " + std::to_string(OutputChannels(instrument).size()) +
                             " channels, " + DotsText(OutputWords(instrument).size())};
}

std::string DigitalNumbers(const Instrument& instrument) {
    const Samples& words = OutputWords(instrument);
    const DigitSetup& output = instrument.DigitOutput;
    std::string text =
        "protocol   " + output.Protocol + "\nrate       " + WithUnit(output.Rate, "bps") + "\n";
    if (words.empty()) return text;
    text += "wave       " + output.Wave + ", " + DotsText(words.size()) + "\nchannels  ";
    for (const unsigned channel : OutputChannels(instrument)) text += Format(" D%u", channel);
    text += "\nfirst     ";
    for (std::size_t dot = 0; dot < std::min(FirstSamples, words.size()); ++dot) {
        text += Format(dot ? ", 0x%04X" : " 0x%04X", unsigned{words[dot]});
    }
    return text + "\n";
}

}  // namespace

std::string WithUnit(double value, std::string_view unit) {
    constexpr const char* Prefixes[] = {"n", "u", "m", "", "k", "M"};
    const double size = std::abs(value);
    std::size_t prefix = size == 0.0 ? 3 : 0;
    double scale = size == 0.0 ? 1.0 : 1e-9;
    while (prefix + 1 < std::size(Prefixes) && size >= 999.95 * scale) {
        scale *= 1000.0;
        ++prefix;
    }
    return Format("%.4g %s", value / scale, Prefixes[prefix]) + std::string(unit);
}

std::string PictureOf(const Instrument& instrument) {
    const Caption caption = CaptionOf(instrument);
    const std::string title =
        RowOf(instrument.Id.Model).Name + std::string(" output: ") + caption.Name;
    std::string svg = Format(
        "<svg xmlns='http://www.w3.org/2000/svg' width='%d' height='%d' viewBox='0 0 %d %d' "
        "font-family='sans-serif'>\n<rect width='%d' height='%d' fill='#161b22'/>\n"
        "<rect x='%d' y='%d' width='%d' height='%d' fill='#0c1014'/>\n",
        Width, Height, Width, Height, Width, Height, Left, Top, Columns, Rows);
    svg += Format("<text x='%d' y='36' font-size='18' fill='#e6edf3'>", Left) + title + "</text>\n";
    svg += Format("<text x='%d' y='36' font-size='13' fill='#93a1b1' text-anchor='end'>",
                  Left + Columns) +
           caption.Values + "</text>\n";
    const bool isAnalog = instrument.Playing == WaveKind::Analog;
    return svg + (isAnalog ? AnalogPlot(instrument) : DigitalPlot(instrument)) + "</svg>\n";
}

bool WritePicture(const Instrument& instrument, const std::string& path) {
    const std::string fresh = path + "." + std::to_string(getpid());
    std::ofstream file(fresh, std::ios::binary);
    file << PictureOf(instrument);
    file.close();
    if (file && std::rename(fresh.c_str(), path.c_str()) == 0) return true;
    std::remove(fresh.c_str());
    return false;
}

std::string NumbersOf(const Instrument& instrument) {
    if (instrument.Playing == WaveKind::Digital) return DigitalNumbers(instrument);
    const Samples codes = OutputSamples(instrument);
    const auto [low, high] = std::minmax_element(codes.begin(), codes.end());
    const auto volts = [&](std::uint16_t code) { return WithUnit(VoltsOf(instrument, code), "V"); };
    std::string text = "wave       " + instrument.ActiveWave + ", " + std::to_string(codes.size()) +
                       " dots\nfrequency  " + WithUnit(instrument.Frequency, "Hz") +
                       "\namplitude  " + WithUnit(instrument.Amplitude, "V") + "\noffset     " +
                       WithUnit(instrument.Offset, "V") + "\nrange      " + volts(*low) + " to " +
                       volts(*high) + "\nfirst     ";
    for (std::size_t dot = 0; dot < std::min(FirstSamples, codes.size()); ++dot) {
        text +=
            " " + volts(codes[dot]) + (dot + 1 < std::min(FirstSamples, codes.size()) ? "," : "");
    }
    return text + "\n";
}

}  // namespace sim
