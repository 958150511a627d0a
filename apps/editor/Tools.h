// What the user can do with the tags of many files at once. Each tool tells what the tags of one file become.
#pragma once

#include "apps/editor/FileTags.h"

#include <cstdint>
#include <set>
#include <string>

namespace corvane::editor {

// Sets a field in the tags that the file is to have, in both where it is to have none. What ID3v1 has no place for goes
// into the ID3v2 tag, which the file gets then.
FileTags withText(FileTags tags, Field field, const std::string& text);
FileTags withPicture(FileTags tags, const std::shared_ptr<Picture>& picture);

// Gives a tag the values of the other one. Values that the other one lacks stay as they are, so do those of which ID3v1
// has what it has room for: a long text whose beginning it is, a track number with a total. Where there is nothing to
// copy, both tags stay.
FileTags withCopyToV2(FileTags tags);
FileTags withCopyToV1(FileTags tags);

FileTags withoutV1(FileTags tags);
FileTags withoutV2(FileTags tags);

// The fields in another case, see BatchString for the codes.
FileTags withCase(FileTags tags, const std::set<Field>& fields, std::int32_t conversion);

// A track number; "3/12" in ID3v2 when a total is told.
FileTags withTrack(FileTags tags, int number, int total);

// "32" or "Classical" as the number of ID3v1, "" when it has none.
std::string id3v1Genre(const std::string& genre);
// "3/12" as "3", "" for what is no number of ID3v1.
std::string id3v1Track(const std::string& track);

} // namespace corvane::editor
