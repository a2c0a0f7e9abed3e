#pragma once
// The tour: the real windows, driven with events through the editor's main road.
#include <QString>

/// Leaves pictures and saved files in `folder` and a line for each step on the terminal. Returns
/// the number of steps that went wrong, 0 when all is well.
int RunTour(const QString& folder);
