// Checking passwords, which is slow on purpose and so happens beside the loop: each call comes back through its
// callback, from the loop, never inside the call. `origin` is where the request came from: origins take turns, so
// that a crowd of requests from one delays the others by one check at most.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace ombrin::server {

class Passwords {
public:
    virtual ~Passwords() = default;
    /// Nothing when there is no memory for it.
    virtual void Hash(const std::string& origin, std::string password,
                      std::function<void(std::optional<std::string>)> done) = 0;
    virtual void Verify(const std::string& origin, std::string password, std::string hash,
                        std::function<void(bool)> done) = 0;
};

} // namespace ombrin::server
