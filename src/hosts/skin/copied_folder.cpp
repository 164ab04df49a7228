#include "hosts/skin/copied_folder.h"

#include "foundation/text.h"
#include "hosts/skin/plain_file.h"

#include <cstdint>
#include <filesystem>
#include <set>
#include <stdexcept>

namespace ombrin::skin {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMark = ".copied"; // no bare name, so no skin has a file of that name

/// FNV-1a: against a change that somebody made and wants to keep, not against one who means to deceive.
class Sum {
public:
    void Add(std::string_view bytes) {
        for (const char byte : bytes) value = (value ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
    }
    std::string Text() const { return std::to_string(value); }

private:
    std::uint64_t value = 0xCBF29CE484222325U;
};

std::string SumOf(const std::string& folder) {
    std::set<std::string> names; // a folder's order is any
    for (const fs::directory_entry& entry : fs::directory_iterator(folder))
        if (entry.path().filename() != kMark) names.insert(entry.path().filename().string());
    Sum sum;
    for (const std::string& name : names) {
        const std::string bytes = ReadPlainFile(Join(folder, "/", name), kLargestPicture);
        sum.Add(Join(name, "/", std::to_string(bytes.size()), "/"));
        sum.Add(bytes);
    }
    return sum.Text();
}

std::string MarkOf(const std::string& folder) { return Join(folder, "/", kMark); }

} // namespace

void MarkAsCopy(const std::string& folder) { WriteNewFile(MarkOf(folder), SumOf(folder)); }

bool IsUnchangedCopy(const std::string& folder) {
    std::error_code problem;
    if (!fs::is_directory(fs::symlink_status(folder, problem)) || !fs::exists(MarkOf(folder), problem)) return false;
    try {
        return ReadPlainFile(MarkOf(folder), kLargestText) == SumOf(folder);
    } catch (const std::exception&) { // what a copy never has: a link, a folder, what cannot be read
        return false;
    }
}

} // namespace ombrin::skin
