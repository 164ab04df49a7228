// DirectPlay of the machine, in both generations.
#pragma once

#include "launch/directplay/directx7.h"
#include "launch/directplay/directx8.h"

namespace ombrin::directplay {

/// Raises 429 where the machine does not have it. What it makes does not outlive it.
class Service {
public:
    virtual ~Service() = default;
    virtual std::unique_ptr<DirectX7> CreateDirectX7() = 0;
    virtual std::unique_ptr<DirectX8> CreateDirectX8() = 0;
};

/// The one instance of every session, on both sides and in every room.
inline constexpr std::string_view kSessionInstance = "{4A149E91-E7AD-11D3-B721-20AF57C10000}";

/// Registered DirectPlay 8 applications, a key each.
inline constexpr std::string_view kApplications8 = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\DirectPlay8\\Applications";

/// How much longer the others wait, so that the creator's session is there before they join it.
inline constexpr long kJoinDelay = 3'000; ///< milliseconds

} // namespace ombrin::directplay
