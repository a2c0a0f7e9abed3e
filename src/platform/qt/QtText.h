#pragma once
// The program's UTF-8 texts as Qt takes them.
#include <QString>
#include <string_view>

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
