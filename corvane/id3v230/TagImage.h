// The ID3v2.3 tag at the start of a file, as it stands there: its frames byte for byte, whoever understands them or
// not, and whether the tag may be written anew.
//
// Loading reads little: text up to 64 KB is gathered, and what else has come with the same blocks. Large frames, such
// as pictures, stay in the file and are read when somebody asks, from the same file in the same state: a file that was
// changed, replaced or removed since is a failure, never other bytes. An unsynchronised tag is read whole and undone.
//
// Programs can change a file and give it its old modification time back. Where no more than the time of the inode
// differs, the file is compared with everything that was read of the tag; that costs only then.
//
// An image does not change once it is made, so that different threads may use one.
#pragma once

#include "corvane/id3v230/LargeFrames.h"
#include "corvane/id3v230/RawFrame.h"
#include "corvane/id3v230/TagHead.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/FileIdentity.h"
#include "corvane/platform/KnownFile.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvane {

class FileReader;

class TagImage {
public:
    // Why a tag must not be written anew. number: of id3lib's error table, 10 for another version, 3 for what cannot be
    // understood. reason: one line for the user.
    struct Refusal {
        std::int32_t number;
        std::string reason;
    };
    // Where the padding stands in the file.
    struct Padding {
        std::uint64_t offset = 0;
        std::uint64_t size = 0;
        friend bool operator==(const Padding&, const Padding&) = default;
    };

    // The tag of an open file; `path` is that of the same file and serves to read large frames later. Odd tags are no
    // failure: see refusal(). A file that does not begin with "ID3" and a whole header has no tag. Fails when the file
    // cannot be read.
    static std::shared_ptr<TagImage> read(FileReader& file, const std::string& path);
    // No tag, of a file in this state.
    static std::shared_ptr<TagImage> none(const std::string& path, const FileIdentity& identity);
    // The same, of a file out of which a tag was taken that another one follows. Nobody has read that one, so that it
    // must not be written over.
    static std::shared_ptr<TagImage> uncovered(const std::string& path, const FileIdentity& identity);

    // Whether a tag of any version stands there.
    bool exists() const { return head_.has_value(); }
    // 0 without a tag.
    unsigned majorVersion() const { return head_ ? head_->majorVersion : 0; }
    // The header of a tag of any version; nothing without one.
    const std::optional<TagHead>& header() const { return head_; }
    // Its flags; 0 without a tag.
    std::uint8_t flags() const { return head_ ? head_->flags : std::uint8_t{0}; }
    // Bytes of header and body as the header says; 0 without a tag, and where the header does not tell a size.
    std::uint32_t size() const;

    // Version 2.3 only: the whole frames in front of any damage, in their order.
    std::span<const RawFrame> frames() const { return frames_; }
    // What stands behind the header of a frame of this tag. Fails when it has to be read and the file is not the one it
    // was.
    ByteArray data(const RawFrame& frame) const;
    // Header and data.
    ByteArray bytes(const RawFrame& frame) const;
    // The beginning of the data as far as it is in memory: all of a gathered frame. The view is good as long as the
    // image is. Nothing is read.
    Bytes head(const RawFrame& frame) const;
    bool isInMemory(const RawFrame& frame) const { return head(frame).size() == frame.dataSize; }
    // Whether a compressed frame would inflate beyond the limit of the tag (setInflationLimit).
    bool isTooLarge(const RawFrame& frame) const;
    // Whether the frames' offsets are offsets of the file.
    bool hasFileOffsets() const { return (flags() & TagHead::kUnsynchronised) == 0; }

    const std::string& path() const { return path_; }
    FileIdentity identity() const { return file_.get(); }
    // The library has changed the file itself, behind the tag: large frames in it are still those that were meant.
    void follow(const FileChange& change) const { file_.follow(change); }
    // Fails with ESTALE when the file, which is in this state now, is not the one that was read, or what was read of
    // the tag is not what it holds.
    void requireUnchanged(const FileIdentity& now) const;
    // The same of an open file.
    void requireUnchanged(FileReader& file) const;

    // Reads those of these frames that are in the file only, for a change that takes them out of it. Nothing when there
    // are none. Fails when they cannot be read or kept.
    std::shared_ptr<const KeptFrames> readForKeeping(std::span<const std::size_t> indices) const;
    // From now on the data of these frames are those.
    void keep(std::shared_ptr<const KeptFrames> kept) const noexcept {
        if (kept) large_.keep(std::move(kept));
    }
    // The data of a large frame are known, though they are not kept.
    void wasRead(std::size_t index, std::size_t fingerprint) const { large_.wasRead(index, fingerprint); }
    LargeFrames::Fingerprints fingerprints() const { return large_.fingerprints(); }

    // Why this tag must not be written anew, or nothing. Looks at the padding, which loading does not read; fails when
    // that cannot be read.
    std::optional<Refusal> refusal() const;
    // The same without a look at the padding, for somebody who will see that it is empty himself.
    const std::optional<Refusal>& refusalButForPadding() const { return refusal_; }
    const Padding& padding() const { return padding_; }
    static Refusal paddingRefusal();

private:
    friend class TagGatherer;

    struct Gathered {
        std::uint32_t offset = 0; // in memory_
        std::uint32_t size = 0;   // bytes of the data that are there
    };

    TagImage(std::string path, const FileIdentity& identity);
    std::size_t indexOf(const RawFrame& frame) const;
    ByteArray readUnchanged(std::uint64_t offset, std::size_t count) const;
    bool hasSameTag(FileReader& file) const;
    bool hasSameFrames(FileReader& file) const;

    std::string path_;
    KnownFile file_;
    std::optional<TagHead> head_;
    std::vector<RawFrame> frames_;        // by ascending offsets
    std::vector<Gathered> gathered_;      // one for each frame
    std::vector<std::uint64_t> tooLarge_; // offsets of such frames, ascending
    ByteArray memory_;                    // the gathered data, or the whole body with its unsynchronisation undone
    std::optional<Refusal> refusal_;
    Padding padding_;
    mutable LargeFrames large_;
};

} // namespace corvane
