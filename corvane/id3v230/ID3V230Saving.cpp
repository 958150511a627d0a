// Writing the records into the file, and taking tags out of it.
#include "corvane/id3v230/EncodingFailure.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/RecordsToWrite.h"
#include "corvane/id3v230/TagSaving.h"
#include "corvane/id3v230/TagStripping.h"
#include "corvane/platform/RuntimeFailure.h"

#include <array>
#include <cerrno>
#include <utility>

namespace corvane {

namespace {

struct EncodedRecords {
    TagChange change;
    std::vector<RecordToWrite> records;
    std::vector<ByteArray> frames; // of the records that were changed, in order
};

EncodedRecords encodedOf(const ID3V230Frames& frames) try {
    EncodedRecords encoded;
    encoded.records = recordsToWrite(frames);
    std::vector<FrameToWrite> changed;
    for (RecordToWrite& record : encoded.records) {
        if (record.changed) changed.push_back(std::move(*record.changed));
    }
    encoded.frames = encodedFrames(changed);
    return encoded;
} catch (const EncodingFailure& failure) {
    return {{static_cast<Id3libError>(failure.number()), failure.description()}, {}, {}};
}

// A record's frame as it stands in the tag; in memory where the tag is not the one in the file any more.
TagFrame carriedOver(const ID3V230Frame& record, const std::shared_ptr<TagImage>& inFile) {
    const FrameSource& source = *Internals<ID3V230Frame>::source(record);
    return source.tag() == inFile ? TagFrame::carriedOver(source.frame())
                                  : TagFrame::madeOf(source.tag()->bytes(source.frame()));
}

std::vector<TagFrame> framesOf(std::vector<RecordToWrite>& records, std::vector<ByteArray> encoded,
                               const std::shared_ptr<TagImage>& inFile) {
    std::vector<TagFrame> frames;
    frames.reserve(records.size());
    auto next = encoded.begin();
    for (RecordToWrite& record : records) {
        if (record.changed) {
            frames.push_back(TagFrame::madeOf(std::move(*next++)));
        } else if (!record.made.empty()) {
            frames.push_back(TagFrame::madeOf(std::move(record.made)));
        } else {
            frames.push_back(carriedOver(*record.record, inFile));
        }
    }
    return frames;
}

// Places in the tag of the frames whose records go on without them: their data leave the file.
std::vector<std::size_t> framesToKeep(const ID3V230Frames& records, const std::vector<RecordToWrite>& written,
                                      const std::shared_ptr<TagImage>& inFile) {
    std::vector<std::size_t> indices;
    auto next = written.begin(); // in the order of the records
    for (const auto& record : records) {
        const bool isWritten = next != written.end() && next->record == record;
        if (isWritten) ++next;
        const FrameSource* source = Internals<ID3V230Frame>::source(*record);
        if (!isWritten && source != nullptr && source->tag() == inFile) indices.push_back(source->index());
    }
    return indices;
}

// The places of new records' frames once they are saved. They are made before, since nothing may fail when the file has
// been written.
std::vector<std::unique_ptr<FrameSource>> newSources(const std::vector<RecordToWrite>& records) {
    std::vector<std::unique_ptr<FrameSource>> sources(records.size());
    for (std::size_t index = 0; index < records.size(); ++index) {
        if (Internals<ID3V230Frame>::source(*records[index].record) == nullptr)
            sources[index] = std::make_unique<FrameSource>(nullptr, 0);
    }
    return sources;
}

// Frames stand elsewhere in the file now.
void followSavedTag(const std::vector<RecordToWrite>& records, std::vector<std::unique_ptr<FrameSource>>& sources,
                    const std::shared_ptr<TagImage>& saved) noexcept {
    for (std::size_t index = 0; index < records.size(); ++index) {
        Internals<ID3V230Frame>::moveTo(*records[index].record, saved, index, sources[index]);
    }
}

} // namespace

// Frames that nobody has read would be lost: the tag is written over only when all of it was read.
void ID3V230::requireTag() const {
    if (!tag_) throw RuntimeFailure(ESTALE, "ID3V230", "The tag could not be read, so that it is not written over");
}

bool ID3V230::SaveTag() {
    return succeeds([this] {
        requireTag();
        cleanQuotes(*frames_);
        EncodedRecords encoded = encodedOf(*frames_);
        if (!encoded.change) return encoded.change;
        const auto kept = tag_->readForKeeping(framesToKeep(*frames_, encoded.records, tag_));
        auto sources = newSources(encoded.records);
        SavedTag saved = saveTag(*tag_, framesOf(encoded.records, std::move(encoded.frames), tag_), useTempCopy_);
        if (saved.change) {
            followSavedTag(encoded.records, sources, saved.image);
            tag_->keep(kept);
            tag_ = std::move(saved.image);
        }
        return saved.change;
    });
}

std::int32_t ID3V230::StripTags(std::uint8_t flags) {
    std::shared_ptr<const KeptFrames> kept;
    std::array<std::shared_ptr<TagImage>, 2> images; // without a tag, and with one that comes to light
    const auto before = [&](ID3_TagType kind) {
        if (kind != ID3_TagType::ID3TT_ID3V2) return;
        kept = framesBeforeRemoval();
        images = {TagImage::none(fileName_, {}), TagImage::uncovered(fileName_, {})};
    };
    const auto after = [&](const StrippedFile& stripped) {
        if (stripped.kind != ID3_TagType::ID3TT_ID3V2) {
            if (tag_) tag_->follow(stripped.change);
            return;
        }
        if (tag_) tag_->keep(std::move(kept));
        tag_ = std::move(images.at(stripped.beginsWithTag ? 1 : 0));
        tag_->follow({FileIdentity(), stripped.change.after});
    };
    return succeeds([&] { return stripTags(fileName_, flags, {before, after}); }) ? 0 : failure_->number;
}

// What the file holds of the records' frames. Another program may have changed it: then it holds none of them, and that
// is no reason to leave the tag in it.
std::shared_ptr<const KeptFrames> ID3V230::framesBeforeRemoval() const {
    if (!tag_) return nullptr;
    try {
        return tag_->readForKeeping(framesToKeep(*frames_, {}, tag_));
    } catch (const RuntimeFailure& failure) {
        if (failure.number() != ESTALE) throw;
        return nullptr;
    }
}

template <class Change>
bool ID3V230::succeeds(Change&& change) {
    failure_.reset();
    TagChange result;
    try {
        if (fileName_.empty()) throw RuntimeFailure(ENOENT, "ID3V230", "The tag belongs to no file");
        result = std::forward<Change>(change)();
    } catch (const std::exception& failure) {
        result = changeFailure(failure);
    }
    if (!result) {
        failure_ = Failure{result.number(), result.text, result.isDamaged, result.failureNumber, result.failureSource};
    }
    return !failure_;
}

} // namespace corvane
