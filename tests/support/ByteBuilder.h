// Bytes written down front to back, as a format's description lists them.
#pragma once

#include "corvane/platform/Bytes.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace corvane::test {

class ByteBuilder {
public:
    ByteBuilder& text(std::string_view characters); // one byte each, as they stand
    ByteBuilder& byte(unsigned value);
    ByteBuilder& bytes(Bytes more);
    ByteBuilder& repeat(unsigned value, std::size_t count);
    ByteBuilder& bigEndian(std::uint64_t value, std::size_t byteCount);
    ByteBuilder& synchsafe(std::uint32_t value); // four groups of 7 bits, as ID3v2 sizes are written
    ByteBuilder& padTo(std::size_t size, unsigned value = 0);

    const ByteArray& done() const { return bytes_; }
    std::size_t size() const { return bytes_.size(); }

private:
    ByteArray bytes_;
};

ByteArray bytesOf(std::string_view characters);
std::string textOf(Bytes bytes);
// `size` bytes that differ from their neighbours and from block to block.
ByteArray countedBytes(std::size_t size);
ByteArray joined(std::initializer_list<Bytes> parts);

} // namespace corvane::test
