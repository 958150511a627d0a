#include "tests/support/Id3v1Builder.h"

#include "tests/support/ByteBuilder.h"

namespace corvane::test {

ByteArray Id3v1Builder::emptyRecord() { return ByteBuilder().text("TAG").padTo(kSize - 1).byte(255).done(); }

Id3v1Builder& Id3v1Builder::track(unsigned number) {
    record_.at(125) = 0;
    record_.at(126) = static_cast<std::uint8_t>(number);
    return *this;
}

Id3v1Builder& Id3v1Builder::genre(unsigned number) {
    record_.at(127) = static_cast<std::uint8_t>(number);
    return *this;
}

Id3v1Builder& Id3v1Builder::put(std::size_t offset, std::string_view bytes) {
    for (const char character : bytes) record_.at(offset++) = static_cast<std::uint8_t>(character);
    return *this;
}

} // namespace corvane::test
