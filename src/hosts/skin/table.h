// Rows of texts in columns.
#pragma once

#include <string>
#include <vector>

namespace ombrin::skin {

using Table = std::vector<std::vector<std::string>>; ///< UTF-8; rows of one length

/// Lines with each column as wide as its widest text.
std::string Aligned(const Table& table);

} // namespace ombrin::skin
