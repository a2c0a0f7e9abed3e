#pragma once
// The instrument behind its connectors: what it keeps, and what it does with a message.
#include "Faults.h"
#include "Identity.h"
#include "WaveMemory.h"

namespace sim {

enum class Link : std::uint8_t { Usb, Serial };

// A load command is sent again and again: the first gives the count, each further one a packet.
struct LoadUnderWay {
    std::string Name;      // empty: none, the next load command gives a count
    std::size_t Next = 0;  // first sample of the next packet
};

struct Instrument {
    Identity Id;
    Faults Fault;
    WaveMemory Memory;
    Samples Incoming;          // packets of a transfer that is not complete
    bool IsReceiving = false;  // the last data packet said that more follows
    LoadUnderWay Load;
    std::string ActiveWave{BuiltInNames[0]};  // as the catalogue spells it
    double Frequency = 1000.0;                // hertz
    double Amplitude = 1.0;                   // volts, peak to peak
    double Offset = 0.0;                      // volts
    std::string DigitProtocol = "PO";         // "PO": the user's pattern
    double DigitRate = 1000.0;                // bits per second
    std::uint32_t OutputVersion = 0;          // counts the changes of the analog output
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

/// Takes in one whole message without its terminator. Replies are complete, with their line feed.
Outcome HandleMessage(Instrument& instrument, Link link, std::string_view message);

/// What the faults leave of a reply.
std::string ReplyAfterFaults(const Faults& faults, Link link, const Outcome& outcome);

/// One period of what the analog output plays.
Samples OutputSamples(const Instrument& instrument);

/// The voltage that the output gives for a code.
double VoltsOf(const Instrument& instrument, std::uint16_t code);

}  // namespace sim
