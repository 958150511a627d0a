// Tells whether id3lib is found, as a process of its own: the loader's search can be told something else only before a
// process starts. Prints whether id3lib is loaded after reading a frame and making a plain text, what the check says,
// whether it is loaded then, and the number with which making a comment fails.
#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/FrameEncoder.h"
#include "corvane/id3v230/Id3Library.h"
#include "corvane/platform/RuntimeFailure.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdio>

using namespace corvane;

namespace {

const char* loadedText() {
    void* const library = ::dlopen(kId3LibraryFile, RTLD_NOW | RTLD_NOLOAD);
    if (library == nullptr) return "not loaded";
    ::dlclose(library);
    return "loaded";
}

std::int32_t failureOfMaking(ID3_FrameID frame) try {
    FrameToWrite toWrite;
    toWrite.frame = frame;
    toWrite.value = "text";
    encodedFrames(std::span(&toWrite, 1));
    return 0;
} catch (const RuntimeFailure& failure) {
    return failure.number();
}

} // namespace

int main() {
    constexpr std::uint8_t kTitle[] = {0, 'a'};
    contentOfFrame(ID3_FrameID::ID3FID_TITLE, kTitle);
    if (failureOfMaking(ID3_FrameID::ID3FID_TITLE) != 0) return 1;
    std::printf("%s\n", loadedText());
    const Id3LibraryCheck check = checkId3Library();
    std::printf("%s\n%s\n", check.present ? "present" : "missing", check.message.c_str());
    std::printf("%s\n%d\n", loadedText(), failureOfMaking(ID3_FrameID::ID3FID_COMMENT));
    return 0;
}
