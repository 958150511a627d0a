// Any bytes as an ID3v2 tag: every frame that the walk gives lies inside them, can be found again and read in each way.
// The walk in memory and the one in the file give the same frames and the same payloads. The header's size is made that
// of the bytes that follow, so that inputs do not end at the first check.
#include "corvane/id3v2/FrameGatherer.h"
#include "corvane/id3v2/FrameText.h"
#include "corvane/id3v2/ReadableTag.h"
#include "corvane/id3v2/ReadableText.h"
#include "corvane/id3v2/TagLoad.h"
#include "corvane/platform/ByteReader.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <cstdlib>

namespace {

using namespace corvane;

void require(bool holds) {
    if (!holds) std::abort();
}

void readEveryFrame(const TagFrames& frames) {
    std::size_t firsts = 0;
    for (const FrameRecord& frame : frames.all()) {
        const Payload payload = frames.payload(frame);
        require(removeHeader(frame.id, payload.bytes()).size() <= payload.bytes().size());
        textData(frame.id, frame.encrypted, payload.bytes());
        textDataOfVersion22(frame.id, payload.bytes());
        readableFrame(frame.id, payload.bytes());
        require(FrameId::named(frame.id.text()) == frame.id);
        firsts += frames.find(frame.id) == &frame;
    }
    require(firsts == frames.count());
    readableTag(frames);
}

template <class Layout>
std::shared_ptr<const TagFrames> walkedInMemory(Bytes body, const Layout& layout) {
    FrameGatherer gatherer{ByteArray(body.begin(), body.end()), ID3V2Header::kByteCount + body.size()};
    return gatherer.walk(layout, 0, body.size()).isComplete ? gatherer.done() : nullptr;
}

std::shared_ptr<const TagFrames> walkedInMemory(Bytes body, const ID3V2Header& header) {
    if (header.Version[0] == 2) return walkedInMemory(body, Layout22{});
    if (header.Version[0] == 3) return walkedInMemory(body, Layout23{});
    return walkedInMemory(body, Layout24{(header.Flags & 0x80) != 0});
}

std::shared_ptr<const TagFrames> loaded(const std::string& path, const ID3V2Header& header) {
    FileReader file(path);
    const TagInFile tag{file, path, static_cast<std::int64_t>(file.size()), 1, header};
    if (header.Version[0] == 2) return loadVersion22(tag);
    return header.Version[0] == 3 ? loadVersion23(tag) : loadVersion24(tag);
}

void requireSame(const TagFrames& one, const TagFrames& other) {
    require(one.list() == other.list() && one.paddingSize() == other.paddingSize());
    for (std::size_t i = 0; i < one.all().size(); ++i) {
        const Payload payload = one.payload(one.all()[i]);
        require(std::ranges::equal(payload.bytes(), other.payload(other.all()[i]).bytes()));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ByteReader input(Bytes(data, size));
    auto header = decodeHeader(input.take(ID3V2Header::kByteCount).value_or(Bytes{}));
    if (!header) return 0;
    const Bytes body = input.takeRest();
    header->Version[0] = static_cast<std::uint8_t>(2 + header->Version[0] % 3);
    const ByteArray sizeBytes = test::ByteBuilder().synchsafe(static_cast<std::uint32_t>(body.size())).done();
    std::copy(sizeBytes.begin(), sizeBytes.end(), header->Size.begin());

    static const test::ScratchFolder folder;
    const auto frames = loaded(folder.write("tag", Bytes(data, size)), *header);
    if (frames) readEveryFrame(*frames);
    const auto inMemory = walkedInMemory(body, *header);
    if (inMemory) readEveryFrame(*inMemory);
    const std::uint8_t changing = header->Version[0] == 4 ? 0x20 : 0xA0; // flags that change where frames begin
    if (frames && (header->Flags & changing) == 0) {
        require(inMemory != nullptr);
        requireSame(*frames, *inMemory);
    }
    return 0;
}
