// An updatable tag that was read out of a file of the test's own.
#pragma once

#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include "tests/support/Id3v2Builder.h"
#include "tests/support/ScratchFolder.h"

#include <string>

namespace corvane::test {

class TagOnFile {
public:
    explicit TagOnFile(const Id3v2Builder& builder) : TagOnFile(builder.done()) {}
    explicit TagOnFile(const ByteArray& content) : path_(folder_.write("song.mp3", content)) { read(); }

    // Reads the file once more.
    void read() {
        FileReader file(path_);
        Internals<ID3V230>::bind(tag, TagImage::read(file, path_));
    }
    const std::string& path() const { return path_; }
    const ScratchFolder& folder() const { return folder_; }
    // The record at a place, from 1; there must be one.
    ID3V230Frame& record(std::int32_t place) const { return *tag.Frames()->Item(place); }

    ID3V230 tag;

private:
    ScratchFolder folder_;
    std::string path_;
};

} // namespace corvane::test
