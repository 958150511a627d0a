// Tags taken out of any bytes: what goes is one piece of the file that looks like such a tag, everything else stays
// byte for byte; a failure changes nothing. Several kinds at once are the same as one after the other.
//
// The first byte of an input is the kinds, the rest is the file.
#include "corvane/id3v230/TagStripping.h"
#include "corvane/platform/ByteReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

namespace {

using namespace corvane;
using enum ID3_TagType;

constexpr std::size_t kHeaderSize = 10, kRecordSize = 128; // bytes
constexpr std::array kKinds{ID3TT_ID3V1, ID3TT_ID3V2, ID3TT_LYRICS3, ID3TT_LYRICS3V2, ID3TT_MUSICMATCH};

void require(bool holds, std::string_view rule) {
    if (holds) return;
    std::cerr << "broken: " << rule << '\n';
    std::abort();
}

bool starts(Bytes bytes, std::string_view text) {
    return bytes.size() >= text.size() && std::ranges::equal(bytes.first(text.size()), text);
}

bool ends(Bytes bytes, std::string_view text) {
    return bytes.size() >= text.size() && std::ranges::equal(bytes.last(text.size()), text);
}

// Bytes of the ID3v2 tag that a file begins with, without a footer; 0 without one, or when it is larger than the file.
std::size_t leadingTagSize(Bytes file) {
    if (file.size() < kHeaderSize || !starts(file, "ID3") || file[3] < 2 || file[3] > 4) return 0;
    std::size_t size = 0;
    for (const std::uint8_t byte : file.subspan(6, 4)) {
        if (byte >= 0x80) return 0;
        size = size * 128 + byte;
    }
    return size + kHeaderSize <= file.size() ? size + kHeaderSize : 0;
}

bool isTag(Bytes file, ID3_TagType kind, std::size_t offset, std::size_t size) {
    const Bytes tag = file.subspan(offset, size);
    const std::size_t leading = leadingTagSize(file);
    switch (kind) {
    case ID3TT_ID3V1:
        return size == kRecordSize && offset + size == file.size() && starts(tag, "TAG");
    case ID3TT_ID3V2:
        return offset == 0 && leading > 0 && (size == leading || size == leading + kHeaderSize);
    case ID3TT_LYRICS3:
        return offset >= leading && starts(tag, "LYRICSBEGIN") && ends(tag, "LYRICSEND");
    case ID3TT_LYRICS3V2:
        return offset >= leading && starts(tag, "LYRICSBEGIN") && ends(tag, "LYRICS200");
    default:
        constexpr std::size_t kFooterSize = 48;
        return offset >= leading && size > kFooterSize && starts(tag.last(kFooterSize), "Brava Software Inc.");
    }
}

// Whether the file without one piece, which is such a tag, is what stands there now.
bool isWithoutTag(Bytes before, Bytes now, ID3_TagType kind) {
    if (now.size() > before.size()) return false;
    const std::size_t size = before.size() - now.size();
    const auto same = std::ranges::mismatch(before, now).in2;
    const auto most = static_cast<std::size_t>(same - now.begin());
    for (std::size_t offset = most + 1; offset-- > 0;) {
        // From the first difference backwards: the piece may be followed by what it begins with.
        const bool isRest = std::ranges::equal(before.subspan(offset + size), now.subspan(offset));
        if (!isRest) return false;
        if (isTag(before, kind, offset, size)) return true;
    }
    return false;
}

bool strips(const std::string& path, ID3_TagType kind) {
    const ByteArray before = test::contentOf(path);
    const TagChange change = stripTag(path, kind);
    const ByteArray now = test::contentOf(path);
    if (!change) {
        require(!change.text.empty(), "a failure tells why");
        require(now == before, "a failure changes nothing");
        return false;
    }
    require(now == before || isWithoutTag(before, now, kind), "what goes is a tag");
    return true;
}

} // namespace

// Everything happens in memory.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    constexpr const char* kMemory = "/dev/shm";
    if (std::filesystem::is_directory(kMemory)) ::setenv("TMPDIR", kMemory, 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::ScratchFolder folder;
    ByteReader input(Bytes(data, size));
    const auto kinds = static_cast<std::uint8_t>(input.number<1>().value_or(0));
    const Bytes file = input.takeRest();

    const std::string path = folder.write("song.mp3", file);
    for (const ID3_TagType kind : kKinds) {
        if ((kinds & static_cast<std::uint8_t>(kind)) != 0 && !strips(path, kind)) break;
    }
    const ByteArray oneByOne = test::contentOf(path);
    folder.write("song.mp3", file);
    stripTags(path, kinds);
    require(test::contentOf(path) == oneByOne, "several kinds at once are the same as one after the other");
    require(folder.names().size() == 1, "no temporary file is left");
    return 0;
}
