#include "corvane/id3v230/FrameSource.h"

#include "corvane/id3v230/FrameNames.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Inflate.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace corvane {

namespace {

// Format flags (ID3v2.3.0 section 3.3.1) and what they put in front of the payload, in this order.
constexpr std::uint8_t kCompressed = 0x80; // the inflated size, 4 bytes
constexpr std::uint8_t kEncrypted = 0x40;  // the method, 1 byte
constexpr std::uint8_t kGrouped = 0x20;    // the group, 1 byte

bool has(const RawFrame& frame, std::uint8_t flag) { return (frame.formatFlags & flag) != 0; }

// The payload as it stands; nothing when the data are too short for what their flags announce, or cannot be inflated.
std::optional<ByteArray> payloadIn(const RawFrame& frame, Bytes data) {
    ByteReader reader(data);
    std::uint32_t claimedSize = 0;
    if (has(frame, kCompressed)) {
        const auto number = reader.number<4>();
        if (!number) return std::nullopt;
        claimedSize = *number;
    }
    if (has(frame, kEncrypted) && !reader.take(1)) return std::nullopt;
    if (has(frame, kGrouped) && !reader.take(1)) return std::nullopt;
    const Bytes payload = reader.takeRest();
    if (!has(frame, kCompressed) || has(frame, kEncrypted)) return ByteArray(payload.begin(), payload.end());
    if (claimedSize > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    const auto size = inflatedSize(payload, static_cast<std::int32_t>(claimedSize));
    return size ? inflated(payload, *size) : std::nullopt;
}

// Whether the beginning of an attached picture goes as far as the end of its description: encoding, MIME type and its
// end, picture type, description and its end (ID3v2.3.0 section 4.15).
bool holdsWholeFront(Bytes head, const PictureHead& picture) {
    if (head.empty()) return false;
    const auto mimeEnd = std::find(head.begin() + 1, head.end(), std::uint8_t{0});
    const auto descriptionOffset = static_cast<std::size_t>(mimeEnd - head.begin()) + 2;
    return picture.imageOffset > descriptionOffset;
}

} // namespace

ID3_FrameID FrameSource::number() const { return frameNumberOf(frame().idText()); }

ByteArray FrameSource::payload() const {
    if (isTooLarge()) throw inflationFailure();
    return payloadIn(frame(), tag_->data(frame())).value_or(ByteArray{});
}

std::optional<FrameContent> FrameSource::content() const {
    if (has(frame(), kEncrypted) || isTooLarge()) return std::nullopt;
    const bool isPlainPicture = number() == ID3_FrameID::ID3FID_PICTURE && frame().formatFlags == 0;
    if (isPlainPicture) {
        const Bytes head = tag_->head(frame());
        FrameContent content = contentOfFrame(number(), head);
        if (head.size() == frame().dataSize || holdsWholeFront(head, content.picture)) return content;
    }
    const auto payload = payloadIn(frame(), tag_->data(frame()));
    return payload ? std::optional(contentOfFrame(number(), *payload)) : std::nullopt;
}

} // namespace corvane
