#include "hosts/skin/table.h"

#include <algorithm>

namespace ombrin::skin {

namespace {

std::size_t Characters(const std::string& utf8) {
    return static_cast<std::size_t>(std::count_if(
        utf8.begin(), utf8.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80; }));
}

} // namespace

std::string Aligned(const Table& table) {
    std::vector<std::size_t> widths;
    for (const auto& row : table) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], Characters(row[i]));
    }
    std::string lines;
    for (const auto& row : table) {
        for (std::size_t i = 0; i + 1 < row.size(); ++i)
            lines += row[i] + std::string(widths[i] - Characters(row[i]) + (i == 0 ? 1 : 2), ' ');
        lines += row.back() + "\n";
    }
    return lines;
}

} // namespace ombrin::skin
