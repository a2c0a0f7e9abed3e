#pragma once
// The image behind a surface, for the windows that show it.
#include "platform/Surface.h"

#include <QImage>

/// The surface's pixels; a null image for a null surface. Valid until the surface is freed.
const QImage& ImageOf(const Surface& surface);
