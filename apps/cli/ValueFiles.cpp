#include "apps/cli/ValueFiles.h"

#include "corvane/platform/CodePage.h"
#include "corvane/platform/Utf.h"

#include "apps/cli/InputFile.h"
#include "apps/cli/LibraryFailure.h"

#include <string_view>

namespace corvane::cli {

namespace {

std::string decoded(Bytes bytes) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    std::string text(bytes.begin(), bytes.end());
    if (!isUtf8(text)) return decodeCodePage(bytes);
    if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    return text;
}

// ID3v2 knows the line feed alone (ID3v2.3.0 section 3.3).
std::string withLineFeeds(std::string_view text) {
    std::string lines;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isCarriageReturn = text[at] == '\r';
        if (isCarriageReturn && at + 1 < text.size() && text[at + 1] == '\n') continue;
        lines.push_back(isCarriageReturn ? '\n' : text[at]);
    }
    while (lines.ends_with('\n')) lines.pop_back();
    return lines;
}

} // namespace

std::string textIn(const std::string& path) {
    const std::string text = decoded(readInput(path));
    if (text.find('\0') != std::string::npos) throw FileFailure("This is not text in UTF-8 or Windows-1252");
    return withLineFeeds(text);
}

std::shared_ptr<Picture> pictureIn(const std::string& path) {
    auto picture = Picture::fromBytes(readInput(path));
    if (!picture) throw FileFailure("This is not a JPEG, PNG, GIF or BMP image");
    return picture;
}

} // namespace corvane::cli
