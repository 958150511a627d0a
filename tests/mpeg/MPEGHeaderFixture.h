// A header object and files to load it from.
#pragma once

#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/FileReader.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane::test {

class MpegHeaderFixture : public testing::Test {
protected:
    bool load(Bytes bytes, std::int32_t startPosition = 1) {
        return loadFile(folder_.write("f", bytes), startPosition);
    }
    bool loadFile(const std::string& path, std::int32_t startPosition = 1) {
        FileReader file(path);
        return Internals<MPEGHeader>::LoadHeaderEx(header_, file, startPosition);
    }
    // A frame in front of a file of `size` bytes, most of which take no room on the disk.
    bool loadSparse(Bytes frame, std::uintmax_t size) {
        const std::string path = folder_.write("sparse", frame);
        std::filesystem::resize_file(path, size);
        return loadFile(path);
    }
    cError record() const { return *Internals<MPEGHeader>::ErrorRecord(header_); }

    ScratchFolder folder_;
    MPEGHeader header_;
};

} // namespace corvane::test
