#include "Common.h"
#include "frame/FirmwareVersion.h"
#include "frame/GlobalDefineCode.h"
#include "link/ConnectFuncBox.h"
#include "link/LinkWork.h"

// An identification, then two versions: those that can be compared stand in one order.
void Fuzz(std::string_view input) {
    ScriptLink(input);
    ConnectInstrument();
    Require(Link.ConnectedModel < 3 && Link.StoreLocationCount == (ModelVariant ? 10 : 4));
    TakePart(input);
    std::string left = TakePart(input), right = TakePart(input);
    for (std::string* version : {&left, &right}) IsFirmwareAtOrBelow(*version, "", false);
    Require(bool(IsFirmwareAtOrBelow(left, left, true)));
    const Flag below = IsFirmwareAtOrBelow(left, right, false);
    if (below == IsFirmwareAtOrBelow(left, right, true))
        Require(below || IsFirmwareAtOrBelow(right, left, false));
}
