#pragma once
// The instrument's command strings, sent letter for letter: the instrument folds no letters, and
// "DATA:Catalog?" and "DATA:CATALOG?" are two commands. What follows a string on the wire (blanks,
// commas, values) is written where it is sent.
#include <string_view>

namespace Command {

// Commands and parts of commands that the editor sends
inline constexpr std::string_view Identify = "*IDN?";
inline constexpr std::string_view Local = "SYSTEM:LOCAL";
inline constexpr std::string_view Catalogue = "DATA:Catalog?";
inline constexpr std::string_view PrimeDigitCatalogue = "DATA:CATALOG?";
inline constexpr std::string_view DigitCatalogue = "DATA:DIGIT:Catalog?";
inline constexpr std::string_view FreeLocations = "DATA:Nvolatile:FREE?";
inline constexpr std::string_view Protocols = "DIGIT:PROTOCOL?";
inline constexpr std::string_view Binary16 = "DATA:DAC16 Volatile,";
inline constexpr std::string_view Binary16Old = "DATA:DAC16_Volatile,";
inline constexpr std::string_view DacText = "DATA:DAC Volatile,";
inline constexpr std::string_view DacTextOld = "DATA:DAC_Volatile,";
inline constexpr std::string_view RealText = "DATA Volatile,";
inline constexpr std::string_view Digital16 = "DATA:DIGITAL16,";
inline constexpr std::string_view DigitalText = "DATA:DIGITAL,";
inline constexpr std::string_view MoreFollows = "CON";
inline constexpr std::string_view LastPacket = "END,";
inline constexpr std::string_view Copy = "DATA:COPY";
inline constexpr std::string_view DigitCopy = "DATA:DIGIT:COPY";
inline constexpr std::string_view Delete = "DATA:DELete";
inline constexpr std::string_view Rename = "DATA:REName";
inline constexpr std::string_view SelectUser = "FUNction:USER";
inline constexpr std::string_view Apply = "APPLy:";
inline constexpr std::string_view ApplyUser = "USER";
inline constexpr std::string_view Load = "DATA:LOAD";
inline constexpr std::string_view DigitLoad = "DATA:DIGIT:LOAD";
inline constexpr std::string_view FrequencyQuery = "FREQuency?";
inline constexpr std::string_view VoltageQuery = "VOLTage?";
inline constexpr std::string_view OffsetQuery = "VOLTage:OFFSet?";
inline constexpr std::string_view DigitRateQuery = "DIGIT:RATE?";
inline constexpr std::string_view DigitProtocol = "DIGIT:PROTOCOL";
inline constexpr std::string_view DigitRate = "DIGIT:RATE";
inline constexpr std::string_view DigitUser = "DIGIT:USER";
inline constexpr std::string_view DigitFinish = "DIGIT:FINISH";

// The rest of the vocabulary
inline constexpr std::string_view Sine = "SINusoid";
inline constexpr std::string_view Square = "SQUare";
inline constexpr std::string_view Ramp = "RAMP";
inline constexpr std::string_view Pulse = "PULSe";
inline constexpr std::string_view Noise = "NOISe";
inline constexpr std::string_view SquareDutyCycle = "FUNCtion:SQUare:DCYCle";
inline constexpr std::string_view SweepStateOff = "SWEep:STATe OFF";
inline constexpr std::string_view RampSymmetry = "FUNCtion:RAMP:SYMMetry";
inline constexpr std::string_view PulseWidth = "PULSe:WIDTh";
inline constexpr std::string_view PulseTransition = "PULSe:TRANsition";
inline constexpr std::string_view AmSource = "AM:SOUR";
inline constexpr std::string_view AmInternalFrequency = "AM:INTernal:FREQuency";
inline constexpr std::string_view AmDepth = "AM:DEPT";
inline constexpr std::string_view AmInternalFunction = "AM:INTernal:FUNCtion";
inline constexpr std::string_view AmStateOn = "AM:STATe ON";
inline constexpr std::string_view AmStateOff = "AM:STATe OFF";
inline constexpr std::string_view FmSource = "FM:SOUR";
inline constexpr std::string_view FmInternalFrequency = "FM:INTernal:FREQuency";
inline constexpr std::string_view FmDeviation = "FM:DEV";
inline constexpr std::string_view FmInternalFunction = "FM:INTernal:FUNCtion";
inline constexpr std::string_view FmStateOn = "FM:STATe ON";
inline constexpr std::string_view FmStateOff = "FM:STATe OFF";
inline constexpr std::string_view FskSource = "FSK:SOUR";
inline constexpr std::string_view FmInternalRate = "FM:INTernal:RATE";
inline constexpr std::string_view FskFrequency = "FSK:FREQ";
inline constexpr std::string_view FskStateOn = "FSK:STATe ON";
inline constexpr std::string_view FskStateOff = "FSK:STATe OFF";
inline constexpr std::string_view SweepTime = "SWEep:TIME";
inline constexpr std::string_view FrequencyStart = "FREQuency:STARt";
inline constexpr std::string_view FrequencyStop = "FREQuency:STOP";
inline constexpr std::string_view SweepSpacing = "SWEep:SPACing";
inline constexpr std::string_view SweepStateOn = "SWEep:STATe ON";
inline constexpr std::string_view BurstPhase = "BURSt:PHASe";
inline constexpr std::string_view TriggerSource = "TRIGger:SOURce";
inline constexpr std::string_view TriggerSlope = "TRIGger:SLOPe";
inline constexpr std::string_view OutputTriggerSlope = "OUTPut:TRIGger:SLOPe";
inline constexpr std::string_view OutputTriggerOn = "OUTPut:TRIGger ON";
inline constexpr std::string_view OutputTriggerOff = "OUTPut:TRIGger OFF";
inline constexpr std::string_view MarkerFrequency = "MARKer:FREQuency";
inline constexpr std::string_view MarkerOn = "MARKer ON";
inline constexpr std::string_view MarkerOff = "MARKer OFF";
inline constexpr std::string_view BurstMode = "BURSt:MODE";
inline constexpr std::string_view BurstNcycles = "BURSt:NCYCles";
inline constexpr std::string_view BurstInternalPeriod = "BURSt:INTernal:PERiod";
inline constexpr std::string_view BurstGatePolarity = "BURSt:GATE:POLarity";
inline constexpr std::string_view BurstStateOn = "BURSt:STATe ON";
inline constexpr std::string_view BurstStateOff = "BURSt:STATe OFF";
inline constexpr std::string_view StoredCatalogue = "DATA:Nvolatile:Catalog?";
inline constexpr std::string_view UnitAngle = "UNIT:ANGLe";
inline constexpr std::string_view OutputPolarity = "OUTPut:POLarity";
inline constexpr std::string_view VoltageUnit = "VOLTage:UNIT";
inline constexpr std::string_view OutputSyncOn = "OUTPut:SYNC ON";
inline constexpr std::string_view OutputSyncOff = "OUTPut:SYNC OFF";
inline constexpr std::string_view OutputSync = "OUTPut:SYNC";
inline constexpr std::string_view OutputLoad = "OUTPut:LOAD";
inline constexpr std::string_view StateValidQuery = "MEMory:STATe:VALid?";
inline constexpr std::string_view StateNameQuery = "MEMory:STATe:NAME?";
inline constexpr std::string_view StateName = "MEMory:STATe:NAME";
inline constexpr std::string_view SaveState = "*SAV";
inline constexpr std::string_view RecallState = "*RCL";
inline constexpr std::string_view StateDelete = "MEMory:STATe:DELete";
inline constexpr std::string_view SystemInterface = "SYSTem:INTerface";
inline constexpr std::string_view LocalLongForm = "SYSTem:LOCal";
inline constexpr std::string_view SystemRwlock = "SYSTem:RWLock";
inline constexpr std::string_view LastTextPacket = "END";
inline constexpr std::string_view DigitalTextLongForm = "DATA DIGITAL,";
inline constexpr std::string_view DigitDelete = "DATA:DIGIT:DELete";
inline constexpr std::string_view DigitRename = "DATA:DIGIT:REName";
inline constexpr std::string_view DigitFreeLocations = "DATA:DIGIT:Nvolatile:FREE?";
inline constexpr std::string_view DigitStoredCatalogue = "DATA:DIGIT:Nvolatile:Catalog?";

}  // namespace Command
