#pragma once
// Firmware versions such as "02.20.043.00.07SP2": fields between points, and at the end of the last
// field the number of a service pack.
#include "frame/Flag.h"

#include <string>
#include <string_view>

/// True when an instrument's version is at or below the threshold, `fallback` when the two cannot
/// be compared: another number of fields, or fields of other lengths or with more than digits. A
/// service pack counts as later than the same number without one. Drops from `version` what stands
/// before its first digit, and what follows a zero byte or line end.
Flag IsFirmwareAtOrBelow(std::string& version, std::string_view threshold, Flag fallback);
