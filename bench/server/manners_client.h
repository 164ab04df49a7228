// A client of few words for the benchmark of manners.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ombrin::bench {

class MannersClient {
public:
    /// Connected to the update port; raises std::runtime_error when that fails.
    explicit MannersClient(std::uint16_t port);
    /// Logged on and in the lobby "Go"; raises std::runtime_error when that fails.
    MannersClient(std::uint16_t port, const std::string& name);
    ~MannersClient();
    MannersClient(const MannersClient&) = delete;
    MannersClient& operator=(const MannersClient&) = delete;

    /// How many bytes the socket has taken, without waiting for it.
    std::size_t Send(std::string_view bytes);
    /// What has come, without waiting for it.
    std::string Read();
    bool Gone() const { return gone; }
    int Descriptor() const { return descriptor; }
    const std::string& Name() const { return name; }
    std::string Record() const { return name + ";Go;127.0.0.1"; }

private:
    void ReadUntil(std::string_view text);

    std::string name;
    int descriptor;
    bool gone = false;
};

} // namespace ombrin::bench
