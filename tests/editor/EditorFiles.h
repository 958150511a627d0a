// Files for the tests of the editor, and what stands in them.
#pragma once

#include "apps/editor/FileTags.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/ScratchFolder.h"

#include <string>

namespace corvane::test {

// An ID3v2 tag with title, artist, album and track in front of audio, Lyrics3 tag and ID3v1 record.
inline Mp3File taggedFile(const ScratchFolder& folder, const std::string& name, const std::string& title,
                          unsigned version = 3) {
    Id3v2Builder tag(version);
    tag.text("TIT2", title).text("TPE1", "An artist").text("TALB", "An album").text("TRCK", "3/12").padding(500);
    return {folder, tag.done(), name};
}

// Audio alone.
inline Mp3File plainFile(const ScratchFolder& folder, const std::string& name) {
    return {folder, {}, Mp3File::audio(), name};
}

inline ByteArray withoutRecord(ByteArray bytes) {
    constexpr std::size_t kRecord = 128;
    const std::size_t start = bytes.size() < kRecord ? bytes.size() : bytes.size() - kRecord;
    if (textOf(Bytes(bytes).subspan(start)).starts_with("TAG")) bytes.resize(start);
    return bytes;
}

// What `audioIsUntouched` tells of a file, for saves that may change its ID3v1 record as well.
inline bool audioIsUntouchedIn(const Mp3File& file, const ByteArray& rest = Mp3File::usualRest()) {
    return audioIsUntouched(withoutRecord(file.content()), withoutRecord(rest));
}

} // namespace corvane::test
