#include "foundation/runtime_error.h"

namespace ombrin {

namespace {

const char* UsualDescription(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::InvalidProcedureCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
        return "Overflow";
    case ErrorNumber::OutOfMemory:
        return "Out of memory";
    case ErrorNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::TypeMismatch:
        return "Type mismatch";
    case ErrorNumber::FileNotFound:
        return "File not found";
    case ErrorNumber::DeviceIo:
        return "Device I/O error";
    case ErrorNumber::DiskFull:
        return "Disk full";
    case ErrorNumber::PathAccess:
        return "Path/File access error";
    case ErrorNumber::PathNotFound:
        return "Path not found";
    case ErrorNumber::ObjectNotSet:
        return "Object variable not set";
    case ErrorNumber::InvalidPropertyValue:
        return "Invalid property value";
    case ErrorNumber::FormAlreadyShown:
        return "Form already displayed; can't show modally";
    case ErrorNumber::ModelessUnderModal:
        return "Can't show non-modal form when modal form is displayed";
    case ErrorNumber::CannotCreateObject:
        return "Can't create object";
    case ErrorNumber::NotSupported:
        return "Object doesn't support this action";
    case ErrorNumber::DuplicateKey:
        return "This key is already associated with an element of this collection";
    case ErrorNumber::InvalidPicture:
        return "Invalid picture";
    case ErrorNumber::AddressInUse:
        return "Address in use";
    case ErrorNumber::NoBufferSpace:
        return "No buffer space is available";
    case ErrorNumber::HostUnreachable:
        return "Host unreachable";
    }
    return "Application-defined error";
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number) : RuntimeError(number, UsualDescription(number)) {}

} // namespace ombrin
