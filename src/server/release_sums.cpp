#include "server/release_sums.h"

#include "foundation/text.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <sodium.h>

namespace ombrin::server {

namespace {

std::string SumOf(DiskFile& file, const FileMark& mark) {
    constexpr std::size_t kPiece = std::size_t{1} << 20U;
    crypto_hash_sha256_state state{};
    crypto_hash_sha256_init(&state);
    for (std::uint64_t at = 0; at < mark.size;) {
        const std::string piece = file.ReadAt(at, kPiece);
        if (piece.empty()) break;
        crypto_hash_sha256_update(&state, reinterpret_cast<const unsigned char*>(piece.data()), piece.size());
        at += piece.size();
    }
    if (file.Mark() != mark) throw DiskError("is changing");
    std::array<unsigned char, crypto_hash_sha256_BYTES> sum{};
    crypto_hash_sha256_final(&state, sum.data());
    return HexOf(sum.data(), sum.size());
}

std::string VersionOf(std::time_t changed) {
    std::tm parts{};
    gmtime_r(&changed, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y.%m%d%H%M%S", &parts)};
}

} // namespace

OfferedFile MakeSums(const std::vector<OfferedFile>& files, const UpdateKey& key,
                     const std::vector<std::string>& besides) {
    std::int64_t changed = 0;
    for (const std::string& path : besides) changed = std::max(changed, DiskFile(path).Changed());
    std::string rows;
    for (const OfferedFile& offered : files) {
        DiskFile file(offered.path);
        changed = std::max(changed, file.Changed());
        rows += Join(SumOf(file, offered.mark), " ", std::to_string(offered.Size()), " ",
                     std::to_string(offered.directory), " ", offered.name, "\n");
    }
    constexpr int kClientDirectory = 1;
    OfferedFile sums{std::string(kSumsName), kClientDirectory, VersionOf(changed), "", {}, ""};
    sums.content = Join(";FileVersion=", sums.version, "\n", rows);
    sums.content += Join("signature ", key.Sign(sums.content), "\n");
    return sums;
}

} // namespace ombrin::server
