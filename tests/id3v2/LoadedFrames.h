// Tags loaded through the readers' own loads, without the objects that hosts see.
#pragma once

#include "corvane/id3v2/ID3V2Header.h"
#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v2/TagLoad.h"
#include "corvane/platform/FileReader.h"

#include "tests/support/Id3v2Builder.h"
#include "tests/support/ScratchFolder.h"

#include <memory>
#include <string>

namespace corvane::test {

// The frames of the tag that begins at an offset of a file; nullptr when it is refused.
inline std::shared_ptr<const TagFrames> loadedFrames(const std::string& path, std::int64_t offset = 0) {
    FileReader file(path);
    const auto header = decodeHeader(file.read(static_cast<std::uint64_t>(offset), 10));
    if (!header) return nullptr;
    const TagInFile tag{file, path, static_cast<std::int64_t>(file.size()), offset + 1, *header};
    switch (header->Version[0]) {
    case 2:
        return loadVersion22(tag);
    case 3:
        return loadVersion23(tag);
    default:
        return loadVersion24(tag);
    }
}

// The same of a file that holds just these bytes, which is gone afterwards.
inline std::shared_ptr<const TagFrames> loadedFrames(Bytes file) {
    const ScratchFolder folder;
    return loadedFrames(folder.write("f", file));
}

inline std::shared_ptr<const TagFrames> loadedFrames(const Id3v2Builder& tag) { return loadedFrames(tag.done()); }

// "refused", or the list of frames.
inline std::string outcomeOf(const std::shared_ptr<const TagFrames>& frames) {
    return frames == nullptr ? "refused" : frames->list();
}

} // namespace corvane::test
