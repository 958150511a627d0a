// The whole frames of a damaged ID3v2.3 tag, for programs that show tags to people.
//
// The readers refuse such a tag as a whole (TagLoad.h), because their hosts rely on that. People want to see what is
// there: every frame before the first damage.
#pragma once

#include "corvane/id3v2/FrameId.h"
#include "corvane/id3v230/TagImage.h"
#include "corvane/platform/Bytes.h"

#include <functional>
#include <memory>
#include <vector>

namespace corvane {

struct WholeFrame {
    FrameId id;
    bool isEncrypted = false;
    bool isTooLarge = false; // it would inflate beyond the limit of its tag
    // The payload, inflated; empty where it cannot be. Fails with a RuntimeFailure when it must be read from the file
    // and the file was changed since, and when it is too large.
    std::function<ByteArray()> payload;
};

// In the order of the file. None of a tag of another version.
std::vector<WholeFrame> wholeFrames(const std::shared_ptr<const TagImage>& tag);

} // namespace corvane
