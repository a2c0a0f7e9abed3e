#pragma once
// The rows of window texts, one table for each family of windows. WindowTexts() joins them.
#include "frame/LoadLanguageCode.h"

#include <span>

/// The main window, its menus, and the window of a document.
std::span<const WindowText> MainTexts();

/// The dialogs.
std::span<const WindowText> DialogTexts();
