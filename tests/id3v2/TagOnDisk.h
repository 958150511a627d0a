// A file that begins with a tag, and the tag object over it as a file handler would make it.
#pragma once

#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/platform/Bytes.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/ScratchFolder.h"

#include <stdexcept>
#include <string>

namespace corvane::test {

class TagOnDisk {
public:
    // The header is taken from the first 10 bytes, whatever they are.
    explicit TagOnDisk(Bytes fileContent) : path_(folder_.write("f.mp3", fileContent)) {
        const auto header = decodeHeader(fileContent);
        if (!header) throw std::logic_error("a file without a header");
        Internals<ID3V2Tag>::setHeader(tag, path_, *header);
    }
    // The tag and some audio behind it.
    explicit TagOnDisk(const Id3v2Builder& builder) : TagOnDisk(joined({builder.done(), audio()})) {}

    // What stands behind the tag of a builder.
    static ByteArray audio() { return ByteArray(200, 0x55); }
    // Whether it still does, and nothing else, see Mp3File.
    bool audioIsUntouched() const { return test::audioIsUntouched(contentOf(path_), audio()); }

    const std::string& path() const { return path_; }
    const ScratchFolder& folder() const { return folder_; }
    // Puts another file of the same size into its place.
    void replaceFile() const {
        ByteArray other = contentOf(path_);
        for (std::uint8_t& byte : other) byte ^= 0xFF;
        std::filesystem::rename(folder_.write("other", other), path_);
    }

    ID3V2Tag tag;

private:
    ScratchFolder folder_;
    std::string path_;
};

// Number, source, description and severity of what an object's LastError shows.
inline std::string lastErrorOf(const auto& object) { return object.LastError()->Stream(); }

} // namespace corvane::test
