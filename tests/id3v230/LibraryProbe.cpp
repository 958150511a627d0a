// Tells whether id3lib is found, as a process of its own: the loader's search can be told something else only before a
// process starts. Prints whether id3lib is loaded after reading a frame, what the check says, and whether it is loaded
// then.
#include "corvane/id3v230/FrameContent.h"
#include "corvane/id3v230/Id3Library.h"

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

} // namespace

int main() {
    constexpr std::uint8_t kTitle[] = {0, 'a'};
    contentOfFrame(ID3_FrameID::ID3FID_TITLE, kTitle);
    std::printf("%s\n", loadedText());
    const Id3LibraryCheck check = checkId3Library();
    std::printf("%s\n%s\n", check.present ? "present" : "missing", check.message.c_str());
    std::printf("%s\n", loadedText());
    return 0;
}
