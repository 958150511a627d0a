// The search for the first frame finds what the stated search finds, whatever the bytes are. The first two bytes of an
// input say where the search starts, the others are the file.
#include "corvane/mpeg/FrameSearch.h"
#include "corvane/mpeg/XingHeader.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FilePosition.h"

#include "tests/support/MpegSearchReference.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace corvane;
    ByteReader input(Bytes(data, size));
    const std::size_t start = input.number<2>().value_or(0);
    const Bytes file = input.takeRest();

    ByteReader rest = readerAt(file, start);
    const auto window = rest.take(searchWindowSize(static_cast<std::int64_t>(start), file.size()));
    if (!window) std::abort();
    const auto found = findFrameHeader(*window);
    const auto expected = test::referenceFirstFrame(file, filePositionOf(static_cast<std::int64_t>(start)));
    if (found.has_value() != expected.has_value()) std::abort();
    if (!found) return 0;
    if (filePositionOf(static_cast<std::int64_t>(start + found->offset)) != *expected) std::abort();
    readXingHeader(file.subspan(start + static_cast<std::size_t>(found->offset)), found->header);
    return 0;
}
