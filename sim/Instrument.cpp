// A message is looked up in the rows below: head, separator, argument. Spelling counts, case
// included. Rows of the same head and separator belong to different instruments.
#include "Instrument.h"

#include "Commands.h"
#include "QuietCommands.h"

namespace sim {

namespace {

constexpr std::string_view Vendor = "NORVIK TECHNOLOGIES";  // the field has 18 characters
constexpr std::string_view OtherVendor = "OTHERMAKER COMPANY";
constexpr std::string_view Finished = "PARSE FINISHED\n";
constexpr std::string_view NoiseBytes = "~R#";

// Which instruments know a command.
bool Everyone(const Identity&) {
    return true;
}
bool IsNew(const Identity& id) {
    return !IsOld(id);
}
bool RenamesWithLeadingComma(const Identity& id) {
    return IsOld(id) || id.Model == Family::Kt2200;
}
bool RenamesWithComma(const Identity& id) {
    return id.Variant;
}
bool RenamesWithBlanks(const Identity& id) {
    return !id.Variant && !RenamesWithLeadingComma(id);
}

Outcome TakeIn(Instrument&, std::string_view) {
    return {};
}

Outcome Identify(Instrument& instrument, std::string_view) {
    std::string_view vendor = Vendor.substr(0, instrument.Fault.Nineteen ? 19 : 18);
    if (instrument.Fault.Vendor) vendor = OtherVendor;
    return AnswerLine(IdentificationOf(instrument.Id, vendor));
}

enum Trait : unsigned {
    UsbOnly = 1,
    Acknowledged = 2,  // by a line on the serial link
    SampleData = 4,    // a packet of a transfer
    Binary = 8,        // samples behind a field of characters
};

struct Row {
    std::string_view Head;
    char Separator;  // between head and argument; 0: the head is all
    bool (*IsKnown)(const Identity&);
    Outcome (*Run)(Instrument&, std::string_view argument);
    unsigned Traits = 0;
};

constexpr Row Rows[] = {
    {"*IDN?", 0, Everyone, Identify},
    {"SYSTEM:LOCAL", 0, Everyone, TakeIn},
    {"DATA:Catalog?", 0, Everyone, ListAnalog},
    {"DATA:Nvolatile:FREE?", 0, Everyone, CountFree},
    {"DATA:Nvolatile:Catalog?", 0, Everyone, ListStoredAnalog},
    {"DATA:DAC16 Volatile", ',', IsNew, TakeBinary, UsbOnly | SampleData | Binary},
    {"DATA:DAC16_Volatile", ',', IsOld, TakeBinary, UsbOnly | SampleData | Binary},
    {"DATA:DAC Volatile", ',', IsNew, TakeText, Acknowledged | SampleData},
    {"DATA:DAC_Volatile", ',', IsOld, TakeText, Acknowledged | SampleData},
    {"DATA Volatile", ',', Everyone, TakeReal, Acknowledged | SampleData},
    {"DATA:COPY", ' ', Everyone, CopyAnalog, Acknowledged},
    {"DATA:DELete", ' ', Everyone, Delete},
    {"DATA:REName", ' ', RenamesWithComma, RenameByComma},
    {"DATA:REName", ',', RenamesWithLeadingComma, RenameByComma},
    {"DATA:REName", ' ', RenamesWithBlanks, RenameByBlank},
    {"FUNction:USER", ' ', Everyone, SelectWave},
    {"APPLy:USER", ' ', Everyone, ApplyUser},
    {"FREQuency?", 0, Everyone, TellFrequency},
    {"VOLTage?", 0, Everyone, TellAmplitude},
    {"VOLTage:OFFSet?", 0, Everyone, TellOffset},
    {"DATA:LOAD", ' ', Everyone, LoadAnalog, UsbOnly},
    {"DATA:CATALOG?", 0, HasDigital, TakeIn},  // only makes ready for the next one
    {"DATA:DIGIT:Catalog?", 0, HasDigital, ListDigital},
    {"DATA:DIGIT:Nvolatile:Catalog?", 0, HasDigital, ListStoredDigital},
    {"DATA:DIGIT:Nvolatile:FREE?", 0, HasDigital, CountFree},
    {"DATA:DIGITAL16", ',', HasDigital, TakeDigital, UsbOnly | SampleData | Binary},
    {"DATA:DIGITAL", ',', HasDigital, RefuseDigitalText, Acknowledged},
    {"DATA DIGITAL", ',', HasDigital, RefuseDigitalText, Acknowledged},
    {"DATA:DIGIT:COPY", ' ', HasDigital, CopyDigital, Acknowledged},
    {"DATA:DIGIT:LOAD", ' ', HasDigital, LoadDigital, UsbOnly},
    {"DATA:DIGIT:DELete", ' ', HasDigital, Delete},
    {"DATA:DIGIT:REName", ' ', HasDigital, RenameByBlank},
    {"DIGIT:PROTOCOL?", 0, HasDigital, ListProtocols},
    {"DIGIT:PROTOCOL", ' ', HasDigital, SelectProtocol},
    {"DIGIT:RATE?", 0, HasDigital, TellDigitRate},
    {"DIGIT:RATE", ' ', HasDigital, SetDigitRate},
    {"DIGIT:USER", ' ', HasDigital, SelectDigital},
    {"DIGIT:FINISH", 0, HasDigital, FinishDigital},
};

bool Matches(const Row& row, std::string_view message) {
    if (!message.starts_with(row.Head)) return false;
    message.remove_prefix(row.Head.size());
    return row.Separator ? message.starts_with(row.Separator) : message.empty();
}

/// The row that this instrument knows, or else one that another knows; null when no one does.
const Row* FindRow(const Identity& id, std::string_view message) {
    const Row* foreign = nullptr;
    for (const Row& row : Rows) {
        if (!Matches(row, message)) continue;
        if (row.IsKnown(id)) return &row;
        foreign = &row;
    }
    return foreign;
}

Outcome HandleOther(std::string_view message) {
    if (const auto reply = AnswerQuietly(message)) return AnswerLine(*reply);
    if (!IsQuietCommand(message)) return Refuse("unknown command");
    Outcome outcome;
    outcome.Note = "no effect here";
    return outcome;
}

// There is no command that ends a transfer early: what has come in stays in the volatile memory.
void BreakOffTransfer(Instrument& instrument, const Row* row) {
    const WaveKind kind = row && row->Run == TakeDigital ? WaveKind::Digital : WaveKind::Analog;
    const bool goesOn = row && row->Traits & SampleData && kind == instrument.IncomingKind;
    if (instrument.IsReceiving && !goesOn) CompleteTransfer(instrument);
}

std::size_t TextSize(const Row& row, std::string_view message) {
    const std::size_t head = row.Head.size() + 1;
    const std::size_t digit = row.Run == TakeDigital ? DigitTextSize(message.substr(head)) : 0;
    return head + (digit ? digit : PacketField);
}

Outcome RunRow(Instrument& instrument, const Row& row, Link link, std::string_view message) {
    if (!row.IsKnown(instrument.Id)) return Refuse("not known to this model and firmware");
    if (link != Link::Usb && row.Traits & UsbOnly) return Refuse("only on USB");
    const std::size_t head = row.Head.size() + (row.Separator ? 1 : 0);
    Outcome outcome = row.Run(instrument, message.substr(head));
    if (link == Link::Serial && row.Traits & Acknowledged && outcome.Error.empty()) {
        outcome.Reply = Finished;
        outcome.IsAcknowledgement = true;
    }
    return outcome;
}

}  // namespace

Instrument MakeInstrument(const Identity& id, const Faults& faults) {
    Instrument instrument;
    instrument.Id = id;
    instrument.Fault = faults;
    instrument.Memory.Locations = LocationCount(id);
    return instrument;
}

Outcome HandleMessage(Instrument& instrument, Link link, std::string_view message) {
    Outcome outcome;
    if (message.empty()) {
        outcome.Note = "empty message";
        return outcome;
    }
    const Row* row = FindRow(instrument.Id, message);
    BreakOffTransfer(instrument, row);
    if (!row || (row->Run != LoadAnalog && row->Run != LoadDigital)) instrument.Load = {};
    if (!row) return HandleOther(message);
    outcome = RunRow(instrument, *row, link, message);
    if (row->Traits & Binary) outcome.TextBytes = TextSize(*row, message);
    return outcome;
}

std::string ReplyAfterFaults(const Faults& faults, Link link, const Outcome& outcome) {
    if (faults.Silence || (faults.NoParseFinished && outcome.IsAcknowledgement)) return {};
    std::string reply = outcome.Reply;
    if (faults.ShortRead) reply.resize(reply.size() / 2);
    if (faults.Noise && link == Link::Serial && !reply.empty() && !outcome.IsAcknowledgement) {
        reply.insert(0, NoiseBytes);
    }
    return reply;
}

Samples OutputSamples(const Instrument& instrument) {
    const std::string& name = instrument.ActiveWave;
    return IsBuiltIn(name) ? BuiltInSamples(name)
                           : SamplesOf(instrument.Memory, WaveKind::Analog, name);
}

const Samples& OutputWords(const Instrument& instrument) {
    static const Samples none;
    const DigitSetup& output = instrument.DigitOutput;
    return output.Protocol == UserPattern
               ? SamplesOf(instrument.Memory, WaveKind::Digital, output.Wave)
               : none;
}

const ChannelMap& OutputChannels(const Instrument& instrument) {
    return ChannelsOf(instrument.Memory, instrument.DigitOutput.Wave);
}

double VoltsOf(const Instrument& instrument, std::uint16_t code) {
    return (code / (MaxCode / 2.0) - 1.0) * instrument.Amplitude / 2.0 + instrument.Offset;
}

}  // namespace sim
