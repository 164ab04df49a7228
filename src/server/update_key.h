// The key that signs updates. Its secret half stays with the server; clients hold the public one in their settings.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace ombrin::server {

/// An Ed25519 key. Its file holds the 32 bytes of the seed as 64 hexadecimal digits, for its owner's eyes alone.
class UpdateKey {
public:
    static constexpr std::size_t kSeedBytes = 32;
    static constexpr std::size_t kPublicBytes = 32;
    static constexpr std::size_t kSecretBytes = 64;

    /// Raises DiskError for a file that cannot be read, is open to others or holds no key.
    explicit UpdateKey(const std::string& path);
    ~UpdateKey();
    UpdateKey(const UpdateKey&) = delete;
    UpdateKey& operator=(const UpdateKey&) = delete;

    /// Writes a new key to a file that must not be there yet. Raises DiskError.
    static void Make(const std::string& path);

    /// 64 hexadecimal digits.
    std::string PublicHalf() const;
    /// 128 hexadecimal digits.
    std::string Sign(std::string_view text) const;

private:
    std::array<unsigned char, kPublicBytes> publicHalf{};
    std::array<unsigned char, kSecretBytes> secretHalf{};
};

/// Lower-case hexadecimal digits.
std::string HexOf(const unsigned char* bytes, std::size_t size);

} // namespace ombrin::server
