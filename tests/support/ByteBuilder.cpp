#include "tests/support/ByteBuilder.h"

namespace corvane::test {

ByteBuilder& ByteBuilder::text(std::string_view characters) {
    bytes_.insert(bytes_.end(), characters.begin(), characters.end());
    return *this;
}

ByteBuilder& ByteBuilder::byte(unsigned value) {
    bytes_.push_back(static_cast<std::uint8_t>(value));
    return *this;
}

ByteBuilder& ByteBuilder::bytes(Bytes more) {
    bytes_.insert(bytes_.end(), more.begin(), more.end());
    return *this;
}

ByteBuilder& ByteBuilder::repeat(unsigned value, std::size_t count) {
    bytes_.insert(bytes_.end(), count, static_cast<std::uint8_t>(value));
    return *this;
}

ByteBuilder& ByteBuilder::bigEndian(std::uint64_t value, std::size_t byteCount) {
    for (std::size_t left = byteCount; left > 0; --left) byte(static_cast<std::uint8_t>(value >> (left - 1) * 8));
    return *this;
}

ByteBuilder& ByteBuilder::synchsafe(std::uint32_t value) {
    for (unsigned shift = 28; shift > 0;) {
        shift -= 7;
        byte(value >> shift & 0x7F);
    }
    return *this;
}

ByteBuilder& ByteBuilder::padTo(std::size_t size, unsigned value) {
    if (size > bytes_.size()) repeat(value, size - bytes_.size());
    return *this;
}

ByteArray bytesOf(std::string_view characters) { return ByteBuilder().text(characters).done(); }

std::string textOf(Bytes bytes) { return {bytes.begin(), bytes.end()}; }

ByteArray countedBytes(std::size_t size) {
    ByteArray bytes(size);
    for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    return bytes;
}

ByteArray joined(std::initializer_list<Bytes> parts) {
    ByteBuilder whole;
    for (const Bytes part : parts) whole.bytes(part);
    return whole.done();
}

} // namespace corvane::test
