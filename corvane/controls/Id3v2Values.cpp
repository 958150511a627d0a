#include "corvane/controls/Id3v2Values.h"

#include "corvane/id3v1/GenreTable.h"

#include <algorithm>
#include <charconv>

namespace corvane::controls {

namespace {

std::optional<std::uint8_t> genreOfNumber(int number) {
    if (genreName(number).empty()) return std::nullopt;
    return static_cast<std::uint8_t>(number);
}

// "17", "(17)" and "(17)Rock".
std::optional<std::uint8_t> genreOfDigits(std::string_view text) {
    if (text.starts_with('(')) text.remove_prefix(1);
    int number = -1;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool ends = parsed.ptr == text.data() + text.size() || *parsed.ptr == ')';
    return parsed.ec == std::errc() && ends ? genreOfNumber(number) : std::nullopt;
}

std::optional<std::uint8_t> genreOfText(std::string_view text) {
    const auto* row = std::ranges::find(kGenreTable, text, &GenreRow::name);
    return row != kGenreTable.end() ? genreOfNumber(row->number) : genreOfDigits(text);
}

void readGenre(ID3V2Tag& tag, Id3v2Values& values) {
    std::int16_t number = -1;
    std::string description;
    tag.splittedGenre(number, description);
    values.genreText = tag.Genre();
    if (values.genreText.empty()) values.genreText = description;
    values.genre = number >= 0 ? genreOfNumber(number) : genreOfText(values.genreText);
}

std::string genreToWrite(const Id3v2Values& wanted) {
    if (!wanted.genre) return wanted.genreText;
    if (*wanted.genre == kUndefinedGenre) return {};
    return "(" + std::to_string(*wanted.genre) + ")" + std::string(genreName(*wanted.genre));
}

} // namespace

Id3v2Values valuesOf(ID3V2Tag& tag) {
    Id3v2Values values;
    for (std::size_t at = 0; at < kId3v2Texts.size(); ++at) values.texts[at] = (tag.*kId3v2Texts[at].read)();
    if (values.texts[text_row::Year] == kNoYear) values.texts[text_row::Year].clear();
    readGenre(tag, values);
    values.picture = tag.Picture();
    return values;
}

Id3v2Values valuesOf(const XmlNode& tag) {
    const auto property = [&tag](const std::string& name) {
        const XmlNode node = tag.selectSingleNode("./Properties/Property[@Name = '" + name + "']");
        return node ? node.attribute("Value").value_or(std::string()) : std::string();
    };
    Id3v2Values values;
    for (std::size_t at = 0; at < kId3v2Texts.size(); ++at) values.texts[at] = property(kId3v2Texts[at].xmlName);
    values.genreText = property("Genre");
    values.genre = genreOfText(values.genreText);
    return values;
}

void writeChanges(ID3V2Tag& tag, const Id3v2Values& shown, const Id3v2Values& wanted) {
    // The year comes first: it is the only one that can be refused.
    const std::string& year = wanted.texts[text_row::Year];
    if (year != shown.texts[text_row::Year]) tag.Year(year.empty() ? std::string_view(kNoYear) : year);
    for (std::size_t at = 0; at < kId3v2Texts.size(); ++at) {
        if (at != text_row::Year && wanted.texts[at] != shown.texts[at]) (tag.*kId3v2Texts[at].write)(wanted.texts[at]);
    }
    if (wanted.genre != shown.genre || wanted.genreText != shown.genreText) tag.Genre(genreToWrite(wanted));
    if (wanted.picture != shown.picture) tag.Picture(wanted.picture);
}

} // namespace corvane::controls
