#include "apps/cli/PictureText.h"

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/EncodedText.h"
#include "corvane/platform/Picture.h"

#include "apps/cli/Quantity.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>

namespace corvane::cli {

namespace {

constexpr FrameId kPictureId("APIC"), kPictureOfVersion22("PIC");
constexpr std::size_t kFormatLength = 3; // bytes of the image format in ID3v2.2
constexpr std::string_view kLink = "-->";

// ID3v2.3.0 section 4.15, by number.
constexpr std::array kKinds{"other",
                            "file icon of 32 x 32",
                            "other file icon",
                            "front cover",
                            "back cover",
                            "leaflet page",
                            "media",
                            "lead artist",
                            "artist",
                            "conductor",
                            "band",
                            "composer",
                            "lyricist",
                            "recording location",
                            "during recording",
                            "during performance",
                            "movie screen capture",
                            "a bright coloured fish",
                            "illustration",
                            "band logotype",
                            "publisher logotype"};

std::string takeMimeType(FrameId id, ByteReader& payload) {
    if (id == kPictureOfVersion22) {
        const auto format = payload.take(kFormatLength);
        return format ? decodeCodePage(*format) : std::string();
    }
    ByteReader ahead = payload;
    const Bytes rest = ahead.takeRest();
    const auto length = static_cast<std::size_t>(std::find(rest.begin(), rest.end(), 0) - rest.begin());
    const std::string mimeType = decodeCodePage(*payload.take(length));
    payload.take(1);
    return mimeType;
}

std::string kindText(std::uint32_t kind) { return kind < kKinds.size() ? kKinds[kind] : fmt::format("kind {}", kind); }

// What the bytes say counts, and not what the frame says about them.
std::string imageText(const std::string& mimeType, Bytes image) {
    const std::string size = byteText(image.size());
    if (const auto picture = Picture::fromBytes(ByteArray(image.begin(), image.end()))) {
        return fmt::format("{}, {} x {}, {}", picture->mimeType(), picture->width(), picture->height(), size);
    }
    return fmt::format("{}, {}, no image that is known here", mimeType.empty() ? "no type" : mimeType, size);
}

} // namespace

std::string imageText(Bytes image) { return imageText({}, image); }

bool isPicture(FrameId id) { return id == kPictureId || id == kPictureOfVersion22; }

std::string pictureText(FrameId id, Bytes payload) {
    ByteReader reader(payload);
    auto text = EncodedTextReader::begin(reader);
    const std::string mimeType = takeMimeType(id, reader);
    const auto kind = reader.number<1>();
    if (!text || !kind) return fmt::format("{}, no picture", byteText(payload.size()));
    const std::string description = text->takeTerminated(reader);
    const Bytes image = reader.takeRest();
    std::string shown = mimeType == kLink ? "at " + decodeCodePage(image) : imageText(mimeType, image);
    shown += ", " + kindText(*kind);
    return description.empty() ? shown : fmt::format("{}, \"{}\"", shown, description);
}

} // namespace corvane::cli
