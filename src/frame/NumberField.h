#pragma once
// Number boxes of dialogs without their widgets: a typed number becomes a value between bounds.
// A box shows fewer digits than its value has, so a box left as it stood keeps the value itself.
#include <cstdint>
#include <string>
#include <string_view>

struct NumberField {
    double Value, Low, High;   // in the unit of the value, bounds inclusive
    std::string_view Pattern;  // display pattern
    double Scale = 1.0;        // numbers in the box per unit of the value, 1000 for volts in mV
};

/// Holds a value to low..high. Where the bounds cross, `high` counts; not a number becomes `low`.
constexpr double HoldBetween(double value, double low, double high) {
    if (!(value >= low)) value = low;
    return value > high ? high : value;
}
constexpr std::int32_t HoldBetween(std::int32_t value, std::int32_t low, std::int32_t high) {
    if (value < low) value = low;
    return value > high ? high : value;
}

/// The text of the box.
std::string ShowField(const NumberField& field);

/// The value once `typed` is in the box, whatever the box showed before: bounds are compared in
/// the box's unit, a violated one replaces the number. Text that is no number keeps the value,
/// held to its bounds.
double ReadField(const NumberField& field, std::string_view typed);

/// The value once the box is left with `typed` in it: as ReadField, but a text that is what the
/// box shows already keeps the value with all its digits, held to its bounds.
double LeaveField(const NumberField& field, std::string_view typed);

/// A number of the editor's settings, held to low..high; `fallback` (held as well) when the key is
/// absent or its text no number.
double ReadSettingNumber(std::string_view section, std::string_view key, double fallback,
                         double low, double high);
