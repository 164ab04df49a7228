// A file descriptor that closes itself.
#pragma once

#include <unistd.h>
#include <utility>

namespace ombrin {

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number) : number(number) {}
    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        if (this != &other) Reset(std::exchange(other.number, -1));
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Reset(); }

    void Reset(int other = -1) {
        if (number >= 0) close(number);
        number = other;
    }
    int Number() const { return number; }
    explicit operator bool() const { return number >= 0; }

private:
    int number = -1;
};

} // namespace ombrin
