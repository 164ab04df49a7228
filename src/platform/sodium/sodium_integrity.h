// Sums and signatures by libsodium.
#pragma once

#include "platform/integrity.h"

namespace ombrin {

class SodiumIntegrity : public Integrity {
public:
    /// Raises 57 where the library finds no ground to stand on.
    SodiumIntegrity();
    std::string Sha256(ByteSource& file) override;
    bool Verify(std::string_view publicKey, std::string_view message, std::string_view signature) override;
};

} // namespace ombrin
