#pragma once
// The buttons of the mouse that the procedures of pictures know.
#include <cstdint>

enum class MouseButton : std::uint8_t { None, Left, Right };
