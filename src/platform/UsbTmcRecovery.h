#pragma once
// Bringing a USBTMC instrument back to a state where the next message is understood.
#include "platform/UsbTmcLink.h"

/// Ends the outward transfer with this tag, halfway through or stalled. Zero or a code of the USB
/// library.
int AbortBulkOut(const UsbTmcLink& link, std::uint8_t tag);

/// Ends the inward transfer with this tag and throws away what is still on its way.
int AbortBulkIn(const UsbTmcLink& link, std::uint8_t tag);
