#pragma once
// Tables of tests as text.
#include <regex>
#include <string>
#include <utility>
#include <vector>

/// The rows of a table "left => right; left => right".
inline auto Rows(const std::string& table) {
    static const std::regex row(R"(\s*([^;]*?)\s*=>\s*([^;]*?)\s*(;|$))");
    std::vector<std::pair<std::string, std::string>> rows;
    for (std::sregex_iterator at(table.begin(), table.end(), row), end; at != end; ++at)
        rows.emplace_back((*at)[1], (*at)[2]);
    return rows;
}
