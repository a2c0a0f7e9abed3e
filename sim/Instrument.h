#pragma once
// The instrument behind its connectors: what it keeps, and what it does with a message.
#include "Faults.h"
#include "Identity.h"
#include "WaveMemory.h"

namespace sim {

enum class Link : std::uint8_t { Usb, Serial };

// A load command is sent again and again: the first gives the count, each further one a packet.
struct LoadUnderWay {
    std::string Name;  // empty: none, the next load command gives a count
    WaveKind Kind = WaveKind::Analog;
    std::size_t Next = 0;  // first sample of the next packet
};

// What the digital output plays, or will play at the end of its set-up.
struct DigitSetup {
    std::string Protocol{UserPattern};
    double Rate = 1000.0;            // bits per second
    std::string Wave{VolatileName};  // the user's pattern
};

struct Instrument {
    Identity Id;
    Faults Fault;
    WaveMemory Memory;
    Samples Incoming;  // packets of a transfer that is not complete
    WaveKind IncomingKind = WaveKind::Analog;
    ChannelMap IncomingChannels;
    bool IsReceiving = false;  // the last data packet said that more follows
    LoadUnderWay Load;
    std::string ActiveWave{BuiltInNames[0]};  // as the catalogue spells it
    double Frequency = 1000.0;                // hertz
    double Amplitude = 1.0;                   // volts, peak to peak
    double Offset = 0.0;                      // volts
    DigitSetup Digit;                         // as the commands have left it
    DigitSetup DigitOutput;                   // the last one that was finished
    WaveKind Playing = WaveKind::Analog;      // the active output
    std::uint32_t OutputVersion = 0;          // counts the changes of the active output
};

// What became of a message.
struct Outcome {
    std::string Reply;         // bytes to be read; empty: none
    std::string Note;          // for the transcript
    std::string Error;         // why it was refused and has changed nothing
    bool ReplyIsData = false;  // the reply is samples, not text
    bool IsAcknowledgement = false;
    std::size_t TextBytes = std::string::npos;  // the message is text up to here, then samples
};

Instrument MakeInstrument(const Identity& id, const Faults& faults);

/// Takes in one whole message without its terminator; an empty one is noted and changes nothing.
/// Replies are complete, with their line feed.
Outcome HandleMessage(Instrument& instrument, Link link, std::string_view message);

/// What the faults leave of a reply.
std::string ReplyAfterFaults(const Faults& faults, Link link, const Outcome& outcome);

/// One period of what the analog output plays.
Samples OutputSamples(const Instrument& instrument);

/// The words of the digital output; none for a protocol that the instrument makes itself.
const Samples& OutputWords(const Instrument& instrument);

/// The channels of these words, the top row first.
const ChannelMap& OutputChannels(const Instrument& instrument);

/// The voltage that the output gives for a code.
double VoltsOf(const Instrument& instrument, std::uint16_t code);

}  // namespace sim
