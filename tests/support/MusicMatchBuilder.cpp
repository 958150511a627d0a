#include "tests/support/MusicMatchBuilder.h"

#include "tests/support/ByteBuilder.h"

#include <string_view>

namespace corvane::test {

namespace {

constexpr std::size_t kSection = 256, kSmallSection = 4;

void littleEndian(ByteBuilder& bytes, std::size_t value) {
    for (unsigned i = 0; i < 4; ++i) bytes.byte(value >> (8 * i) & 0xFF);
}

} // namespace

ByteArray musicMatch(const MusicMatchTag& tag) {
    const std::string_view marker("18273645\0\0", 10);
    ByteBuilder bytes;
    if (tag.hasHeader) bytes.text(marker).padTo(kSection, ' ');
    const std::size_t extension = bytes.size();
    bytes.text("jpg ");
    littleEndian(bytes, tag.imageSize);
    bytes.repeat(0xD8, tag.imageSize).repeat(0, kSmallSection);
    const std::size_t version = bytes.size();
    bytes.text(std::string_view(tag.versionInfo, 14)).padTo(version + kSection, ' ');
    const std::size_t metadata = bytes.size();
    bytes.repeat('-', tag.metadataSize);
    for (const std::size_t offset : {extension, extension + kSmallSection, version - kSmallSection}) {
        littleEndian(bytes, tag.writtenAt + offset);
    }
    littleEndian(bytes, tag.versionOffset != 0 ? tag.versionOffset : tag.writtenAt + version);
    littleEndian(bytes, tag.writtenAt + metadata);
    return bytes.text("Brava Software Inc.").repeat(' ', 13).text("3.05").repeat(' ', 12).done();
}

} // namespace corvane::test
