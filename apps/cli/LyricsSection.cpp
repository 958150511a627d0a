#include "apps/cli/LyricsSection.h"

#include "apps/cli/Quantity.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane::cli {

namespace {

struct FieldName {
    std::string_view id;
    const char* name;
};
// Those that the description of Lyrics3 v2.00 names.
constexpr std::array kFieldNames{
    FieldName{"AUT", "Author"},      FieldName{"EAL", "Album"},       FieldName{"EAR", "Artist"},
    FieldName{"ETT", "Title"},       FieldName{"GRE", "Genre"},       FieldName{"IMG", "Images"},
    FieldName{"IND", "Indications"}, FieldName{"INF", "Information"}, FieldName{"LYR", "Lyrics"}};

std::string nameOf(std::string_view id) {
    const auto found =
        std::find_if(kFieldNames.begin(), kFieldNames.end(), [id](const FieldName& field) { return field.id == id; });
    return found == kFieldNames.end() ? "Field" : found->name;
}

// The library gives the 5100 bytes that such a tag may have at most; what stands in front of the tag's beginning is
// audio.
std::string lyricsOfVersion1(const std::string& text) {
    constexpr std::string_view kBegin = "LYRICSBEGIN";
    const std::size_t begin = text.rfind(kBegin);
    return begin == std::string::npos ? text : text.substr(begin + kBegin.size());
}

} // namespace

Section lyricsSection(const LyricsTag& tag) {
    if (tag.Version() == ELyricsVersionConstants::lvcV100) {
        return {"Lyrics3 v1.00 tag", {{"", "Lyrics", lyricsOfVersion1(tag.Lyrics())}}};
    }
    Section section{fmt::format("Lyrics3 v2.00 tag, {}", byteText(static_cast<std::uint64_t>(std::max(0, tag.Size())))),
                    {}};
    for (std::int32_t index = 1; index <= tag.FieldCount(); ++index) {
        const auto field = tag.getFieldByIndex(index);
        section.rows.push_back({field->ID(), nameOf(field->ID()), field->TextData()});
    }
    return section;
}

} // namespace corvane::cli
