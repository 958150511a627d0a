// Removing whole tags from a file, one kind after the other, each by one safe replacement of the file. Everything else
// in the file stays byte for byte what it is.
#pragma once

#include "corvane/id3v230/ID3_TagType.h"
#include "corvane/id3v230/Id3libError.h"
#include "corvane/platform/KnownFile.h"

#include <cstdint>
#include <functional>
#include <string>

namespace corvane {

// What the removal of one tag has made of the file.
struct StrippedFile {
    ID3_TagType kind{};
    FileChange change;
    bool beginsWithTag = false; // ID3TT_ID3V2: another tag followed the one that was removed
};

// For somebody who knows what the file holds. Either may be missing.
struct StripObserver {
    // Called before a tag of this kind leaves the file. A failure leaves the file as it is and ends the operation.
    std::function<void(ID3_TagType kind)> before;
    // Called afterwards; must not fail.
    std::function<void(const StrippedFile& stripped)> after;
};

// Removes one tag of this kind:
//   ID3TT_ID3V2       at the start of the file, of version 2.2, 2.3 or 2.4, with its footer. Zeros behind it stay.
//   ID3TT_ID3V1       the record that ends the file
//   ID3TT_LYRICS3, ID3TT_LYRICS3V2, ID3TT_MUSICMATCH   among the tags that end the file; the others stay
// It is a success when there is none. A tag that does not lie within the file as it claims, or lies in the ID3v2
// tag at its start, is BadData, and nothing is changed; so it is with every other failure.
TagChange stripTag(const std::string& path, ID3_TagType kind, const StripObserver& observer = {});

// The same for every kind whose bit (1, 2, 4, 8, 16) is set, in the order of the bits. Ends at the first failure.
TagChange stripTags(const std::string& path, std::uint8_t kinds, const StripObserver& observer = {});

} // namespace corvane
