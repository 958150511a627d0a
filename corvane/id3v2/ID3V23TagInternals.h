// How the facade loads a reader.
#pragma once

#include "corvane/id3v2/ID3V23Tag.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

template <>
struct Internals<ID3V23Tag> {
    // Reads the tag out of a file that is open, with the library's own parser. startPosition: of the tag's first byte,
    // 1-based. fileName: of the same file; large payloads are read from it when they are asked for.
    static bool loadFromFile(ID3V23Tag& tag, FileReader& file, const std::string& fileName, std::int64_t fileLength,
                             std::int64_t startPosition, const ID3V2Header& header) {
        return tag.loadFromFile(file, fileName, fileLength, startPosition, header);
    }
    // Makes the tag one that can be changed, and reads it with an updatable tag out of the file of that name. True,
    // whatever comes of reading it.
    static bool loadWithId3lib(ID3V23Tag& tag, const std::string& fileName, const ID3V2Header& header) {
        return tag.loadWithId3lib(fileName, header);
    }
    // The updatable tag; nothing for a parsed tag.
    static const std::shared_ptr<ID3V230>& changeable(const ID3V23Tag& tag) { return tag.changeable_; }
    static std::shared_ptr<cError> getErrorRecord(const ID3V23Tag& tag) { return tag.getErrorRecord(); }
    // While it is true, canSave answers false and says nothing of the reason.
    static void refuseSaving(ID3V23Tag& tag, bool refused) { tag.refuseSaving(refused); }
    static const TagFrames& frames(const ID3V23Tag& tag) { return *tag.frames_; }
};

} // namespace corvane
