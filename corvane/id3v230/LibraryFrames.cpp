#include "corvane/id3v230/LibraryFrames.h"

#include "corvane/id3v230/EncodingFailure.h"
#include "corvane/id3v230/FrameFields.h"
#include "corvane/id3v230/FrameTextEncoding.h"
#include "corvane/id3v230/Id3FrameNumbers.h"
#include "corvane/id3v230/Id3Library.h"
#include "corvane/id3v230/PrivateFolder.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/FileSizeLimitGuard.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

using enum ID3_FieldID;

constexpr std::size_t kHeaderSize = 10; // bytes, of a tag and of a frame

const Id3Library& library() {
    const Id3Library* const found = Id3Library::loaded();
    if (found == nullptr) throw EncodingFailure(Id3libError::NoFile, checkId3Library().message);
    return *found;
}

// A frame of id3lib's until a tag takes it over.
class LibraryFrame final : public FieldWriter {
public:
    LibraryFrame(const Id3Library& id3lib, const WantedFrame& wanted)
        : id3lib_(id3lib), frame_(id3lib.newFrame(numberOf(wanted))), wide_(wanted.encoding != TextEncoding::CodePage) {
        if (!has(ID3FN_TEXTENC)) return;
        setNumber(ID3FN_TEXTENC, static_cast<std::uint32_t>(wanted.encoding));
        for (const ID3_FieldID field : {ID3FN_DESCRIPTION, ID3FN_TEXT}) {
            if (has(field)) setText(field, "");
        }
    }
    ~LibraryFrame() override {
        if (frame_ != nullptr) id3lib_.deleteFrame(frame_);
    }

    bool has(ID3_FieldID field) const override { return this->field(field) != nullptr; }
    void setNumber(ID3_FieldID field, std::uint32_t number) override { id3lib_.setNumber(this->field(field), number); }
    void setText(ID3_FieldID field, std::string_view text) override {
        if (wide_ && (field == ID3FN_DESCRIPTION || field == ID3FN_TEXT)) {
            id3lib_.setUtf16(this->field(field), utf16Of(text));
        } else {
            id3lib_.setText(this->field(field), latin1Of(text));
        }
    }
    void setBytes(ID3_FieldID field, Bytes bytes) override { id3lib_.setBytes(this->field(field), bytes); }

    Id3Library::Frame* release() { return std::exchange(frame_, nullptr); }

private:
    static std::int32_t numberOf(const WantedFrame& wanted) {
        const auto number = id3libNumberOf(wanted.frame);
        if (!number) throw EncodingFailure(Id3libError::InvalidFrame, "id3lib knows no such frame.");
        return *number;
    }
    Id3Library::Field* field(ID3_FieldID field) const {
        return id3lib_.field(frame_, static_cast<std::int32_t>(field));
    }

    const Id3Library& id3lib_;
    Id3Library::Frame* frame_;
    bool wide_; // its strings are UTF-16
};

// A tag of id3lib's over a file.
class LibraryTag {
public:
    LibraryTag(const Id3Library& id3lib, const std::string& path) : id3lib_(id3lib), tag_(id3lib.newTag()) {
        id3lib_.link(tag_, path);
    }
    ~LibraryTag() {
        id3lib_.clear(tag_);
        id3lib_.deleteTag(tag_);
    }
    LibraryTag(const LibraryTag&) = delete;
    LibraryTag& operator=(const LibraryTag&) = delete;

    void add(const WantedFrame& wanted) {
        LibraryFrame frame(id3lib_, wanted);
        writeFields(frame, wanted);
        id3lib_.attachFrame(tag_, frame.release());
    }
    void write() {
        const FileSizeLimitGuard guard;
        id3lib_.update(tag_);
    }

private:
    const Id3Library& id3lib_;
    Id3Library::Tag* tag_;
};

ByteArray tagWrittenInto(const std::string& path, std::span<const WantedFrame> frames) {
    LibraryTag tag(library(), path);
    for (const WantedFrame& frame : frames) tag.add(frame);
    tag.write();
    FileReader file(path);
    return file.read(0, static_cast<std::size_t>(file.size()));
}

ByteArray writtenTag(std::span<const WantedFrame> frames) try {
    PrivateFolder folder;
    return tagWrittenInto(folder.makeFile(), frames);
} catch (const EncodingFailure&) {
    throw;
} catch (const RuntimeFailure& failure) {
    throw EncodingFailure(Id3libError::NoBuffer, failure.description());
}

// Takes the next frame, if it is the one that was wanted.
ByteArray takeFrame(ByteReader& tag, const WantedFrame& wanted) {
    ByteReader ahead = tag;
    const auto letters = ahead.take(wanted.letters.size());
    const std::uint32_t size = ahead.number<4>().value_or(0);
    ahead.take(1); // the status flags tell what other programs may do with the frame
    const bool isPlain = ahead.number<1>() == 0U;
    const auto payload = ahead.take(size);
    const bool isWanted =
        letters && std::ranges::equal(*letters, wanted.letters) && isPlain && payload && says(*payload, wanted);
    const auto bytes = isWanted ? tag.take(kHeaderSize + size) : std::nullopt;
    if (!bytes) {
        throw EncodingFailure(Id3libError::NoBuffer, std::string(wanted.letters) +
                                                         ": The frame could not be made. There may be no room for "
                                                         "temporary files.");
    }
    return {bytes->begin(), bytes->end()};
}

} // namespace

std::vector<ByteArray> libraryFrames(std::span<const WantedFrame> frames) {
    const ByteArray tag = writtenTag(frames);
    ByteReader reader(tag);
    reader.take(kHeaderSize);
    std::vector<ByteArray> made;
    made.reserve(frames.size());
    for (const WantedFrame& frame : frames) made.push_back(takeFrame(reader, frame));
    return made;
}

} // namespace corvane
