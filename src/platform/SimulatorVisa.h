#pragma once
// Running simulators beside the instruments of another table.
#include "platform/VisaApi.h"

/// `base` with the simulators of this user behind its own resources. A simulator's session is told
/// by its number and takes the time-out as its only attribute; all others are the base's. Without a
/// manager of the base there is one for the simulators alone, as long as any runs.
VisaApi AddSimulators(VisaApi base);
