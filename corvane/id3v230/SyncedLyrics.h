// The entries of a SYLT frame (ID3v2.3.0 section 4.10) and the one text that stands for all of them: a line for each,
// with its time in front, "[01:23.4] line".
//
//   data of the frame, for each entry: its text, the text's end (00, in UTF-16 00 00), 4 bytes of time, big-endian
//
// Times that count MPEG frames, which is rare, stand as "[1234] line".
#pragma once

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/EncodedText.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

enum class TimeStampFormat : std::uint8_t { MpegFrames = 1, Milliseconds = 2 };

struct SyncedLyrics {
    struct Entry {
        std::uint32_t time = 0;
        std::string text;
    };

    TimeStampFormat format = TimeStampFormat::Milliseconds;
    std::vector<Entry> entries;
};

// Takes the entries that are whole.
SyncedLyrics takeSyncedLyrics(TimeStampFormat format, EncodedTextReader& text, ByteReader& data);
// The data of the frame.
ByteArray syncedLyricsData(const SyncedLyrics& lyrics, TextEncoding encoding);

// The lines, joined by LF. An entry of several lines gives as many lines of the same time; line breaks at its ends,
// which many writers put there, are left out.
std::string textOfSyncedLyrics(const SyncedLyrics& lyrics);

// The entries of such a text, in its order; CR LF is as good as LF, and empty lines are left out. A text in which no
// line begins with "[" is one entry at the beginning. Nothing when a line is not of the stated form or when the lines
// differ in what they count.
std::optional<SyncedLyrics> parseSyncedLyrics(std::string_view text);

// Gives lines that say the same time as an entry of `before`, to the tenth that they show, the time of that entry. The
// text of all of them gives back `before` itself, with its line breaks.
void keepTimes(SyncedLyrics& lyrics, const SyncedLyrics& before);

} // namespace corvane
