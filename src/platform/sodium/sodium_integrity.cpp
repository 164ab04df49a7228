#include "platform/sodium/sodium_integrity.h"

#include "foundation/runtime_error.h"

#include <array>
#include <sodium.h>

namespace ombrin {

namespace {

constexpr std::size_t kReadAtOnce = std::size_t{256} * 1024; ///< bytes

static_assert(Integrity::kKeyDigits / 2 == crypto_sign_PUBLICKEYBYTES &&
              Integrity::kSumDigits / 2 == crypto_hash_sha256_BYTES &&
              Integrity::kSignatureDigits / 2 == crypto_sign_BYTES);

const unsigned char* Bytes(std::string_view text) { return reinterpret_cast<const unsigned char*>(text.data()); }

/// False when the digits are not exactly as many as fill it.
template <std::size_t N>
bool FromHex(std::string_view digits, std::array<unsigned char, N>& bytes) {
    std::size_t length = 0;
    const char* end = nullptr;
    return digits.size() == 2 * N &&
           sodium_hex2bin(bytes.data(), N, digits.data(), digits.size(), nullptr, &length, &end) == 0 && length == N &&
           end == digits.data() + digits.size();
}

} // namespace

SodiumIntegrity::SodiumIntegrity() {
    if (sodium_init() < 0) throw RuntimeError(ErrorNumber::DeviceIo, "libsodium cannot be used");
}

std::string SodiumIntegrity::Sha256(ByteSource& file) {
    crypto_hash_sha256_state state;
    crypto_hash_sha256_init(&state);
    for (std::uint64_t offset = 0;; offset += kReadAtOnce) {
        const std::string piece = file.ReadAt(offset, kReadAtOnce);
        crypto_hash_sha256_update(&state, Bytes(piece), piece.size());
        if (piece.size() < kReadAtOnce) break;
    }
    std::array<unsigned char, crypto_hash_sha256_BYTES> sum{};
    crypto_hash_sha256_final(&state, sum.data());
    std::array<char, kSumDigits + 1> digits{};
    return sodium_bin2hex(digits.data(), digits.size(), sum.data(), sum.size());
}

bool SodiumIntegrity::Verify(std::string_view publicKey, std::string_view message, std::string_view signature) {
    std::array<unsigned char, crypto_sign_PUBLICKEYBYTES> key{};
    std::array<unsigned char, crypto_sign_BYTES> mark{};
    return FromHex(publicKey, key) && FromHex(signature, mark) &&
           crypto_sign_verify_detached(mark.data(), Bytes(message), message.size(), key.data()) == 0;
}

} // namespace ombrin
