#include "tests/support/Mp3File.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/Id3v1Builder.h"
#include "tests/support/LyricsBuilder.h"
#include "tests/support/MpegBuilder.h"

#include <algorithm>
#include <iostream>

namespace corvane::test {

namespace {

// What an ID3v2 header tells, header included; 0 when these bytes begin with none.
std::size_t toldSize(Bytes front) {
    constexpr std::size_t kHeader = 10;
    if (front.size() < kHeader || textOf(front.first(3)) != "ID3") return 0;
    std::size_t size = 0;
    for (const std::uint8_t byte : front.subspan(6, 4)) size = size * 128 + byte;
    return kHeader + size;
}

} // namespace

bool audioIsUntouched(Bytes now, Bytes rest) {
    const bool endsWithRest = now.size() >= rest.size() && std::equal(rest.rbegin(), rest.rend(), now.rbegin());
    if (!endsWithRest) {
        std::cerr << "the audio or what stands behind it has changed\n";
        return false;
    }
    const Bytes front = now.first(now.size() - rest.size());
    if (front.empty() || toldSize(front) == front.size()) return true;
    std::cerr << front.size() << " bytes stand in front of the audio, a tag of " << toldSize(front) << "\n";
    return false;
}

Mp3File::Mp3File(const ScratchFolder& folder, Bytes tag, const std::string& name)
    : Mp3File(folder, tag, usualRest(), name) {}

Mp3File::Mp3File(const ScratchFolder& folder, Bytes tag, Bytes rest, const std::string& name)
    : rest_(rest.begin(), rest.end()), original_(joined({tag, rest})) {
    path_ = folder.write(name, original_);
}

bool Mp3File::audioIsUntouched() const { return test::audioIsUntouched(content(), rest_); }

ByteArray Mp3File::tag() const {
    ByteArray now = content();
    now.resize(now.size() < rest_.size() ? 0 : now.size() - rest_.size());
    return now;
}

ByteArray Mp3File::audio() {
    ByteBuilder stream;
    for (unsigned number = 0; number < 10; ++number) {
        ByteArray frame = mpegFrame({});
        std::fill(frame.begin() + 4, frame.end(), static_cast<std::uint8_t>(number * 20 + 1));
        stream.bytes(frame);
    }
    return stream.done();
}

ByteArray Mp3File::usualRest() {
    const ByteArray lyrics = LyricsBuilder().field("IND", "00").field("LYR", "la la").done();
    const ByteArray record = Id3v1Builder().title("Old Title").track(3).genre(17).done();
    return joined({audio(), lyrics, record});
}

} // namespace corvane::test
