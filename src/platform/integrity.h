// Sums and signatures, by which a downloaded file shows that it is what its maker meant.
#pragma once

#include "foundation/byte_source.h"

#include <string>
#include <string_view>

namespace ombrin {

class Integrity {
public:
    static constexpr std::size_t kKeyDigits = 64, kSumDigits = 64, kSignatureDigits = 128;

    virtual ~Integrity() = default;
    /// SHA-256 as 64 hexadecimal digits in small letters. Raises what the source raises.
    virtual std::string Sha256(ByteSource& file) = 0;
    /// Whether the Ed25519 signature of the message fits the public key, both in hexadecimal digits; false, too, where
    /// one of them is none.
    virtual bool Verify(std::string_view publicKey, std::string_view message, std::string_view signature) = 0;
};

} // namespace ombrin
