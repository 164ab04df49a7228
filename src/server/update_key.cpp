#include "server/update_key.h"

#include "server/disk_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sodium.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace ombrin::server {

namespace {

static_assert(UpdateKey::kSeedBytes == crypto_sign_SEEDBYTES && UpdateKey::kPublicBytes == crypto_sign_PUBLICKEYBYTES &&
              UpdateKey::kSecretBytes == crypto_sign_SECRETKEYBYTES);

using Seed = std::array<unsigned char, UpdateKey::kSeedBytes>;

/// Wipes what was secret, however its use ends.
template <class Bytes>
class Wiped {
public:
    explicit Wiped(Bytes& bytes) : bytes(bytes) {}
    ~Wiped() { sodium_memzero(bytes.data(), bytes.size()); }
    Wiped(const Wiped&) = delete;
    Wiped& operator=(const Wiped&) = delete;

private:
    Bytes& bytes;
};

void ReadSeed(std::string_view text, Seed& seed) {
    constexpr std::size_t kDigits = 2 * UpdateKey::kSeedBytes;
    while (text.ends_with('\n') || text.ends_with('\r')) text.remove_suffix(1);
    std::size_t length = 0;
    if (text.size() != kDigits ||
        sodium_hex2bin(seed.data(), seed.size(), text.data(), text.size(), nullptr, &length, nullptr) != 0 ||
        length != seed.size())
        throw DiskError("holds no key: 64 hexadecimal digits are one");
}

/// The whole text on the disk, or an exception and no file.
void WriteSecret(const std::string& path, const std::string& text) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const auto raise = [&](const char* what) {
        const int problem = errno;
        if (descriptor >= 0) unlink(path.c_str());
        throw DiskError(path + ": " + what + ": " + std::generic_category().message(problem));
    };
    if (descriptor < 0) raise("cannot be made");
    const bool written =
        write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size()) && fsync(descriptor) == 0;
    if (!written) raise("cannot be written");
    if (close(descriptor) != 0) raise("cannot be written");
}

} // namespace

UpdateKey::UpdateKey(const std::string& path) {
    DiskFile file(path);
    if (file.OpenToOthers()) throw DiskError("holds a secret and is open to others than its owner (chmod 600)");
    constexpr std::size_t kEnough = 100; // bytes: a key with its line end, and to see that there is more
    std::string text = file.ReadAt(0, kEnough);
    const Wiped wipedText(text);
    Seed seed{};
    const Wiped wipedSeed(seed);
    ReadSeed(text, seed);
    crypto_sign_seed_keypair(publicHalf.data(), secretHalf.data(), seed.data());
}

UpdateKey::~UpdateKey() { sodium_memzero(secretHalf.data(), secretHalf.size()); }

void UpdateKey::Make(const std::string& path) {
    Seed seed{};
    const Wiped wipedSeed(seed);
    randombytes_buf(seed.data(), seed.size());
    std::string text = HexOf(seed.data(), seed.size()) + "\n";
    const Wiped wipedText(text);
    WriteSecret(path, text);
}

std::string UpdateKey::PublicHalf() const { return HexOf(publicHalf.data(), publicHalf.size()); }

std::string UpdateKey::Sign(std::string_view text) const {
    std::array<unsigned char, crypto_sign_BYTES> signature{};
    crypto_sign_detached(signature.data(), nullptr, reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                         secretHalf.data());
    return HexOf(signature.data(), signature.size());
}

std::string HexOf(const unsigned char* bytes, std::size_t size) {
    std::string digits(2 * size + 1, '\0');
    sodium_bin2hex(digits.data(), digits.size(), bytes, size);
    digits.pop_back();
    return digits;
}

} // namespace ombrin::server
