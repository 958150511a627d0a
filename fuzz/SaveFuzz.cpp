// Any bytes as the ID3v2 tag of a file, and a property of it changed: a save either changes nothing at all, or gives
// the file a tag that says what was written, with every other frame, the audio and all behind it byte for byte what
// they were. Saving in place and by replacement give the same file.
//
// Of an input the first byte chooses the property, the second the rest (see Options), the third is the length of the
// value. Value and tag follow.
#include "corvane/id3v230/FrameRecordContent.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/id3v230/ID3V230FrameInternals.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/ID3_TagType.h"
#include "corvane/id3v230/RecordsToWrite.h"
#include "corvane/id3v230/SyncedLyrics.h"
#include "corvane/id3v230/UrlText.h"
#include "corvane/platform/ByteReader.h"
#include "corvane/platform/Utf.h"

#include "tests/support/ByteBuilder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace corvane;
using Updatable = Internals<ID3V230>;
using Record = Internals<ID3V230Frame>;

constexpr std::size_t kHeaderSize = 10; // bytes

void require(bool holds, std::string_view rule) {
    if (holds) return;
    std::cerr << "broken: " << rule << '\n';
    std::abort();
}

std::string asWritten(std::string_view value) {
    std::string text = repairedUtf8(withApostrophes(std::string(value)));
    text.erase(text.find_last_not_of('\0') + 1);
    return text;
}
std::string asAddress(std::string_view value) { return escapedUrl(asWritten(value)); }
std::string asLyrics(std::string_view value) {
    const auto lyrics = parseSyncedLyrics(asWritten(value));
    return lyrics ? textOfSyncedLyrics(*lyrics) : "";
}
std::string asGenre(std::string_view value) {
    const std::string text = asWritten(value);
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

struct Property {
    std::string (ID3V230::*read)() const;
    void (ID3V230::*write)(std::string_view);
    std::string (*readBack)(std::string_view written);
};
#define PROPERTY(NAME, READ_BACK)                                                                                      \
    Property { &ID3V230::NAME, &ID3V230::NAME, READ_BACK }
constexpr std::array kProperties{
    PROPERTY(Title, asWritten),         PROPERTY(Comments, asWritten),  PROPERTY(LyricsUnsynced, asWritten),
    PROPERTY(LyricsSynced, asLyrics),   PROPERTY(UserURL, asAddress),   PROPERTY(ArtistURL, asAddress),
    PROPERTY(UserText, asWritten),      PROPERTY(UniqueKey, asWritten), PROPERTY(Genre, asGenre),
    PROPERTY(Track, asWritten),         PROPERTY(Artist, asWritten),    PROPERTY(Album, asWritten),
    PROPERTY(Composer, asWritten),      PROPERTY(Tempo, asWritten),     PROPERTY(Mood, asWritten),
    PROPERTY(OriginalArtist, asWritten)};
#undef PROPERTY
constexpr std::size_t kPictureChoice = kProperties.size(), kYearChoice = kPictureChoice + 1, kChoices = kYearChoice + 1;
constexpr std::size_t kSecondChoice = 5; // how far the other property of a save is from the first

struct Options {
    std::uint8_t byte = 0;
    bool keepsHeader() const { return (byte & 1) != 0; } // else the tag's size is made right, its version 2.3
    bool hasOneMore() const { return (byte & 2) != 0; }  // one more save of another property behind the first
    bool takesPictureOut() const { return (byte & 4) != 0; }
    bool hasTwoAtOnce() const { return (byte & 8) != 0; } // the same save writes another property too
    bool hasLargeFrame() const { return (byte & 16) != 0; }
    // Zeros behind the tag: none, room for every value, more than a tag keeps.
    std::size_t paddingSize() const {
        constexpr std::size_t kRoom = 4000, kTooMuch = 80'000;
        return (byte & 32) == 0 ? 0 : (byte & 64) == 0 ? kRoom : kTooMuch;
    }
};

struct Input {
    std::size_t choice = 0;
    Options options;
    std::string value;
    ByteArray tag;
};

// A frame that is not gathered when a tag is loaded, but read where it stands.
ByteArray largeFrame() {
    constexpr std::uint32_t kSize = 70'000;
    test::ByteBuilder frame;
    frame.text("PRIV").bigEndian(kSize, 4).bigEndian(0, 2);
    for (std::uint32_t i = 0; i < kSize; ++i) frame.byte(i * i % 251);
    return frame.done();
}

ByteArray tagOf(const Options& options, Bytes bytes) {
    if (options.keepsHeader() || bytes.size() < kHeaderSize) return {bytes.begin(), bytes.end()};
    const ByteArray frame = options.hasLargeFrame() ? largeFrame() : ByteArray();
    const ByteArray body = test::joined({frame, bytes.subspan(kHeaderSize), ByteArray(options.paddingSize())});
    const auto size = static_cast<std::uint32_t>(body.size());
    return test::ByteBuilder().text("ID3").byte(3).byte(0).byte(bytes[5]).synchsafe(size).bytes(body).done();
}

Input inputOf(Bytes bytes) {
    ByteReader rest(bytes);
    Input input;
    input.choice = rest.number<1>().value_or(0) % kChoices;
    input.options.byte = static_cast<std::uint8_t>(rest.number<1>().value_or(0));
    const std::size_t size = rest.number<1>().value_or(0);
    const Bytes value = *rest.take(std::min(size, rest.left()));
    input.value.assign(value.begin(), value.end());
    input.tag = tagOf(input.options, rest.takeRest());
    return input;
}

// Bytes of the tag that a file begins with, as its header tells; 0 without one.
std::size_t toldSize(Bytes file) {
    constexpr std::string_view kIdentifier = "ID3";
    if (file.size() < kHeaderSize || !std::ranges::equal(file.first(3), kIdentifier)) return 0;
    std::size_t size = 0;
    for (const std::uint8_t byte : file.subspan(6, 4)) size = size * 128 + byte;
    return kHeaderSize + size;
}

// The file is a tag of the size that its header tells, or none, and what stood behind the old tag.
void requireRestIsIntact(Bytes before, Bytes now) {
    const std::size_t old = toldSize(before);
    require(old <= before.size(), "a tag that is larger than the file is not changed");
    const Bytes rest = before.subspan(old);
    require(now.size() >= rest.size() && std::ranges::equal(now.last(rest.size()), rest), "the audio is intact");
    const std::size_t tag = now.size() - rest.size();
    require(tag == 0 || toldSize(now) == tag, "a tag and the audio make the file");
}

// The frames that must stay as they are: those of records that the change was not about, without quotes that become
// apostrophes.
struct OldFrame {
    std::shared_ptr<ID3V230Frame> record;
    ByteArray bytes; // empty when it may change
};

std::vector<OldFrame> framesOf(const ID3V230& tag) {
    std::vector<OldFrame> frames;
    for (const auto& record : *tag.Frames()) {
        const FrameSource& source = *Record::source(*record);
        frames.push_back({record, losesQuotes(*record) ? ByteArray() : source.tag()->bytes(source.frame())});
    }
    return frames;
}

void change(ID3V230& tag, std::size_t choice, const Input& input) {
    if (choice == kPictureChoice) {
        const auto picture = Picture::fromBytes(test::pngImage(2, 2));
        tag.Picture(input.options.takesPictureOut() ? nullptr : picture);
    } else if (choice == kYearChoice) {
        tag.Year(static_cast<std::int16_t>(input.value.size() * 10));
    } else {
        (tag.*kProperties[choice].write)(input.value);
    }
}

void requireFrames(const std::vector<OldFrame>& before, const ID3V230& saved, const ID3V230& again) {
    const TagImage& image = *Updatable::image(again);
    const TagImage& known = *Updatable::image(saved);
    require(image.frames().size() == known.frames().size(), "the saved tag has the frames that were told");
    std::size_t place = 0;
    for (const OldFrame& old : before) {
        const FrameSource& source = *Record::source(*old.record);
        const bool isTouched =
            old.record->bChanged() || old.record->Deleted() || Record::content(*old.record).pictureWasSet;
        if (isTouched) continue;
        require(&*source.tag() == &known, "an untouched frame is kept");
        require(source.index() >= place && source.index() < image.frames().size(), "frames keep their order");
        place = source.index();
        require(old.bytes.empty() || image.bytes(image.frames()[place]) == old.bytes,
                "an untouched frame keeps its bytes");
    }
}

void requireValue(const ID3V230& again, std::size_t choice, const Input& input, bool hadDuplicates) {
    if (choice == kPictureChoice) {
        if (!input.options.takesPictureOut()) require(again.Picture() != nullptr, "the picture is there");
    } else if (choice == kYearChoice) {
        require(again.Year() == static_cast<std::int16_t>(input.value.size() * 10), "the year reads back");
    } else if (!input.value.empty()) {
        const Property& property = kProperties[choice];
        require((again.*property.read)() == property.readBack(input.value), "the value reads back");
    } else if (!hadDuplicates) {
        require((again.*kProperties[choice].read)().empty(), "an empty text takes the value out");
    }
}

bool hasDuplicates(const ID3V230& tag) {
    return std::ranges::any_of(*tag.Frames(), [](const auto& record) { return record->bDupe(); });
}

// One save, and what must hold behind it. Whether it succeeded.
bool saves(ID3V230& tag, const std::string& path, std::size_t first, const Input& input) {
    std::vector<std::size_t> choices{first};
    if (input.options.hasTwoAtOnce()) choices.push_back((first + kSecondChoice) % kChoices);
    const ByteArray before = test::contentOf(path);
    const auto frames = framesOf(tag);
    const bool hadDuplicates = hasDuplicates(tag);
    for (const std::size_t choice : choices) change(tag, choice, input);
    const bool saved = Updatable::SaveTag(tag);
    const ByteArray now = test::contentOf(path);
    if (!saved) {
        require(!Updatable::lastFailure(tag)->description.empty(), "a failure tells why");
        require(now == before, "a failure changes nothing");
        return false;
    }
    requireRestIsIntact(before, now);
    ID3V230 again;
    require(Updatable::LoadFromFile(again, path), "a saved tag can be read");
    requireFrames(frames, tag, again);
    for (const std::size_t choice : choices) requireValue(again, choice, input, hadDuplicates);
    return true;
}

// What stands in the file after all saves.
ByteArray savedFile(const test::ScratchFolder& folder, const Input& input, bool useTempCopy) {
    const std::string path = folder.write("song.mp3", test::joined({input.tag, test::Mp3File::usualRest()}));
    ID3V230 tag;
    require(Updatable::LoadFromFile(tag, path), "any file can be read");
    tag.UseTempCopy(useTempCopy);
    const bool saved = saves(tag, path, input.choice, input);
    if (saved && input.options.hasOneMore()) {
        ID3V230 next;
        require(Updatable::LoadFromFile(next, path), "a saved tag can be read");
        next.UseTempCopy(useTempCopy);
        require(saves(next, path, (input.choice + 1) % kChoices, input) ||
                    !Updatable::lastFailure(next)->description.empty(),
                "a second failure tells why");
    }
    require(folder.names().size() == 1, "no temporary file is left");
    return test::contentOf(path);
}

void removes(const test::ScratchFolder& folder, Bytes content) {
    const std::string path = folder.write("song.mp3", content);
    ID3V230 tag;
    require(Updatable::LoadFromFile(tag, path), "any file can be read");
    const bool removed = Updatable::StripTags(tag, static_cast<std::uint8_t>(ID3_TagType::ID3TT_ID3V2)) == 0;
    const ByteArray now = test::contentOf(path);
    if (!removed) return require(std::ranges::equal(now, content), "a refusal changes nothing");
    const std::size_t cut = content.size() - now.size(); // a tag of version 2.4 may have a footer as well
    require(now.size() <= content.size() && std::ranges::equal(now, content.subspan(cut)), "the rest is intact");
    require(cut == toldSize(content) || cut == toldSize(content) + kHeaderSize, "a tag is what goes");
}

} // namespace

// Everything happens in memory.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    constexpr const char* kMemory = "/dev/shm";
    if (std::filesystem::is_directory(kMemory)) ::setenv("TMPDIR", kMemory, 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::ScratchFolder folder;
    const Input input = inputOf(Bytes(data, size));
    const ByteArray replaced = savedFile(folder, input, true);
    require(savedFile(folder, input, false) == replaced, "both ways of saving give the same file");
    removes(folder, test::joined({input.tag, test::Mp3File::usualRest()}));
    return 0;
}
