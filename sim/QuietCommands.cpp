#include "QuietCommands.h"

#include <algorithm>

namespace sim {

namespace {

// A blank and an argument follow.
constexpr std::string_view WithArgument[] = {
    "APPLy:SINusoid",
    "APPLy:SQUare",
    "APPLy:RAMP",
    "APPLy:PULSe",
    "APPLy:NOISe",
    "FUNCtion:SQUare:DCYCle",
    "FUNCtion:RAMP:SYMMetry",
    "PULSe:WIDTh",
    "PULSe:TRANsition",
    "AM:SOUR",
    "AM:INTernal:FREQuency",
    "AM:DEPT",
    "AM:INTernal:FUNCtion",
    "FM:SOUR",
    "FM:INTernal:FREQuency",
    "FM:DEV",
    "FM:INTernal:FUNCtion",
    "FSK:SOUR",
    "FM:INTernal:RATE",
    "FSK:FREQ",
    "SWEep:TIME",
    "FREQuency:STARt",
    "FREQuency:STOP",
    "SWEep:SPACing",
    "BURSt:PHASe",
    "TRIGger:SOURce",
    "TRIGger:SLOPe",
    "OUTPut:TRIGger:SLOPe",
    "MARKer:FREQuency",
    "BURSt:MODE",
    "BURSt:NCYCles",
    "BURSt:INTernal:PERiod",
    "BURSt:GATE:POLarity",
    "UNIT:ANGLe",
    "OUTPut:POLarity",
    "VOLTage:UNIT",
    "OUTPut:LOAD",
    "MEMory:STATe:NAME",
    "*SAV",
    "*RCL",
    "MEMory:STATe:DELete",
    "SYSTem:INTerface",
};

constexpr std::string_view Whole[] = {
    "AM:STATe ON",       "AM:STATe OFF",       "FM:STATe ON",    "FM:STATe OFF",
    "FSK:STATe ON",      "FSK:STATe OFF",      "SWEep:STATe ON", "SWEep:STATe OFF",
    "OUTPut:TRIGger ON", "OUTPut:TRIGger OFF", "MARKer ON",      "MARKer OFF",
    "BURSt:STATe ON",    "BURSt:STATe OFF",    "OUTPut:SYNC",    "OUTPut:SYNC ON",
    "OUTPut:SYNC OFF",   "SYSTem:LOCal",       "SYSTem:RWLock",
};

}  // namespace

bool IsQuietCommand(std::string_view message) {
    if (std::ranges::find(Whole, message) != std::end(Whole)) return true;
    return std::ranges::any_of(WithArgument, [&](std::string_view head) {
        return message.starts_with(head) && message.size() > head.size() + 1 &&
               message[head.size()] == ' ';
    });
}

std::optional<std::string> AnswerQuietly(std::string_view message) {
    if (message == "MEMory:STATe:VALid?") return "0";
    if (message == "MEMory:STATe:NAME?") return "\"\"";
    return {};
}

}  // namespace sim
