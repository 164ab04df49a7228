// A file that is nothing but a text.
#pragma once

#include "foundation/byte_source.h"

#include <utility>

namespace ombrin::recording {

class HeldBytes : public ByteSource {
public:
    explicit HeldBytes(std::string bytes) : bytes(std::move(bytes)) {}
    std::uint64_t Size() const override { return bytes.size(); }
    std::string ReadAt(std::uint64_t offset, std::size_t count) override {
        return offset < bytes.size() ? bytes.substr(static_cast<std::size_t>(offset), count) : "";
    }

private:
    std::string bytes;
};

} // namespace ombrin::recording
