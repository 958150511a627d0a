#include "apps/cli/BinaryText.h"

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/CodePage.h"
#include "corvane/platform/EncodedText.h"

#include <algorithm>

namespace corvane::cli {

namespace {

constexpr FrameId kPrivate("PRIV"), kFile("GEOB"), kFileOfVersion22("GEO");

// A text in the code page and the 0 behind it.
std::string takeText(ByteReader& payload) {
    ByteReader ahead = payload;
    const Bytes rest = ahead.takeRest();
    const auto length = static_cast<std::size_t>(std::find(rest.begin(), rest.end(), 0) - rest.begin());
    std::string text = decodeCodePage(*payload.take(length));
    payload.take(1);
    return text;
}

// ID3v2.3.0 section 4.16: encoding, MIME type, file name, description.
std::string fileDescription(ByteReader& payload) {
    auto text = EncodedTextReader::begin(payload);
    if (!text) return {};
    takeText(payload);
    const std::string fileName = text->takeTerminated(payload);
    const std::string description = text->takeTerminated(payload);
    return fileName.empty() ? description : fileName;
}

} // namespace

std::string binaryDescription(FrameId id, Bytes payload) {
    ByteReader reader(payload);
    if (id == kPrivate) return takeText(reader);
    return id == kFile || id == kFileOfVersion22 ? fileDescription(reader) : std::string();
}

} // namespace corvane::cli
