#include "corvane/id3v230/TagSaving.h"

#include "corvane/id3v230/TagWriting.h"
#include "corvane/platform/FileReader.h"

#include <algorithm>
#include <map>
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
    FileReader file(loaded.path());
    loaded.requireUnchanged(file);
    return file.identity();
}

// What the file will begin with when the tag is gone. It is looked at before, since nothing may fail afterwards.
std::shared_ptr<TagImage> imageBehind(const TagImage& loaded) {
    FileReader file(loaded.path());
    loaded.requireUnchanged(file);
    const bool isTag = decodeTagHead(file.view(loaded.size(), TagHead::kByteCount)).has_value();
    return isTag ? TagImage::uncovered(loaded.path(), {}) : TagImage::none(loaded.path(), {});
}

// Goes on knowing what was read of large frames, and what is written of new ones.
void noteLargeFrames(const TagImage& loaded, const std::vector<TagFrame>& frames, const TagImage& image) {
    std::map<std::uint64_t, std::size_t> known; // by offset
    for (const auto& [index, fingerprint] : loaded.fingerprints()) known[loaded.frames()[index].offset] = fingerprint;
    for (std::size_t index = 0; index < frames.size(); ++index) {
        const TagFrame& frame = frames[index];
        if (image.isInMemory(image.frames()[index])) continue;
        if (frame.isMade()) {
            image.wasRead(index, LargeFrames::fingerprintOf(Bytes(frame.made).subspan(RawFrame::kHeaderSize)));
        } else if (const auto found = known.find(frame.carried.offset); found != known.end()) {
            image.wasRead(index, found->second);
        }
    }
}

SavedTag withoutTag(const TagImage& loaded) {
    if (const auto refusal = loaded.refusal()) return refused(*refusal);
    if (!loaded.exists()) return {{}, TagImage::none(loaded.path(), unchangedIdentity(loaded))};
    auto image = imageBehind(loaded);
    image->follow({FileIdentity(), removeTag(loaded)});
    return {{}, std::move(image)};
}

SavedTag withTag(const TagImage& loaded, const std::vector<TagFrame>& frames, bool safely) {
    const std::uint64_t needed = sizeOf(frames);
    if (needed - TagHead::kByteCount > TagHead::kLargestBody) return refused("the tag would be larger than 256 MB");
    ComposedTag tag(loaded, frames, plannedSize(loaded, needed));
    auto image = tag.image(frames);
    if (!image) return refused("the new tag would not read as it should");
    noteLargeFrames(loaded, frames, *image);
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
