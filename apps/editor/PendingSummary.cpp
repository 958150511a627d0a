#include "apps/editor/PendingSummary.h"

#include "corvane/id3v2/ReadableGenre.h"

#include <algorithm>
#include <array>

namespace corvane::editor {

namespace {

struct ShownField {
    Field field;
    std::string FileSummary::*text;
};
constexpr std::array<ShownField, kCommonFieldCount> kShownFields{{{Field::Title, &FileSummary::title},
                                                                  {Field::Artist, &FileSummary::artist},
                                                                  {Field::Album, &FileSummary::album},
                                                                  {Field::Year, &FileSummary::year},
                                                                  {Field::Track, &FileSummary::track},
                                                                  {Field::Genre, &FileSummary::genre},
                                                                  {Field::Comment, &FileSummary::comment}}};

const std::string& textIn(const TagValues& tag, Field field) {
    static const std::string none;
    return tag.present ? tag[field] : none;
}

std::string listedText(const FileTags& tags, Field field) {
    const std::string& first = textIn(tags.v2, field);
    const std::string& text = first.empty() ? textIn(tags.v1, field) : first;
    return field == Field::Genre ? readableGenre(text) : text;
}

void showTag(std::vector<std::string>& names, bool before, bool now, const char* prefix, const char* name, bool first) {
    if (before == now) return;
    std::erase_if(names, [prefix](const std::string& known) { return known.starts_with(prefix); });
    if (now) names.insert(first ? names.begin() : names.end(), name);
}

} // namespace

FileSummary pendingSummary(FileSummary summary, const FileTags& inFile, const FileTags& wanted) {
    for (const auto& [field, text] : kShownFields) {
        // Where nothing differs, what was read is more precise.
        if (listedText(inFile, field) != listedText(wanted, field)) summary.*text = listedText(wanted, field);
    }
    showTag(summary.tags, inFile.v2.present, wanted.v2.present, "ID3v2", "ID3v2.3.0", true);
    const char* name = wanted.v1[Field::Track].empty() ? "ID3v1" : "ID3v1.1";
    showTag(summary.tags, inFile.v1.present, wanted.v1.present, "ID3v1", name, false);
    return summary;
}

} // namespace corvane::editor
