#include "corvane/id3v2/WholeFrames.h"

#include "corvane/id3v230/FrameSource.h"

#include <cstdint>

namespace corvane {

std::vector<WholeFrame> wholeFrames(const std::shared_ptr<const TagImage>& tag) {
    constexpr std::uint8_t kEncrypted = 0x40; // format flag, ID3v2.3.0 section 3.3.1
    std::vector<WholeFrame> frames;
    frames.reserve(tag->frames().size());
    for (std::size_t index = 0; index < tag->frames().size(); ++index) {
        const FrameSource source(tag, index);
        frames.push_back({FrameId::named(source.frame().idText()).value_or(FrameId("????")),
                          (source.frame().formatFlags & kEncrypted) != 0, source.isTooLarge(),
                          [source] { return source.payload(); }});
    }
    return frames;
}

} // namespace corvane
