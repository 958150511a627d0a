#include "corvane/core/FileSummary.h"

#include "corvane/core/FileHandler.h"
#include "corvane/core/FileHandlerInternals.h"
#include "corvane/id3v1/GenreTable.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/id3v2/ReadableTag.h"
#include "corvane/lyrics/LyricsFormat.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"

#include <utility>

namespace corvane {

namespace {

const char* lyricsName(FileReader& file, bool hasId3v1) {
    const std::size_t behind = hasId3v1 ? kId3v1RecordSize : 0;
    if (file.size() < behind + kLyricsTrailerSize) return nullptr;
    switch (lyricsVersionOf(file.view(file.size() - behind - kLyricsTrailerSize, kLyricsTrailerSize))) {
    case ELyricsVersionConstants::lvcV100:
        return "Lyrics3v1";
    case ELyricsVersionConstants::lvcV200:
        return "Lyrics3v2";
    default:
        return {};
    }
}

std::string versionName(const ID3V2Version& version) {
    std::string name = "ID3v2.";
    return name.append(std::to_string(version.Minor())).append(".").append(std::to_string(version.Revision()));
}

void takeAudioFacts(FileSummary& summary, const MPEGHeader& header) {
    if (Internals<MPEGHeader>::headerPosition(header) == 0) return;
    summary.durationSeconds = header.Duration();
    summary.frequencyHz = header.Frequency();
    summary.vbr = header.VBR();
    try {
        summary.bitRateKbps = header.BitRate();
    } catch (const RuntimeFailure&) {
        summary.bitRateKbps = -1; // a VBR header that lies can make it any number
    }
}

void takeId3v2Texts(FileSummary& summary, const ID3V2Tag& tag) {
    // Lists show what the writer of the tag meant, also where the properties, which hosts know, differ from it.
    ReadableTag texts = Internals<ID3V2Tag>::readable(tag);
    summary.title = std::move(texts.title);
    summary.artist = std::move(texts.artist);
    summary.album = std::move(texts.album);
    summary.year = std::move(texts.year);
    summary.track = std::move(texts.track);
    summary.genre = std::move(texts.genre);
    summary.comment = std::move(texts.comment);
}

void takeId3v1Texts(FileSummary& summary, const ID3V1Tag& tag) {
    if (summary.title.empty()) summary.title = tag.Title();
    if (summary.artist.empty()) summary.artist = tag.Artist();
    if (summary.album.empty()) summary.album = tag.Album();
    if (summary.year.empty()) summary.year = tag.Year();
    if (summary.comment.empty()) summary.comment = tag.Comment();
    if (summary.track.empty() && tag.Track() > 0) summary.track = std::to_string(tag.Track());
    if (summary.genre.empty() && tag.Genre() != kUndefinedGenre) summary.genre = genreName(tag.Genre());
}

} // namespace

FileSummary summarize(const std::string& path) {
    FileReader file(path);
    FileHandler handler;
    if (!Internals<FileHandler>::create(handler, path, file)) {
        const cError& error = Internals<FileHandler>::error(handler);
        throw RuntimeFailure(error.Number, error.Source, error.Description);
    }
    FileSummary summary;
    summary.tags.reserve(3);
    takeAudioFacts(summary, *handler.MPEGHeader());
    if (handler.HasID3V2Tag()) {
        summary.tags.push_back(versionName(*handler.ID3V2Tag()->Version()));
        takeId3v2Texts(summary, *handler.ID3V2Tag());
    }
    if (const char* name = lyricsName(file, handler.HasID3V1Tag())) summary.tags.emplace_back(name);
    if (handler.HasID3V1Tag()) {
        const ID3V1Tag& tag = *handler.ID3v1xTag();
        summary.tags.emplace_back(tag.TagType() == EID3TagConstants::ID3V11 ? "ID3v1.1" : "ID3v1");
        takeId3v1Texts(summary, tag);
    }
    return summary;
}

} // namespace corvane
