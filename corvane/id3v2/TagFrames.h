// The frames of one tag: what the published tag and frame objects of all versions share and keep alive.
//
// The records stand in one array. Text up to 64 KB is gathered in one buffer when the tag is loaded, and so are small
// payloads that have been read from the file anyway. Other payloads, such as pictures, stay in the file and are read
// when somebody asks, from the same file in the same state: a file that was changed, replaced or removed since is a
// failure, never other bytes. The frames of an unsynchronised tag, which has to be read whole, stay in its body.
#pragma once

#include "corvane/id3v2/FrameId.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/KnownFile.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

// TooLarge: nowhere, because the frame would inflate beyond the limit of its tag.
enum class FramePlace : std::uint8_t { Gathered, Body, File, TooLarge };

struct FrameRecord {
    FrameId id;
    std::uint32_t size = 0;        // bytes at `offset`
    std::uint64_t offset = 0;      // from the start of its place
    std::int32_t inflatedSize = 0; // bytes that come out of a compressed payload
    FramePlace place = FramePlace::Gathered;
    bool encrypted = false;
    bool unsynchronised = false; // the bytes at `offset` are still to be undone
    bool compressed = false;     // the bytes at `offset` are still to be inflated

    bool isPlain() const { return !unsynchronised && !compressed; } // the bytes at `offset` are the payload
};

// The bytes of a payload: a view into the tag, or bytes read for the purpose. A view is good as long as the tag is.
class Payload {
public:
    Payload(Bytes view) : view_(view) {}                                  // NOLINT: either kind of bytes is a payload
    Payload(ByteArray owned) : owned_(std::move(owned)), view_(owned_) {} // NOLINT
    Payload(Payload&&) noexcept = default; // a moved vector keeps its bytes where they are
    Payload& operator=(Payload&&) noexcept = default;

    Bytes bytes() const { return view_; }
    // The last `size` of the bytes in an array of their own.
    ByteArray takeLast(std::size_t size) &&;

private:
    ByteArray owned_;
    Bytes view_;
};

class TagFrames {
public:
    // Every frame in file order, also a second one of the same ID.
    std::span<const FrameRecord> all() const { return records_; }
    // The collection keyed by ID: the first frame of each ID, in file order.
    std::size_t count() const { return firsts_.size(); }
    const FrameRecord* at(std::size_t index) const; // from 0; nullptr past the end
    const FrameRecord* find(FrameId id) const;      // nullptr when there is none
    // Every frame's ID in file order, each followed by ";".
    std::string list() const;

    // The payload of a record of this tag. Fails when it was left in the file and that is no longer the one it was, and
    // when it is too large.
    Payload payload(const FrameRecord& record) const;

    // The library has changed the file itself, behind the tag: payloads in it are still those that were meant.
    void follow(const FileChange& change) const { file_.follow(change); }

    std::uint64_t paddingSize() const { return paddingSize_; } // as the walk gives it

private:
    friend class FrameGatherer;

    void buildKeys();
    Bytes bytesInMemory(const FrameRecord& record) const;

    std::vector<FrameRecord> records_;
    std::vector<std::uint32_t> firsts_; // indices of the first record of each ID
    std::vector<std::uint64_t> sorted_; // ID and index of each first record, ascending; only when there are many
    ByteArray gathered_;
    ByteArray body_;
    std::string path_;
    KnownFile file_;
    std::uint64_t paddingSize_ = 0;
};

// A tag without frames.
std::shared_ptr<const TagFrames> noFrames();

// A record's bytes with their unsynchronisation undone, where they have any.
Payload synchronised(Payload raw, const FrameRecord& record);
// The payload behind such bytes: inflated, where they are compressed. Nothing when that is not possible.
std::optional<Payload> uncompressed(Payload stream, const FrameRecord& record);

} // namespace corvane
