// Failures inside the client: a number with a text, raised where a step cannot be done and
// caught at the boundary of the routine (trap.h).
#pragma once

#include <stdexcept>
#include <string>

namespace ombrin {

/// Numbers of the failures that the client raises itself; the texts are those that a user reads in an error line.
enum class ErrorNumber : int {
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIo = 57,
    DiskFull = 61,
    PathAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidPropertyValue = 380,
    FormAlreadyShown = 400,
    ModelessUnderModal = 401,
    CannotCreateObject = 429,
    NotSupported = 445,
    DuplicateKey = 457,
    InvalidPicture = 481,
    AddressInUse = 10048,
    NoBufferSpace = 10055,
    HostUnreachable = 10065,
};

class RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, const std::string& description) : std::runtime_error(description), number(number) {}
    RuntimeError(ErrorNumber number, const std::string& description)
        : RuntimeError(static_cast<int>(number), description) {}
    /// With the number's usual description.
    explicit RuntimeError(ErrorNumber number);

    int Number() const { return number; }
    bool Is(ErrorNumber other) const { return number == static_cast<int>(other); }

private:
    int number;
};

/// The one exception that passes every trap: the program is ending, and each wait on the stack unwinds to main.
class ProgramEnding {};

} // namespace ombrin
