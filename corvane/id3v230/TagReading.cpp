// Reading the image of a tag out of a file.
#include "corvane/id3v230/TagGatherer.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Unsynchronisation.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr unsigned kChangeableVersion = 3;
constexpr std::uint8_t kUnknownFlags = 0x1F;
constexpr std::uint64_t kBodyOffset = TagHead::kByteCount;
constexpr std::size_t kExtendedSizeLength = 4; // bytes of the extended header that tell its size
constexpr std::uint32_t kExtendedSize = 6, kExtendedSizeWithCrc = 10;

std::string versionText(const TagHead& head) {
    return "the ID3v2 tag is of version 2." + std::to_string(head.majorVersion) + ", only 2.3 can be changed";
}

// Bytes of the extended header that a body begins with (ID3v2.3.0 section 3.2); nothing when there is none as the
// format has it.
std::optional<std::uint64_t> extendedHeaderSize(Bytes body) {
    const auto size = readerAt(body, 0).number<kExtendedSizeLength>();
    if (!size || (*size != kExtendedSize && *size != kExtendedSizeWithCrc)) return std::nullopt;
    return kExtendedSizeLength + std::uint64_t{*size};
}

// Where the frames begin in a body; the extended header cannot be told from frames when it is wrong.
std::uint64_t skippedBytes(TagGatherer& image, const TagHead& head, Bytes beginningOfBody) {
    if ((head.flags & TagHead::kExtendedHeader) == 0) return 0;
    const auto size = extendedHeaderSize(beginningOfBody);
    if (!size) image.refuse("the extended header of the ID3v2 tag is not valid");
    return size.value_or(0);
}

void readUnsynchronised(TagGatherer& image, const TagHead& head, FileReader& file) {
    ByteArray body = file.read(kBodyOffset, *head.bodySize);
    if (!isUnsynchronised(body)) image.refuse("the ID3v2 tag is not unsynchronised as its header says");
    undoUnsynchronisation(body);
    const std::uint64_t begin = skippedBytes(image, head, body);
    image.walkBody(std::move(body), begin);
}

void readPlain(TagGatherer& image, const TagHead& head, FileReader& file) {
    const std::uint64_t end = std::min(head.tagSize(), file.size());
    const std::uint64_t begin = kBodyOffset + skippedBytes(image, head, file.view(kBodyOffset, kExtendedSizeLength));
    image.walk(file, begin, end);
}

} // namespace

std::shared_ptr<TagImage> TagImage::read(FileReader& file, const std::string& path) {
    const auto head = decodeTagHead(file.view(0, TagHead::kByteCount));
    TagGatherer image(path, file.identity(), file.size());
    if (!head) return image.done();
    image.setHead(*head);
    if (head->majorVersion != kChangeableVersion) {
        image.refuse(versionText(*head), Id3libError::BadVersion);
        return image.done();
    }
    if (!head->bodySize) {
        image.refuse("the size of the ID3v2 tag is not valid");
        return image.done();
    }
    if (head->tagSize() > file.size()) image.refuse("the ID3v2 tag is larger than the file");
    if ((head->flags & kUnknownFlags) != 0) image.refuse("the ID3v2 tag has unknown flags");
    const bool unsynchronised = (head->flags & TagHead::kUnsynchronised) != 0;
    unsynchronised ? readUnsynchronised(image, *head, file) : readPlain(image, *head, file);
    return image.done();
}

} // namespace corvane
