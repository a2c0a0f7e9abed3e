// Commands on digital waves. Queries and settings; there are no digital samples yet, so the
// digital memory is empty.
#include "Commands.h"

#include <algorithm>

namespace sim {

namespace {

constexpr std::string_view Protocols[] = {"RS232", "USB", "SPI", "CAN", "LAN", "DS", "TV"};

}  // namespace

Outcome ListDigital(Instrument& instrument, std::string_view) {
    return AnswerLine(CatalogueText(instrument.Memory, WaveKind::Digital));
}

Outcome ListStoredDigital(Instrument& instrument, std::string_view) {
    return AnswerLine(StoredNamesText(instrument.Memory, WaveKind::Digital));
}

Outcome RefuseDigitalData(Instrument&, std::string_view) {
    return Refuse("digital samples are not simulated");
}

Outcome CopyDigital(Instrument&, std::string_view) {
    return Refuse("the digital volatile memory is empty");
}

Outcome LoadDigital(Instrument&, std::string_view name) {
    if (!IsWaveName(name)) return Refuse("not a name");
    Outcome outcome;
    outcome.Reply = std::string(name) + ",0";
    return outcome;
}

Outcome ListProtocols(Instrument&, std::string_view) {
    std::string list;
    for (const std::string_view name : Protocols) list += ",\"" + std::string(name) + "\"";
    return AnswerLine(list.substr(1));
}

Outcome SelectProtocol(Instrument& instrument, std::string_view name) {
    if (name != "PO" && std::ranges::find(Protocols, name) == std::end(Protocols)) {
        return Refuse("no such protocol");
    }
    instrument.DigitProtocol = name;
    return {};
}

Outcome SetDigitRate(Instrument& instrument, std::string_view text) {
    const auto rate = ReadNumber(text);
    if (!rate || *rate <= 0.0) return Refuse("not a rate");
    instrument.DigitRate = *rate;
    return {};
}

Outcome TellDigitRate(Instrument& instrument, std::string_view) {
    return AnswerLine(NumberText(instrument.DigitRate));
}

Outcome SelectDigital(Instrument&, std::string_view) {
    return Refuse("no such digital wave");
}

}  // namespace sim
