#include "corvane/id3v2/ReadableTag.h"

#include "corvane/id3v2/ReadableText.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane {

namespace {

enum class Fact { Title, Artist, Album, Year, Track, Genre, Comment };

struct FactFrame {
    FrameId id;
    Fact fact;
    int rank; // of frames that tell the same fact the higher one counts
};
constexpr std::array<FactFrame, 17> kFactFrames{{
    {"COM", Fact::Comment, 0},
    {"TAL", Fact::Album, 0},
    {"TCO", Fact::Genre, 0},
    {"TP1", Fact::Artist, 0},
    {"TRK", Fact::Track, 0},
    {"TT2", Fact::Title, 0},
    {"TYE", Fact::Year, 4},
    {"COMM", Fact::Comment, 0},
    {"TALB", Fact::Album, 0},
    {"TCON", Fact::Genre, 0},
    {"TDOR", Fact::Year, 1},
    {"TDRC", Fact::Year, 3},
    {"TDRL", Fact::Year, 2},
    {"TIT2", Fact::Title, 0},
    {"TPE1", Fact::Artist, 0},
    {"TRCK", Fact::Track, 0},
    {"TYER", Fact::Year, 4},
}};
static_assert(std::ranges::is_sorted(kFactFrames, {}, &FactFrame::id));
static_assert(std::ranges::adjacent_find(kFactFrames, {}, &FactFrame::id) == kFactFrames.end());

constexpr std::size_t kFactCount = 7;
constexpr int kYearFrame = 4; // the rank of the frames that hold a year and nothing else

// Comments in which programs keep notes of their own.
constexpr std::array<std::string_view, 2> kProgramNotes{"iTun", "MusicMatch_"};

// -1 for a comment that is none, 0 for one with a description, 1 for one without.
int rankOfComment(std::string_view description) {
    const auto begins = [description](std::string_view note) { return description.starts_with(note); };
    if (std::any_of(kProgramNotes.begin(), kProgramNotes.end(), begins)) return -1;
    return description.empty() ? 1 : 0;
}

// The four digits with which a date begins; "" when it begins with anything else.
std::string leadingYear(std::string_view date) {
    const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
    const std::string_view year = date.substr(0, 4);
    return year.size() == 4 && std::all_of(year.begin(), year.end(), isDigit) ? std::string(year) : std::string();
}

class Facts {
public:
    // `read` gives what the frame says. It is called only when that can count.
    template <class Read>
    void take(FrameId id, Read&& read) {
        const auto found = std::ranges::lower_bound(kFactFrames, id, {}, &FactFrame::id);
        if (found == kFactFrames.end() || found->id != id) return;
        Known& known = known_[static_cast<std::size_t>(found->fact)];
        const int mostPossible = found->fact == Fact::Comment ? 1 : found->rank;
        if (known.rank >= mostPossible) return;
        ReadableFrame readable = read();
        const int rank = found->fact == Fact::Comment ? rankOfComment(readable.description) : found->rank;
        if (found->fact == Fact::Year && rank != kYearFrame) readable.text = leadingYear(readable.text);
        if (!readable.text.empty() && rank > known.rank) known = {std::move(readable.text), rank};
    }

    ReadableTag done() && {
        return {text(Fact::Title), text(Fact::Artist), text(Fact::Album),  text(Fact::Year),
                text(Fact::Track), text(Fact::Genre),  text(Fact::Comment)};
    }

private:
    std::string text(Fact fact) { return std::move(known_[static_cast<std::size_t>(fact)].text); }

    struct Known {
        std::string text;
        int rank = -1;
    };
    std::array<Known, kFactCount> known_;
};

} // namespace

ReadableTag readableTag(const TagFrames& frames) {
    Facts facts;
    for (const FrameRecord& frame : frames.all()) {
        facts.take(frame.id, [&] { return readableFrame(frames, frame); });
    }
    return std::move(facts).done();
}

ReadableTag readableTag(std::span<const WholeFrame> frames) {
    Facts facts;
    for (const WholeFrame& frame : frames) {
        const bool isHidden = frame.isEncrypted || frame.isTooLarge;
        facts.take(frame.id, [&] { return isHidden ? ReadableFrame{} : readableFrame(frame.id, frame.payload()); });
    }
    return std::move(facts).done();
}

} // namespace corvane
