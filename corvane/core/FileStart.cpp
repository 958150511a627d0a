#include "corvane/core/FileStart.h"

#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

// What is behind the end of a shorter file counts as 0.
using Head = std::array<std::uint8_t, ID3V2Header::kByteCount>;

Head headOf(FileReader& file) {
    Head head{};
    std::ranges::copy(file.view(0, head.size()), head.begin());
    return head;
}

bool startsWith(const Head& head, std::string_view signature) {
    return std::equal(signature.begin(), signature.end(), head.begin(),
                      [](char expected, std::uint8_t byte) { return static_cast<std::uint8_t>(expected) == byte; });
}

bool isZip(const Head& head) { return startsWith(head, "PK\x03\x04"); }

// Never true: byte 5 would have to be 07 and 00 at once. The signature of an archive is "Rar!" 1A 07 00, but hosts rely
// on RAR files being taken for MP3 candidates, as they always have been.
bool isRar(const Head& head) { return startsWith(head, "Rar!\x1A") && head[5] == 0x07 && head[5] == 0x00; }

FileKind kindOf(const Head& head) {
    if (isZip(head)) return FileKind::Zip;
    return isRar(head) ? FileKind::Rar : FileKind::Mp3;
}

} // namespace

FileStart startOf(FileReader& file) {
    const Head head = headOf(file);
    FileStart start;
    start.kind = kindOf(head);
    start.claimsTag = startsWith(head, "ID3");
    if (!start.claimsTag) return start;
    start.tag = decodeHeader(head);
    if (start.tag && !hasTagNumbers(*start.tag)) start.tag.reset();
    if (start.tag) start.audioPosition = tagSize(*start.tag);
    return start;
}

void requireNoArchive(const FileStart& start) {
    constexpr const char* kSource = "Create";
    if (start.kind == FileKind::Zip) throw RuntimeFailure(FailureNumber::ObjectDefined, kSource, "This is a ZIP-File");
    if (start.kind == FileKind::Rar) throw RuntimeFailure(FailureNumber::ObjectDefined, kSource, "This is a RAR-File");
}

} // namespace corvane
