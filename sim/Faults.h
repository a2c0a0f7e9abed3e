#pragma once
// Misbehaviour on request, so that an editor can be seen to cope with it.
#include <cstdint>
#include <string>
#include <string_view>

namespace sim {

struct Faults {
    bool Silence = false;          // nothing is answered
    bool ShortRead = false;        // replies are cut to half their length
    bool StaleFreeCount = false;   // the free count tells of more used locations than of waves
    bool NoParseFinished = false;  // no acknowledgement on the serial line
    bool Noise = false;            // bytes ahead of replies on the serial line
    bool Vendor = false;           // identifies as another maker's instrument
    bool Nineteen = false;         // vendor field of 19 characters
    bool LostRead = false;         // every read on USB comes back at once with nothing
    std::uint32_t DropAfter = 0;   // commands after which it is unplugged; 0: never
    std::uint32_t Slow = 0;        // milliseconds ahead of each reply
};

/// Switches on "silence", "drop-after=3" and so on. False for any other text.
bool SetFault(Faults& faults, std::string_view text);

/// The names of all faults, for the help.
std::string FaultNames();

}  // namespace sim
