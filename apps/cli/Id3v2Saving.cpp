#include "apps/cli/Id3v2Saving.h"

#include "corvane/id3v230/Id3Library.h"
#include "corvane/platform/FileReader.h"

namespace corvane::cli {

namespace {

std::string onOneLine(std::string text) {
    constexpr std::string_view kBreak = "\r\n";
    for (std::size_t at; (at = text.find(kBreak)) != std::string::npos;) text.replace(at, kBreak.size(), " ");
    return text;
}

} // namespace

std::shared_ptr<TagImage> readTagImage(const std::string& path) {
    FileReader file(path);
    return TagImage::read(file, path);
}

std::string obstacleToSaving(const TagImage& image) {
    if (const auto refusal = image.refusal()) return refusal->reason;
    return onOneLine(checkId3Library().message);
}

std::string obstacleToRemoval(const TagImage& image) {
    constexpr unsigned kFirstVersion = 2, kLastVersion = 4;
    if (image.majorVersion() < kFirstVersion || image.majorVersion() > kLastVersion) {
        return "the version of the ID3v2 tag is not known";
    }
    return image.size() > image.identity().size ? "the ID3v2 tag is larger than the file" : "";
}

} // namespace corvane::cli
