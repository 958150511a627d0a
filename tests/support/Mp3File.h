// An MP3 file with everything in it, for tests that change its tags: an ID3v2 tag, audio, a Lyrics3 tag, an ID3v1
// record. Whatever is done to the ID3v2 tag, the rest must stay byte for byte what it was.
#pragma once

#include "corvane/platform/Bytes.h"

#include "tests/support/ScratchFolder.h"

#include <string>

namespace corvane::test {

// Whether the content of a file ends with the very bytes that stood behind its tag, and nothing stands in front of them
// but, at most, one ID3v2 tag whose header tells exactly so many bytes. Prints what is wrong. Every test that saves or
// removes a tag asks this.
bool audioIsUntouched(Bytes now, Bytes rest);

class Mp3File {
public:
    // Writes the file into the folder: the tag, which may be empty, and the usual rest behind it.
    Mp3File(const ScratchFolder& folder, Bytes tag, const std::string& name = "song.mp3");
    // The same with another rest.
    Mp3File(const ScratchFolder& folder, Bytes tag, Bytes rest, const std::string& name);

    const std::string& path() const { return path_; }
    // What was written.
    const ByteArray& original() const { return original_; }
    // What stands in the file now.
    ByteArray content() const { return contentOf(path_); }
    bool isUnchanged() const { return content() == original_; }

    // See above.
    bool audioIsUntouched() const;
    // The tag that stands in front of them now; empty when there is none.
    ByteArray tag() const;

    // 10 frames of audio that can be told from each other.
    static ByteArray audio();
    // Audio, Lyrics3 v2 tag, ID3v1 record.
    static ByteArray usualRest();

private:
    std::string path_;
    ByteArray rest_;
    ByteArray original_;
};

} // namespace corvane::test
