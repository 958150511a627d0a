// Files with an ID3v1 record, and a folder to write them to.
#pragma once

#include "tests/support/ByteBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace corvane::test {

// 1,000 bytes that begin with an MPEG-1 Layer III header of 128 kbit/s and 44100 Hz.
inline ByteArray audio() { return ByteBuilder().bigEndian(0xFFFB9064, 4).repeat(0x55, 996).done(); }

inline ByteArray record(unsigned byte125, unsigned byte126, unsigned genre = 17) {
    return ByteBuilder()
        .text("TAG")
        .text("A title")
        .padTo(33)
        .text("Abc")
        .byte(0)
        .text("junk")
        .padTo(63)
        .repeat(' ', 30)
        .text("2001")
        .text("A comment of twenty-eight ch")
        .byte(byte125)
        .byte(byte126)
        .byte(genre)
        .done();
}

inline ByteArray with(Bytes first, Bytes second) { return joined({first, second}); }

class FileHandlerFiles : public testing::Test {
protected:
    std::string write(Bytes bytes) const { return folder_.write("a.mp3", bytes); }
    const ScratchFolder folder_;
};

} // namespace corvane::test
