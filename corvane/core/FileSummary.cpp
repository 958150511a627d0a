#include "corvane/core/FileSummary.h"

#include "corvane/core/FileStart.h"
#include "corvane/core/Id3v1Trailer.h"
#include "corvane/id3v1/GenreTable.h"
#include "corvane/id3v2/ReadableTag.h"
#include "corvane/id3v2/TagLoad.h"
#include "corvane/id3v2/WholeFrames.h"
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

std::string versionName(const ID3V2Header& header) {
    std::string name = "ID3v2.";
    return name.append(std::to_string(header.Version[0])).append(".").append(std::to_string(header.Version[1]));
}

void takeAudioFacts(FileSummary& summary, FileReader& file, std::int32_t startPosition) {
    MPEGHeader header;
    Internals<MPEGHeader>::LoadHeaderEx(header, file, startPosition);
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

void takeId3v2Texts(FileSummary& summary, ReadableTag texts) {
    summary.title = std::move(texts.title);
    summary.artist = std::move(texts.artist);
    summary.album = std::move(texts.album);
    summary.year = std::move(texts.year);
    summary.track = std::move(texts.track);
    summary.genre = std::move(texts.genre);
    summary.comment = std::move(texts.comment);
}

void takeId3v2Tag(FileSummary& summary, FileReader& file, const std::string& path, const ID3V2Header& header) {
    summary.tags.push_back(versionName(header));
    const auto frames = loadFrames({file, path, static_cast<std::int64_t>(file.size()), 1, header});
    // Lists show what the writer of the tag meant, also where the properties, which hosts know, differ from it: texts
    // as the format has them, and the frames before any damage.
    takeId3v2Texts(summary, frames ? readableTag(*frames) : readableTag(wholeFrames(TagImage::read(file, path))));
}

void takeId3v1Record(FileSummary& summary, Id3v1Fields record) {
    summary.tags.emplace_back(record.tagType == EID3TagConstants::ID3V11 ? "ID3v1.1" : "ID3v1");
    if (summary.title.empty()) summary.title = std::move(record.title);
    if (summary.artist.empty()) summary.artist = std::move(record.artist);
    if (summary.album.empty()) summary.album = std::move(record.album);
    if (summary.year.empty()) summary.year = std::move(record.year);
    if (summary.comment.empty()) summary.comment = std::move(record.comment);
    if (summary.track.empty() && record.track > 0) summary.track = std::to_string(record.track);
    if (summary.genre.empty() && record.genre != kUndefinedGenre) summary.genre = genreName(record.genre);
}

} // namespace

// Without the automation objects: making them takes as long as reading the file does.
FileSummary summarize(const std::string& path) {
    FileReader file(path);
    const FileStart start = startOf(file);
    requireNoArchive(start);
    FileSummary summary;
    summary.tags.reserve(3);
    // Before the audio is searched, because the block that the last frames are read with often holds its beginning.
    if (start.tag) takeId3v2Tag(summary, file, path, *start.tag);
    takeAudioFacts(summary, file, start.audioPosition);
    auto record = readTrailer(file);
    if (const char* name = lyricsName(file, record.has_value())) summary.tags.emplace_back(name);
    if (record) takeId3v1Record(summary, std::move(*record));
    return summary;
}

} // namespace corvane
