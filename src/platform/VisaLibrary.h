#pragma once
// Where the instrument library comes from.
#include "platform/VisaApi.h"

/// The system's instrument library, loaded by its usual names, or the editor's own resource manager
/// where there is none. Running simulators are found beside the instruments of either.
VisaApi LoadVisa();
