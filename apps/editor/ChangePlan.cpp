#include "apps/editor/ChangePlan.h"

#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/StoredGenre.h"
#include "corvane/id3v230/ID3V230Internals.h"
#include "corvane/id3v230/ID3_TagType.h"
#include "corvane/platform/FileReplacement.h"

#include "apps/cli/Id3v1Change.h"
#include "apps/cli/Id3v2Edit.h"
#include "apps/cli/Id3v2Saving.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/editor/TagsMerge.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace corvane::editor {

namespace {

using cli::ChangedTag;
using cli::ChangeReport;
using cli::FileFailure;
using Fate = ChangedTag::Fate;
using Given = std::optional<std::string> cli::TagValues::*;

constexpr const char* kId3v2Name = "ID3v2.3.0"; // what the library writes

constexpr std::array<Given, kFieldCount> kId3v2Values{
    &cli::TagValues::title,          &cli::TagValues::artist,      &cli::TagValues::album,   &cli::TagValues::year,
    &cli::TagValues::track,          &cli::TagValues::genre,       &cli::TagValues::comment, &cli::TagValues::composer,
    &cli::TagValues::originalArtist, &cli::TagValues::copyright,   &cli::TagValues::url,     &cli::TagValues::encodedBy,
    &cli::TagValues::lyrics,         &cli::TagValues::syncedLyrics};

cli::TagValues id3v2Changes(const TagValues& inFile, const TagValues& wanted) {
    cli::TagValues values;
    for (std::size_t at = 0; at < kFieldCount; ++at) {
        if (wanted.texts[at] != (inFile.present ? inFile.texts[at] : std::string())) {
            values.*kId3v2Values[at] = wanted.texts[at];
        }
    }
    values.picture = wanted.cover;
    values.shownPicture = wanted.picture;
    return values;
}

void removeId3v2(ID3V230& tag) {
    constexpr auto kKinds = static_cast<std::uint8_t>(ID3_TagType::ID3TT_ID3V2);
    if (Internals<ID3V230>::StripTags(tag, kKinds) == 0) return;
    throw FileFailure(Internals<ID3V230>::lastFailure(tag)->description);
}

void planId3v2Removal(ChangeReport& plan, const FileHandler& file) {
    if (!file.HasID3V2Tag()) return;
    auto image = cli::readTagImage(file.FileName());
    const std::string obstacle = cli::obstacleToRemoval(*image);
    if (!obstacle.empty()) throw FileFailure(obstacle);
    const auto tag = std::make_shared<ID3V230>();
    Internals<ID3V230>::bind(*tag, std::move(image));
    const auto version = file.ID3V2Tag()->Version();
    const std::string name = "ID3v2." + std::to_string(version->Minor()) + "." + std::to_string(version->Revision());
    plan.tags.push_back({"v2", name, Fate::Removed, {}, [tag] { removeId3v2(*tag); }});
}

void planId3v2(ChangeReport& plan, const FileHandler& file, const TagValues& inFile, const TagValues& wanted) {
    if (!wanted.present) return planId3v2Removal(plan, file);
    const auto edit = std::make_shared<cli::Id3v2Edit>(file.FileName());
    cli::TagOutcome outcome = edit->apply(id3v2Changes(inFile, wanted));
    ChangedTag change{"v2", kId3v2Name};
    if (!outcome.changes.empty()) {
        if (!edit->exists()) change.fate = Fate::Added;
        if (edit->isEmpty()) change.fate = Fate::Removed;
        change.write = [edit] { edit->write(); };
    }
    change.changes = std::move(outcome.changes);
    plan.tags.push_back(std::move(change));
    plan.warnings.insert(plan.warnings.end(), outcome.warnings.begin(), outcome.warnings.end());
}

template <class Number>
Number requireNumber(const std::optional<Number>& number, const char* what, const std::string& text) {
    if (!number) throw FileFailure(std::string("ID3v1 has no ") + what + " " + text);
    return *number;
}

cli::Id3v1Values id3v1Changes(const TagValues& inFile, const TagValues& wanted) {
    cli::Id3v1Values values;
    const auto take = [&](Field field, std::optional<std::string>& value) {
        if (!inFile.present || wanted[field] != inFile[field]) value = wanted[field];
    };
    std::optional<std::string> track, genre;
    take(Field::Title, values.title);
    take(Field::Artist, values.artist);
    take(Field::Album, values.album);
    take(Field::Year, values.year);
    take(Field::Comment, values.comment);
    take(Field::Track, track);
    take(Field::Genre, genre);
    if (track) values.track = requireNumber(cli::parseTrack(*track), "track number", *track);
    if (genre) values.genre = requireNumber(genreNumber(*genre), "genre", *genre);
    return values;
}

void planId3v1(ChangeReport& plan, const std::shared_ptr<FileHandler>& file, const TagValues& inFile,
               const TagValues& wanted) {
    if (wanted.present) {
        cli::Id3v1Change change(file);
        cli::applyValues(change.tag(), id3v1Changes(inFile, wanted));
        change.addTo(plan, cli::Id3v1Change::Write::NewTagOrChanges);
    } else if (file->HasTag()) {
        plan.tags.push_back({"v1", cli::id3v1Name(*file->ID3v1xTag()), Fate::Removed, {}, [file] {
                                 if (!file->removeID3V1xTag()) throw FileFailure(cli::reasonOf(*file->LastError()));
                             }});
    }
}

void refuseConflicts(const FileTags& inFile, const FileTags& wanted, const FileTags& now) {
    const std::string names = conflictsIn(inFile, wanted, now);
    if (names.empty()) return;
    throw FileFailure("Another program has changed this since the file was read: " + names +
                      ". Nothing is saved; save once more to replace it");
}

bool isWritten(const ChangedTag& tag) { return tag.write != nullptr; }

// Only an ID3v1 record is written in place. Everything else makes a new file, for which the folder has to be writable.
bool needsNewFile(const ChangedTag& tag) {
    const bool isRecord = std::string_view(tag.word) == "v1";
    return isWritten(tag) && (!isRecord || tag.fate == Fate::Removed);
}

// Found out before the first byte is written, so that a preview says it and no tag is saved without the other.
void requireWritable(const std::string& path, const ChangeReport& plan) {
    if (!plan.changesFile()) return;
    const FileReplacement replacement(path);
    if (std::any_of(plan.tags.begin(), plan.tags.end(), needsNewFile)) replacement.requireReplaceable();
}

} // namespace

cli::ChangeReport planFor(const std::string& path, const FileTags& inFile, const FileTags& wanted) {
    const auto file = std::make_shared<FileHandler>();
    cli::openFile(*file, path);
    refuseConflicts(inFile, wanted, tagsOf(*file));
    ChangeReport plan;
    const bool changesV1 = wanted.v1 != inFile.v1;
    // What is taken away is taken from the end first: 128 bytes that are all of a file are no ID3v1 tag.
    if (changesV1 && !wanted.v1.present) planId3v1(plan, file, inFile.v1, wanted.v1);
    if (wanted.v2 != inFile.v2) planId3v2(plan, *file, inFile.v2, wanted.v2);
    if (changesV1 && wanted.v1.present) planId3v1(plan, file, inFile.v1, wanted.v1);
    cli::refuseFirstTags(path, plan);
    requireWritable(path, plan);
    return plan;
}

void carryOut(const cli::ChangeReport& plan) { cli::writeTags(plan); }

} // namespace corvane::editor
