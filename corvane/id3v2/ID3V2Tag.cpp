#include "corvane/id3v2/ID3V2Tag.h"

#include "corvane/id3v2/ID3V22TagInternals.h"
#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/ID3V24TagInternals.h"
#include "corvane/id3v2/ID3V2TagXml.h"
#include "corvane/id3v2/ReaderAnswers.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlLayout.h"

#include <utility>

namespace corvane {

namespace {

constexpr std::int64_t kStartPosition = 1; // the tag begins with the file's first byte

template <class Reader>
bool loadFrames(Reader& reader, FileReader& file, const std::string& fileName, const ID3V2Header& header) {
    const auto length = static_cast<std::int64_t>(file.size());
    return Internals<Reader>::loadFromFile(reader, file, fileName, length, kStartPosition, header);
}

// Reads the text of a frame that ID3v2.2, as hosts know it, does not have. ID3v2.3 has a property for it, since the
// frame that it stands for need not be the first of its ID.
struct FrameOfLaterVersions {
    std::string (ID3V23Tag::*ofVersion23)() const;
    const char* id;

    std::string operator()(const ID3V22Tag&) const { return {}; }
    std::string operator()(const ID3V23Tag& reader) const { return (reader.*ofVersion23)(); }
    std::string operator()(const ID3V24Tag& reader) const { return reader.GetText(id); }
};

template <class... Reads>
struct Overloaded : Reads... {
    using Reads::operator()...;
};
template <class... Reads>
Overloaded(Reads...) -> Overloaded<Reads...>;

} // namespace

ID3V2Tag::ID3V2Tag()
    : version_(std::make_shared<ID3V2Version>()),
      errorPlace_(std::make_shared<ErrorRecordPlace>()),
      error_(std::make_shared<cError>()) {
    *errorPlace_ = error_;
}

void ID3V2Tag::setHeader(const std::string& fileName, const ID3V2Header& header) {
    loaded_ = false;
    reader22_ = nullptr; // readers of a file that was opened before live on with the hosts that hold them
    reader23_ = nullptr;
    reader24_ = nullptr;
    fileName_ = fileName;
    Internals<ID3V2Version>::setMinor(*version_, header.Version[0]);
    Internals<ID3V2Version>::setRevision(*version_, header.Version[1]);
    size_ = tagSize(header);
    headerSet_ = true;
    header_ = header;
}

std::shared_ptr<ID3V2Version> ID3V2Tag::Version() const { return version_; }

Variant ID3V2Tag::Size() const { return size_; }

std::shared_ptr<corvane::ID3V22Tag> ID3V2Tag::ID3V22Tag() { return isLoaded() ? reader22_ : nullptr; }
std::shared_ptr<corvane::ID3V23Tag> ID3V2Tag::ID3V23Tag() { return isLoaded() ? reader23_ : nullptr; }
std::shared_ptr<corvane::ID3V24Tag> ID3V2Tag::ID3V24Tag() { return isLoaded() ? reader24_ : nullptr; }

std::shared_ptr<TagError> ID3V2Tag::LastError() const {
    return viewOf(std::shared_ptr<const ErrorRecordPlace>(errorPlace_));
}

bool ID3V2Tag::hasKnownVersion() const { return majorVersion() >= 2 && majorVersion() <= 4; }

bool ID3V2Tag::loadTag() {
    return load([this] {
        if (reader23_ && reader23_->canSave())
            return Internals<corvane::ID3V23Tag>::loadWithId3lib(*reader23_, fileName_, header_);
        FileReader file(fileName_);
        return loadReader(file);
    });
}

bool ID3V2Tag::parse() {
    return load([this] {
        FileReader file(fileName_);
        return loadReader(file);
    });
}

template <class Body>
bool ID3V2Tag::load(Body&& body) {
    loaded_ = false;
    if (headerSet_ && !hasKnownVersion()) return false;
    if (majorVersion() == 3) reader23_ = std::make_shared<corvane::ID3V23Tag>();
    loaded_ = headerSet_ && recordFailures(*error_, false, std::forward<Body>(body));
    if (!loaded_) {
        error_->record("ID3V2Tag::loadTag", "Unable to load this tag.", cError::kNone);
        error_->Number = static_cast<std::int32_t>(FailureNumber::ObjectDefined);
    }
    return loaded_;
}

bool ID3V2Tag::loadReader(FileReader& file) {
    if (majorVersion() == 2) {
        auto reader = std::make_shared<corvane::ID3V22Tag>();
        return loadFrames(*reader, file, fileName_, header_) && (reader22_ = reader);
    }
    if (majorVersion() == 3) return loadFrames(*reader23_, file, fileName_, header_);
    auto reader = std::make_shared<corvane::ID3V24Tag>();
    return loadFrames(*reader, file, fileName_, header_) && (reader24_ = reader);
}

// What `visit` makes of the reader of the tag's version; `otherwise` when the tag cannot be read.
template <class Result, class Visit>
Result ID3V2Tag::withReader(Result otherwise, Visit&& visit) {
    if (!isLoaded()) return otherwise;
    if (reader22_) return visit(*reader22_);
    if (reader23_) return visit(*reader23_);
    return visit(*reader24_);
}

const TagFrames* ID3V2Tag::frames() const {
    if (!loaded_) return nullptr;
    if (reader22_) return &Internals<corvane::ID3V22Tag>::frames(*reader22_);
    if (reader23_) return &Internals<corvane::ID3V23Tag>::frames(*reader23_);
    return &Internals<corvane::ID3V24Tag>::frames(*reader24_);
}

void ID3V2Tag::follow(const FileChange& change) const {
    if (const TagFrames* parsed = frames(); parsed != nullptr) parsed->follow(change);
    const auto changeable = reader23_ ? Internals<corvane::ID3V23Tag>::changeable(*reader23_) : nullptr;
    if (changeable && Internals<ID3V230>::image(*changeable)) Internals<ID3V230>::image(*changeable)->follow(change);
}

template <class Read>
std::string ID3V2Tag::text(Read&& read) {
    return recordFailures(*error_, std::string(), [&] { return withReader(std::string(), read); });
}

std::string ID3V2Tag::Artist() {
    return text([](const auto& reader) { return reader.Artist(); });
}

std::string ID3V2Tag::Album() {
    return text([](const auto& reader) { return reader.Album(); });
}

std::string ID3V2Tag::Title() {
    return text([](const auto& reader) { return reader.Title(); });
}

std::string ID3V2Tag::Genre() {
    return text([](const auto& reader) { return reader.Genre(); });
}

std::string ID3V2Tag::Track() {
    return text([](const auto& reader) { return reader.Track(); });
}

std::string ID3V2Tag::Year() {
    return text(Overloaded{[](const auto& reader) { return reader.Year(); },
                           [](const corvane::ID3V24Tag&) { return std::string(); }});
}

std::string ID3V2Tag::LyricsUnsynced() {
    return text(FrameOfLaterVersions{&corvane::ID3V23Tag::LyricsUnsynced, "USLT"});
}
std::string ID3V2Tag::LyricsSynced() { return text(FrameOfLaterVersions{&corvane::ID3V23Tag::LyricsSynced, "SYLT"}); }
std::string ID3V2Tag::UserURL() { return text(FrameOfLaterVersions{&corvane::ID3V23Tag::UserURL, "WXXX"}); }
std::string ID3V2Tag::Comment() { return text(FrameOfLaterVersions{&corvane::ID3V23Tag::Comment, "COMM"}); }
std::string ID3V2Tag::Composer() { return text(FrameOfLaterVersions{&corvane::ID3V23Tag::Composer, "TCOM"}); }
std::string ID3V2Tag::OriginalArtist() {
    return text(FrameOfLaterVersions{&corvane::ID3V23Tag::OriginalArtist, "TOPE"});
}
std::string ID3V2Tag::Copyright() { return text(FrameOfLaterVersions{&corvane::ID3V23Tag::Copyright, "TCOP"}); }
std::string ID3V2Tag::EncodedBy() { return text(FrameOfLaterVersions{&corvane::ID3V23Tag::EncodedBy, "TENC"}); }

std::shared_ptr<corvane::Picture> ID3V2Tag::Picture() {
    const auto none = std::shared_ptr<corvane::Picture>();
    return withReader(none, Overloaded{[](const corvane::ID3V22Tag&) { return std::shared_ptr<corvane::Picture>(); },
                                       [](const corvane::ID3V23Tag& reader) { return reader.Picture(); },
                                       [this](const corvane::ID3V24Tag& reader) {
                                           return recordedPicture(Internals<corvane::ID3V24Tag>::frames(reader),
                                                                  *error_);
                                       }});
}

// Writes do not read the tag: a host reads one property before it writes.
corvane::ID3V23Tag& ID3V2Tag::writable() {
    if (!reader23_) throw RuntimeFailure(FailureNumber::ObjectNotSet, "ID3V2Tag", "Object variable not set.");
    return *reader23_;
}

void ID3V2Tag::Artist(std::string_view value) {
    if (majorVersion() == 3) writable().Artist(value);
}

void ID3V2Tag::Album(std::string_view value) {
    if (majorVersion() == 3) writable().Album(value);
}

void ID3V2Tag::Title(std::string_view value) {
    if (majorVersion() == 3) writable().Title(value);
}

void ID3V2Tag::Genre(std::string_view value) {
    if (majorVersion() == 3) writable().Genre(value);
}

void ID3V2Tag::Track(std::string_view value) {
    if (majorVersion() == 3) writable().Track(value);
}

void ID3V2Tag::Year(std::string_view value) {
    if (majorVersion() == 3) writable().Year(value);
}

void ID3V2Tag::Picture(const std::shared_ptr<corvane::Picture>& value) {
    if (majorVersion() == 3) writable().Picture(value);
}

void ID3V2Tag::LyricsUnsynced(std::string_view value) {
    if (majorVersion() == 3) writable().LyricsUnsynced(value);
}

void ID3V2Tag::LyricsSynced(std::string_view value) {
    if (majorVersion() == 3) writable().LyricsSynced(value);
}

void ID3V2Tag::UserURL(std::string_view value) {
    if (majorVersion() == 3) writable().UserURL(value);
}

void ID3V2Tag::Comment(std::string_view value) {
    if (majorVersion() == 3) writable().Comment(value);
}

void ID3V2Tag::Composer(std::string_view value) {
    if (majorVersion() == 3) writable().Composer(value);
}

void ID3V2Tag::OriginalArtist(std::string_view value) {
    if (majorVersion() == 3) writable().OriginalArtist(value);
}

void ID3V2Tag::Copyright(std::string_view value) {
    if (majorVersion() == 3) writable().Copyright(value);
}

void ID3V2Tag::EncodedBy(std::string_view value) {
    if (majorVersion() == 3) writable().EncodedBy(value);
}

// From now on LastError shows the reader's reasons, also one that a host has taken before.
template <class Reader>
void ID3V2Tag::adoptRecordOf(const Reader& reader) {
    error_ = Internals<Reader>::getErrorRecord(reader);
    *errorPlace_ = error_;
}

bool ID3V2Tag::canSave() {
    return withReader(false, [this](auto& reader) {
        const bool can = reader.canSave();
        if (!can) adoptRecordOf(reader);
        return can;
    });
}

bool ID3V2Tag::saveTag() {
    if (majorVersion() != 3) {
        error_->record("saveTag", "Saving is not supported.");
        return false;
    }
    return recordFailures(*error_, false, [this] {
        const bool saved = writable().saveTag();
        if (!saved) adoptRecordOf(*reader23_);
        return saved;
    });
}

void ID3V2Tag::SavingOptions(std::int32_t, std::int32_t) {}

bool ID3V2Tag::splittedGenre(std::int16_t& GenreID, std::string& GenreDescription) {
    const auto reader = ID3V23Tag();
    return reader != nullptr && reader->splittedGenre(GenreID, GenreDescription);
}

std::string ID3V2Tag::xml(XmlNode* BaseNode) {
    return renderDocument("ID3V2Tag", BaseNode, [this](pugi::xml_node parent) { appendXml(parent); });
}

void ID3V2Tag::appendXml(pugi::xml_node parent) {
    const pugi::xml_node properties = appendElementWithProperties(parent, "ID3V2Tag");
    const auto number = [](auto value) { return std::to_string(value); };
    appendProperty(properties, "Version",
                   number(version_->Major()) + '.' + number(version_->Minor()) + '.' + number(version_->Revision()));
    appendProperty(properties, "Size", number(size_));
    if (!hasKnownVersion() || !isLoaded()) return;
    const auto changeable = reader23_ ? Internals<corvane::ID3V23Tag>::changeable(*reader23_) : nullptr;
    if (changeable) {
        appendFrameProperties(properties, *changeable->Frames());
    } else {
        appendFrameProperties(properties, *frames(), majorVersion());
    }
}

} // namespace corvane
