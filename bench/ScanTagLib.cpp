// The facts that a scan lists, read with TagLib.
#include "bench/ScanRounds.h"

#include <fileref.h>
#include <tag.h>

#include <cstdlib>
#include <iostream>

namespace {

std::size_t charactersSeen = 0;

void readFile(const std::string& path) {
    const TagLib::FileRef file(path.c_str());
    if (file.isNull()) {
        std::cerr << "cannot read " << path << '\n';
        std::exit(1);
    }
    const TagLib::Tag& tag = *file.tag();
    for (const TagLib::String& text : {tag.title(), tag.artist(), tag.album(), tag.genre(), tag.comment()})
        charactersSeen += text.to8Bit(true).size();
    charactersSeen += tag.year() + tag.track();
    const TagLib::AudioProperties& audio = *file.audioProperties();
    charactersSeen += static_cast<std::size_t>(audio.lengthInSeconds() + audio.bitrate() + audio.sampleRate());
}

} // namespace

int main(int argumentCount, char** arguments) { return corvane::bench::scanRounds(argumentCount, arguments, readFile); }
