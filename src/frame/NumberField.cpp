#include "frame/NumberField.h"

#include "frame/StringFunc.h"
#include "platform/Settings.h"

std::string ShowField(const NumberField& field) {
    return FormatPattern(field.Value * field.Scale, field.Pattern);
}

double ReadField(const NumberField& field, std::string_view typed) {
    const auto number = TextToNumber(typed);
    if (!number) return HoldBetween(field.Value, field.Low, field.High);
    if (*number > field.High * field.Scale) return field.High;
    if (*number < field.Low * field.Scale) return HoldBetween(field.Low, field.Low, field.High);
    return HoldBetween(*number / field.Scale, field.Low, field.High);
}

double LeaveField(const NumberField& field, std::string_view typed) {
    if (typed == ShowField(field)) return HoldBetween(field.Value, field.Low, field.High);
    return ReadField(field, typed);
}

double ReadSettingNumber(std::string_view section, std::string_view key, double fallback,
                         double low, double high) {
    const std::string text = GetSetting(ApplicationTitle, section, key, "");
    const auto number = text.empty() ? std::nullopt : TextToNumber(text);
    return HoldBetween(number.value_or(fallback), low, high);
}
