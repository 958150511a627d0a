#include "corvane/id3v230/TagStripping.h"

#include "corvane/id3v230/TagHead.h"
#include "corvane/id3v230/TrailingTags.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/FileReplacement.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

using enum ID3_TagType;

// What is to be cut out of the file; nothing where there is nothing of that kind.
struct Cut {
    TagChange change;
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
};

Cut refused(Id3libError error, const char* reason) { return {{error, reason}, 0, 0}; }

// The footer of a tag of version 2.4 that announces one: its header again, with another identifier. Where it is
// missing, what stands there is not the tag's.
std::uint64_t footerSize(FileReader& file, const TagHead& head) {
    constexpr unsigned kVersionWithFooter = 4;
    constexpr std::string_view kIdentifier = "3DI";
    if (head.majorVersion != kVersionWithFooter || (head.flags & TagHead::kFooter) == 0) return 0;
    const bool isThere = std::ranges::equal(file.view(head.tagSize(), kIdentifier.size()), kIdentifier);
    return isThere && file.size() - head.tagSize() >= TagHead::kByteCount ? TagHead::kByteCount : 0;
}

Cut leadingTag(FileReader& file) {
    constexpr unsigned kFirstVersion = 2, kLastVersion = 4;
    const auto head = decodeTagHead(file.view(0, TagHead::kByteCount));
    if (!head) return {};
    if (head->majorVersion < kFirstVersion || head->majorVersion > kLastVersion)
        return refused(Id3libError::BadVersion, "the version of the ID3v2 tag is not known");
    if (!head->bodySize) return refused(Id3libError::BadData, "the size of the ID3v2 tag is not valid");
    if (head->tagSize() > file.size()) return refused(Id3libError::BadData, "the ID3v2 tag is larger than the file");
    return {{}, 0, head->tagSize() + footerSize(file, *head)};
}

Cut trailingTag(FileReader& file, ID3_TagType kind) {
    const FoundTrailingTag found = findTrailingTag(file, kind);
    // Where the end of a tag has lost its beginning, the one that is found may be a text in the tag at the start.
    const bool isInLeadingTag = found.tag && found.tag->offset < leadingTag(file).size;
    if (found.isDamaged || isInLeadingTag)
        return refused(Id3libError::BadData, "the beginning of the tag cannot be found");
    return found.tag ? Cut{{}, found.tag->offset, found.tag->size} : Cut{};
}

FileIdentity cutOut(const std::string& path, const FileIdentity& known, const Cut& cut) {
    FileReplacement replacement(path);
    replacement.requireUnchanged(known);
    const std::uint64_t behind = cut.offset + cut.size;
    if (cut.offset > 0) replacement.copy(0, cut.offset);
    if (behind < replacement.originalSize()) replacement.copy(behind, replacement.originalSize() - behind);
    replacement.commit();
    return replacement.committed();
}

void strip(FileReader& file, const std::string& path, ID3_TagType kind, const Cut& cut, const StripObserver& observer) {
    if (observer.before) observer.before(kind);
    StrippedFile stripped{kind, {file.identity(), {}}};
    stripped.beginsWithTag = kind == ID3TT_ID3V2 && decodeTagHead(file.view(cut.size, TagHead::kByteCount)).has_value();
    stripped.change.after = cutOut(path, file.identity(), cut);
    if (observer.after) observer.after(stripped);
}

} // namespace

TagChange stripTag(const std::string& path, ID3_TagType kind, const StripObserver& observer) {
    try {
        FileReader file(path);
        const Cut cut = kind == ID3TT_ID3V2 ? leadingTag(file) : trailingTag(file, kind);
        if (cut.size > 0) strip(file, path, kind, cut, observer);
        return cut.change;
    } catch (const std::exception& failure) {
        return changeFailure(failure);
    }
}

TagChange stripTags(const std::string& path, std::uint8_t kinds, const StripObserver& observer) {
    for (const ID3_TagType kind :
         std::array{ID3TT_ID3V1, ID3TT_ID3V2, ID3TT_LYRICS3, ID3TT_LYRICS3V2, ID3TT_MUSICMATCH}) {
        if ((kinds & static_cast<std::uint8_t>(kind)) == 0) continue;
        TagChange change = stripTag(path, kind, observer);
        if (!change) return change;
    }
    return {};
}

} // namespace corvane
