// How the file handler, the ID3v2.3 reader and the command work with an updatable tag.
#pragma once

#include "corvane/id3v230/GenreSplit.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/TagImage.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

namespace corvane {

template <>
struct Internals<ID3V230> {
    using Failure = ID3V230::Failure;

    // Binds the object to a file and reads the records of its ID3v2.3 tag, of which there may be none. False, and no
    // records, when id3lib is not installed or the file cannot be opened.
    static bool LoadFromFile(ID3V230& tag, const std::string& path) { return tag.LoadFromFile(path); }
    // The same with a tag that was read already.
    static void bind(ID3V230& tag, std::shared_ptr<TagImage> image) {
        tag.fileName_ = image->path();
        tag.readFrames(std::move(image));
    }
    // Writes the records as the ID3v2.3 tag of the file. False, with lastFailure, when that is not possible; the file
    // is then exactly what it was.
    static bool SaveTag(ID3V230& tag) { return tag.SaveTag(); }
    // Takes the tags whose ID3_TagType bits are set out of the file, one after the other in the order of the bits. The
    // result is 0 or the first failure's number in id3lib's error table, with lastFailure. The records stay.
    static std::int32_t StripTags(ID3V230& tag, std::uint8_t flags) { return tag.StripTags(flags); }
    // Why the last save or strip has failed; nothing after a success.
    static const std::optional<Failure>& lastFailure(const ID3V230& tag) { return tag.failure_; }
    static const std::string& FileName(const ID3V230& tag) { return tag.fileName_; }
    // The tag as it is in the file; nothing when it was not read completely.
    static const std::shared_ptr<TagImage>& image(const ID3V230& tag) { return tag.tag_; }
    // Whether any record was changed.
    static bool isChanged(const ID3V230& tag) { return tag.isChanged(); }
    // What the content type (TCON) gives, see GenreSplit.h.
    static SplitGenre splittedGenre(const ID3V230& tag) { return splitGenre(tag.Genre()); }
    // Objects alive in this process.
    static std::int32_t liveCount();
};

} // namespace corvane
