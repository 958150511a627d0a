// Files for the tests of the editor, and what stands in them.
#pragma once

#include "apps/editor/FileTags.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
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

// Whether the audio stands in the file, byte for byte.
inline bool hasItsAudio(const Mp3File& file) {
    const ByteArray content = file.content(), audio = Mp3File::audio();
    return std::search(content.begin(), content.end(), audio.begin(), audio.end()) != content.end();
}

} // namespace corvane::test
