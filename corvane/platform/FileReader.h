// A regular file opened for reading for the length of one operation.
//
// The system is asked rarely: one open, one fstat, and then reads of whole blocks. The first block of the file stays at
// hand, beside it a second one that moves. Memory is bounded by the bytes that are really in the file.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/FileIdentity.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace corvane {

class FileReader {
public:
    static constexpr std::size_t kBlockSize = 4096; // bytes
    // Each page of memory that a read touches costs, so it takes no more than is likely to be used: the records that
    // end a file, and what somebody who jumps somewhere looks at first.
    static constexpr std::size_t kTailSize = 256;  // bytes
    static constexpr std::size_t kJumpSize = 1024; // bytes

    // Opens the file. Fails with errno's number and text when it cannot be opened (EINVAL for a name with a NUL byte,
    // which the system would cut there); a directory, a device, a pipe or a
    // socket is refused at once (nothing is read from it, and the call does not wait for a peer).
    explicit FileReader(const std::string& path);
    ~FileReader();
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;

    // Length of the file in bytes when it was opened.
    std::uint64_t size() const { return identity_.size; }
    const FileIdentity& identity() const { return identity_; }
    // Whether nobody has changed the file since it was opened.
    bool isUnchanged() const;

    // The bytes [offset, offset + count), fewer when the file ends before. The view is good until the next call.
    Bytes view(std::uint64_t offset, std::size_t count);

    // How many bytes from `offset` on a view gives without asking the system.
    std::size_t atHand(std::uint64_t offset) const {
        return std::max(head_.countFrom(offset), moving_.countFrom(offset));
    }

    // The same bytes in an array of their own.
    ByteArray read(std::uint64_t offset, std::size_t count);

private:
    struct Block {
        std::uint64_t offset = 0;
        Bytes bytes;
        std::size_t countFrom(std::uint64_t from) const {
            const bool inside = from >= offset && from - offset < bytes.size();
            return inside ? bytes.size() - static_cast<std::size_t>(from - offset) : 0;
        }
        bool holds(std::uint64_t from, std::size_t count) const {
            return from >= offset && from - offset <= bytes.size() && count <= bytes.size() - (from - offset);
        }
        Bytes part(std::uint64_t from, std::size_t count) const {
            return bytes.subspan(static_cast<std::size_t>(from - offset), count);
        }
        bool touches(std::uint64_t from) const { return from >= offset && from - offset <= bytes.size(); }
        // What there is of the same part: the file may have been cut while it is being read.
        Bytes partFrom(std::uint64_t from, std::size_t count) const {
            const auto skipped = static_cast<std::size_t>(std::min<std::uint64_t>(from - offset, bytes.size()));
            return bytes.subspan(skipped, std::min(count, bytes.size() - skipped));
        }
    };

    struct Range {
        std::uint64_t offset;
        std::size_t count;
    };

    Range rangeToRead(std::uint64_t offset, std::size_t count) const;
    std::size_t clipped(std::uint64_t offset, std::size_t count) const;
    std::size_t readInto(std::uint64_t offset, std::span<std::uint8_t> target) const;

    int descriptor_;
    FileIdentity identity_;
    Block head_;
    Block moving_;
    std::array<std::uint8_t, kBlockSize> headBytes_;
    std::array<std::uint8_t, kBlockSize> movingBytes_;
    ByteArray large_; // the moving block when more than kBlockSize is wanted at once
};

} // namespace corvane
