// The data of large frames that are about to leave their file, for the records that go on without it.
//
// Up to kMostInMemory bytes are kept in memory, more in a file among the system's temporary ones that has no name and
// goes with the object, also when the process is killed.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>

namespace corvane {

class FileReader;
struct RawFrame;

class KeptFrames {
public:
    static constexpr std::uint64_t kMostInMemory = std::uint64_t{16} * 1024 * 1024;

    // size: bytes of data of all frames that will be kept. Fails with errno's number and text when there is no place.
    explicit KeptFrames(std::uint64_t size);

    // Copies the data of a frame out of its file. index: its place among the frames of its tag. Fails with errno's
    // number and text when the data cannot be read or kept.
    void keep(std::size_t index, const RawFrame& frame, FileReader& file);

    // The data of a frame; nothing when it is not kept. Fails when it cannot be read.
    std::optional<ByteArray> data(std::size_t index) const;

private:
    struct Place {
        std::uint64_t offset = 0;
        std::uint32_t size = 0; // bytes
    };
    void append(Bytes block);

    std::map<std::size_t, Place> places_; // by index
    std::uint64_t size_ = 0;              // bytes kept so far
    ByteArray memory_;
    Descriptor file_; // not open where memory is enough
};

} // namespace corvane
