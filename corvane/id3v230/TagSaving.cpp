#include "corvane/id3v230/TagSaving.h"

#include "corvane/id3v230/TagWriting.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace corvane {

namespace {

std::uint64_t sizeOf(const std::vector<TagFrame>& frames) {
    std::uint64_t size = TagHead::kByteCount;
    for (const TagFrame& frame : frames) size += frame.size();
    return size;
}

// Bytes of the new tag.
std::uint64_t plannedSize(const TagImage& loaded, std::uint64_t needed) {
    const std::uint64_t old = loaded.size();
    if (old >= needed && old - needed <= kLargestPadding) return old;
    return std::min(needed + kNewPadding, TagHead::kByteCount + std::uint64_t{TagHead::kLargestBody});
}

SavedTag refused(const TagImage::Refusal& refusal) {
    return {{static_cast<Id3libError>(refusal.number), refusal.reason}, nullptr};
}

SavedTag refused(std::string reason) { return {{Id3libError::BadData, std::move(reason)}, nullptr}; }

FileIdentity unchangedIdentity(const TagImage& loaded) {
    const FileReader file(loaded.path());
    if (!hasSameContent(file.identity(), loaded.identity()))
        throw RuntimeFailure(ESTALE, "save", "The file was changed since it was read");
    return file.identity();
}

SavedTag withoutTag(const TagImage& loaded) {
    if (const auto refusal = loaded.refusal()) return refused(*refusal);
    if (!loaded.exists()) return {{}, TagImage::none(loaded.path(), unchangedIdentity(loaded))};
    const FileIdentity after = removeTag(loaded);
    FileReader file(loaded.path());
    // What follows may well be a second tag.
    return {{}, file.identity() == after ? TagImage::read(file, loaded.path()) : TagImage::none(loaded.path(), {})};
}

SavedTag withTag(const TagImage& loaded, const std::vector<TagFrame>& frames, bool safely) {
    const std::uint64_t needed = sizeOf(frames);
    if (needed - TagHead::kByteCount > TagHead::kLargestBody) return refused("the tag would be larger than 256 MB");
    ComposedTag tag(loaded, frames, plannedSize(loaded, needed));
    auto image = tag.image(frames);
    if (!image) return refused("the new tag would not read as it should");
    const bool isSame = tag.changedRange().isEmpty();
    const bool inPlace = !safely && !isSame && tag.size() == loaded.size();
    if (!inPlace) {
        if (const auto refusal = loaded.refusal()) return refused(*refusal);
    }
    FileIdentity after;
    if (isSame) {
        after = unchangedIdentity(loaded);
    } else if (inPlace) {
        const auto written = writeInPlace(loaded, tag);
        if (!written) return refused(TagImage::paddingRefusal());
        after = *written;
    } else {
        after = replaceTag(loaded, tag, *image);
    }
    image->follow({FileIdentity(), after});
    return {{}, std::move(image)};
}

} // namespace

SavedTag saveTag(const TagImage& loaded, const std::vector<TagFrame>& frames, bool safely) {
    if (const auto& refusal = loaded.refusalButForPadding()) return refused(*refusal);
    try {
        return frames.empty() ? withoutTag(loaded) : withTag(loaded, frames, safely);
    } catch (const std::exception& failure) {
        return {changeFailure(failure), nullptr};
    }
}

} // namespace corvane
