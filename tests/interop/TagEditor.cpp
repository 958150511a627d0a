// Changes ID3v2.3 tags through the library, for tests in which other programs read what it has saved.
//
// Each line of standard input is one job, a JSON object; each gives one line on standard output:
//
//     {"file": PATH, "by": "records" | "facade" | "create", "values": {"Title": "...", "Year": 1999, ...},
//      "picture": PATH or null, "useTempCopy": true, "read": true}
//     {"saved": true, "reason": "", "values": {"Title": "...", ...}}
//
// "records" changes an ID3V230 that was read from the file, "facade" FileHandler::ID3V2Tag, which knows fewer
// properties, and "create" gives the file a new tag. With "read", "values" are the records' after one more load.
#include "corvane/core/FileHandler.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/ID3V230Internals.h"

#include <nlohmann/json.hpp>

#include <array>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

using namespace corvane;
using Json = nlohmann::ordered_json;
using Updatable = Internals<ID3V230>;

template <class Tag>
struct Text {
    std::string_view name;
    std::string (Tag::*read)() const;
    void (Tag::*write)(std::string_view);
};
struct Number {
    std::string_view name;
    std::int16_t (ID3V230::*read)() const;
    void (ID3V230::*write)(std::int16_t);
};
struct FacadeText {
    std::string_view name;
    void (ID3V2Tag::*write)(std::string_view);
};
#define BOTH(NAME)                                                                                                     \
    { #NAME, &ID3V230::NAME, &ID3V230::NAME }
constexpr auto kTexts = std::to_array<Text<ID3V230>>(
    {BOTH(Title),     BOTH(Song),      BOTH(Artist),         BOTH(ArtistURL),      BOTH(UserURL),      BOTH(Album),
     BOTH(Track),     BOTH(Composer),  BOTH(OriginalArtist), BOTH(Copyright),      BOTH(EncodedBy),    BOTH(Comments),
     BOTH(UniqueKey), BOTH(Genre),     BOTH(UserText),       BOTH(LyricsUnsynced), BOTH(LyricsSynced), BOTH(Tempo),
     BOTH(Mood),      BOTH(Situation), BOTH(Preference)});
constexpr auto kNumbers = std::to_array<Number>({BOTH(TotalTracks), BOTH(Year)});
#undef BOTH
#define WRITE(NAME)                                                                                                    \
    { #NAME, &ID3V2Tag::NAME }
constexpr auto kFacadeTexts =
    std::to_array<FacadeText>({WRITE(Artist), WRITE(Album), WRITE(Title), WRITE(Genre), WRITE(Track), WRITE(Year),
                               WRITE(LyricsUnsynced), WRITE(LyricsSynced), WRITE(UserURL), WRITE(Comment),
                               WRITE(Composer), WRITE(OriginalArtist), WRITE(Copyright), WRITE(EncodedBy)});
#undef WRITE

struct Outcome {
    bool saved = false;
    std::string reason;
};

std::shared_ptr<Picture> pictureIn(const Json& path) {
    if (path.is_null()) return nullptr;
    std::ifstream stream(path.get<std::string>(), std::ios::binary);
    auto picture = Picture::fromBytes({std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()});
    if (!picture) throw std::invalid_argument("no picture: " + path.dump());
    return picture;
}

// Whether one of the properties has this name; it has the value then.
template <class Properties, class Tag>
bool writes(const Properties& properties, Tag& tag, const std::string& name, const Json& value) {
    for (const auto& property : properties) {
        if (property.name != name) continue;
        if constexpr (std::is_same_v<typename Properties::value_type, Number>) {
            (tag.*property.write)(value.get<std::int16_t>());
        } else {
            (tag.*property.write)(value.get<std::string>());
        }
        return true;
    }
    return false;
}

void require(bool holds, const std::string& message) {
    if (!holds) throw std::invalid_argument(message);
}

void change(ID3V230& tag, const Json& job) {
    for (const auto& [name, value] : job.at("values").items()) {
        require(writes(kTexts, tag, name, value) || writes(kNumbers, tag, name, value), "no property " + name);
    }
    if (job.contains("picture")) tag.Picture(pictureIn(job.at("picture")));
}

Outcome editRecords(const std::string& path, const Json& job) {
    ID3V230 tag;
    require(Updatable::LoadFromFile(tag, path), "the file cannot be loaded");
    tag.UseTempCopy(job.value("useTempCopy", true));
    change(tag, job);
    if (Updatable::SaveTag(tag)) return {true, ""};
    return {false, Updatable::lastFailure(tag)->description};
}

Outcome editFacade(const std::string& path, const Json& job) {
    FileHandler handler;
    require(handler.Create(path), "the file cannot be opened");
    ID3V2Tag& tag = *handler.ID3V2Tag();
    tag.Title(); // a tag is read when it is first asked for something
    if (!tag.canSave()) return {false, tag.LastError()->Stream()};
    for (const auto& [name, value] : job.at("values").items()) {
        require(writes(kFacadeTexts, tag, name, value), "no property " + name);
    }
    if (job.contains("picture")) tag.Picture(pictureIn(job.at("picture")));
    const bool saved = tag.saveTag();
    return {saved, saved ? "" : tag.LastError()->Stream()};
}

Outcome create(const std::string& path, const Json& job) {
    FileHandler handler;
    require(handler.Create(path), "the file cannot be opened");
    const auto tag = std::make_shared<ID3V230>();
    change(*tag, job);
    const bool saved = handler.createID3V2Tag(tag);
    return {saved, saved ? "" : handler.LastError()->Stream()};
}

Json valuesIn(const std::string& path) {
    ID3V230 tag;
    require(Updatable::LoadFromFile(tag, path), "the file cannot be loaded");
    Json values;
    for (const auto& property : kTexts) values[std::string(property.name)] = (tag.*property.read)();
    return values;
}

Json answerTo(const Json& job) {
    const auto path = job.at("file").get<std::string>();
    const auto by = job.at("by").get<std::string>();
    require(by == "records" || by == "facade" || by == "create", "no way of changing: " + by);
    const Outcome outcome = by == "records"  ? editRecords(path, job)
                            : by == "facade" ? editFacade(path, job)
                                             : create(path, job);
    Json answer{{"saved", outcome.saved}, {"reason", outcome.reason}};
    if (job.value("read", false)) answer["values"] = valuesIn(path);
    return answer;
}

} // namespace

int main() {
    try {
        for (std::string line; std::getline(std::cin, line);) {
            const Json answer = answerTo(Json::parse(line));
            std::cout << answer.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n' << std::flush;
        }
    } catch (const std::exception& failure) {
        std::cerr << "tag-editor: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
