// How the facade loads a reader.
#pragma once

#include "corvane/id3v2/ID3V24Tag.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

template <>
struct Internals<ID3V24Tag> {
    // Reads the tag out of a file that is open, with the library's own parser. startPosition: of the tag's first byte,
    // 1-based. fileName: of the same file; large payloads are read from it when they are asked for.
    static bool loadFromFile(ID3V24Tag& tag, FileReader& file, const std::string& fileName, std::int64_t fileLength,
                             std::int64_t startPosition, const ID3V2Header& header) {
        return tag.loadFromFile(file, fileName, fileLength, startPosition, header);
    }
    static std::shared_ptr<cError> getErrorRecord(const ID3V24Tag& tag) { return tag.getErrorRecord(); }
    static const TagFrames& frames(const ID3V24Tag& tag) { return *tag.frames_; }
};

} // namespace corvane
