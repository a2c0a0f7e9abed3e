#pragma once
// The editor's own resource manager, for machines without an instrument library: the USBTMC
// instruments that are plugged in, by the same names.
#include "platform/VisaApi.h"

/// A table with sessions of its own. Access mode and open time-out have no effect; the time-out for
/// transfers is the only attribute. Not for more than one thread.
VisaApi UsbTmcVisa();
