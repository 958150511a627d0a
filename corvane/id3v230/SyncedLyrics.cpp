#include "corvane/id3v230/SyncedLyrics.h"

#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/FrameTextEncoding.h"
#include "corvane/id3v230/MillisecondText.h"
#include "corvane/platform/Numbers.h"

#include <algorithm>
#include <map>
#include <utility>

namespace corvane {

namespace {

constexpr std::string_view kLineBreaks = "\r\n";

std::string timeText(TimeStampFormat format, std::uint32_t time) {
    return format == TimeStampFormat::Milliseconds ? millisecondText(time) : std::to_string(time);
}

// The next line, without its end; CR LF, LF and CR end a line.
std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find_first_of(kLineBreaks);
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(line.size());
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
    return line;
}

std::string_view withoutOuterLineBreaks(std::string_view text) {
    const std::size_t begin = text.find_first_not_of(kLineBreaks);
    if (begin == std::string_view::npos) return {};
    return text.substr(begin, text.find_last_not_of(kLineBreaks) + 1 - begin);
}

bool hasTimes(std::string_view text) {
    while (!text.empty()) {
        if (takeLine(text).starts_with('[')) return true;
    }
    return false;
}

struct TimedLine {
    TimeStampFormat format;
    SyncedLyrics::Entry entry;
};

std::optional<TimedLine> parseLine(std::string_view line) {
    const std::size_t bracket = line.find(']');
    if (!line.starts_with('[') || bracket == std::string_view::npos) return std::nullopt;
    const std::string_view time = line.substr(1, bracket - 1);
    std::string_view text = line.substr(bracket + 1);
    if (text.starts_with(' ')) {
        text.remove_prefix(1);
    } else if (!text.empty()) {
        return std::nullopt;
    }
    if (const auto milliseconds = parseMillisecondText(time)) {
        return TimedLine{TimeStampFormat::Milliseconds, {*milliseconds, std::string(text)}};
    }
    const auto frames = parseNumber<std::uint32_t>(time);
    if (!frames) return std::nullopt;
    return TimedLine{TimeStampFormat::MpegFrames, {*frames, std::string(text)}};
}

SyncedLyrics withApostrophes(SyncedLyrics lyrics) {
    for (SyncedLyrics::Entry& entry : lyrics.entries) replaceQuotes(entry.text);
    return lyrics;
}

// By what a line shows of it; the first one last.
std::map<std::uint32_t, std::vector<std::uint32_t>> timesByTenth(const SyncedLyrics& lyrics) {
    constexpr std::uint32_t kTenth = 100; // milliseconds
    std::map<std::uint32_t, std::vector<std::uint32_t>> times;
    for (const SyncedLyrics::Entry& entry : lyrics.entries)
        times[entry.time - entry.time % kTenth].push_back(entry.time);
    for (auto& tenth : times) std::reverse(tenth.second.begin(), tenth.second.end());
    return times;
}

} // namespace

SyncedLyrics takeSyncedLyrics(TimeStampFormat format, EncodedTextReader& text, ByteReader& data) {
    SyncedLyrics lyrics;
    lyrics.format = format;
    for (;;) {
        const std::size_t before = data.left();
        std::string line = text.takeTerminated(data);
        const auto time = data.left() < before ? data.number<4>() : std::nullopt;
        if (!time) return lyrics;
        lyrics.entries.push_back({*time, std::move(line)});
    }
}

ByteArray syncedLyricsData(const SyncedLyrics& lyrics, TextEncoding encoding) {
    ByteArray data;
    for (const SyncedLyrics::Entry& entry : lyrics.entries) {
        appendString(data, entry.text, encoding);
        appendEnd(data, encoding);
        for (const int shift : {24, 16, 8, 0}) data.push_back(static_cast<std::uint8_t>(entry.time >> shift & 0xFF));
    }
    return data;
}

std::string textOfSyncedLyrics(const SyncedLyrics& lyrics) {
    std::string text;
    for (const SyncedLyrics::Entry& entry : lyrics.entries) {
        const std::string time = "[" + timeText(lyrics.format, entry.time) + "]";
        std::string_view rest = withoutOuterLineBreaks(entry.text);
        do {
            const std::string_view line = takeLine(rest);
            text.append(text.empty() ? "" : "\n").append(time).append(line.empty() ? "" : " ").append(line);
        } while (!rest.empty());
    }
    return text;
}

std::optional<SyncedLyrics> parseSyncedLyrics(std::string_view text) {
    SyncedLyrics lyrics;
    if (!hasTimes(text)) {
        lyrics.entries.push_back({0, std::string(text)});
        return lyrics;
    }
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.empty()) continue;
        auto timed = parseLine(line);
        if (!timed) return std::nullopt;
        if (lyrics.entries.empty()) lyrics.format = timed->format;
        if (timed->format != lyrics.format) return std::nullopt;
        lyrics.entries.push_back(std::move(timed->entry));
    }
    return lyrics;
}

void keepTimes(SyncedLyrics& lyrics, const SyncedLyrics& before) {
    SyncedLyrics same = withApostrophes(before);
    if (textOfSyncedLyrics(lyrics) == textOfSyncedLyrics(same)) {
        lyrics = std::move(same);
        return;
    }
    if (lyrics.format != TimeStampFormat::Milliseconds || before.format != lyrics.format) return;
    auto times = timesByTenth(before);
    for (SyncedLyrics::Entry& entry : lyrics.entries) {
        const auto found = times.find(entry.time);
        if (found == times.end()) continue;
        entry.time = found->second.back();
        // The last one is for all lines that follow: an entry may have several.
        if (found->second.size() > 1) found->second.pop_back();
    }
}

} // namespace corvane
