#include "apps/cli/ValueOptions.h"

#include "corvane/platform/Utf.h"

#include "apps/cli/ValueFiles.h"
#include "apps/cli/WrongUse.h"

#include <fmt/core.h>

#include <array>
#include <string_view>

namespace corvane::cli {

struct ValueOptions::Text {
    const char* name;
    const char* valueName;
    const char* description;
    std::optional<std::string> TagValues::*value;
    bool isOfId3v2 = false;
    bool (*isMeant)(std::string_view text) = nullptr; // nothing when any text can be
    const char* meaning = nullptr;                    // what it must be then, with its article
};

namespace {

// Reads the value that an option gives as a file; "" is the value without one.
template <class Value, class Read>
bool readFile(Failures& failures, const std::optional<std::string>& path, std::optional<Value>& value, Read&& read) {
    try {
        if (path) value = path->empty() ? Value() : read(*path);
        return true;
    } catch (const std::exception& failure) {
        failures.file(*path, failure.what());
        return false;
    }
}

} // namespace

void ValueOptions::declare(Options& options) {
    static constexpr std::array kBoth{
        Text{"--title", "TEXT", "Title", &TagValues::title},
        Text{"--artist", "TEXT", "Artist", &TagValues::artist},
        Text{"--album", "TEXT", "Album", &TagValues::album},
        Text{"--year", "TEXT", "Year, four digits", &TagValues::year},
        Text{"--comment", "TEXT", "Comment", &TagValues::comment},
        Text{"--track", "VALUE", "Track number, also as 5/12", &TagValues::track, false, isTrack, "a track number"},
        Text{"--genre", "VALUE", "Genre number, or name (see `corvane genres`)", &TagValues::genre, false, isGenre,
             "a genre number from 0 to 255"}};
    static constexpr std::array kId3v2{
        Text{"--composer", "TEXT", "Composer", &TagValues::composer, true},
        Text{"--original-artist", "TEXT", "Original artist", &TagValues::originalArtist, true},
        Text{"--copyright", "TEXT", "Copyright", &TagValues::copyright, true},
        Text{"--url", "TEXT", "Web address", &TagValues::url, true},
        Text{"--encoded-by", "TEXT", "Encoder", &TagValues::encodedBy, true}};
    for (const Text& option : kBoth) addText(options, option);
    options.startGroup("Values that only ID3v2 has");
    for (const Text& option : kId3v2) addText(options, option);
    addFile(options, "--lyrics", lyricsFile_, "Lyrics, from a text file");
    addFile(options, "--picture", pictureFile_, "Front cover, from a JPEG, PNG, GIF or BMP file");
}

void ValueOptions::addText(Options& options, const Text& option) {
    const auto store = [this, option](const std::string& text) {
        if (!isUtf8(text)) throw WrongUse("The text is not UTF-8");
        if (option.isMeant != nullptr && !text.empty() && !option.isMeant(text)) {
            throw WrongUse(fmt::format("\"{}\" is not {}", text, option.meaning));
        }
        values_.*option.value = text;
        any_ = true;
        if (option.isOfId3v2) id3v2Option_ = option.name;
    };
    options.addValue(option.name, option.valueName, store, option.description);
}

void ValueOptions::addFile(Options& options, const char* name, std::optional<std::string>& path,
                           const char* description) {
    const auto store = [this, name, &path](const std::string& given) {
        path = given;
        any_ = true;
        id3v2Option_ = name;
    };
    options.addValue(name, "FILE", store, description);
}

bool ValueOptions::readFiles(Failures& failures) {
    constexpr std::string_view kStandardInput = "-";
    if (lyricsFile_ == kStandardInput && pictureFile_ == kStandardInput) {
        throw WrongUse("Standard input can be read once");
    }
    const bool hasLyrics = readFile(failures, lyricsFile_, values_.lyrics, textIn);
    const bool hasPicture = readFile(failures, pictureFile_, values_.picture, pictureIn);
    return hasLyrics && hasPicture;
}

} // namespace corvane::cli
