// What the library does with a Lyrics3 tag object beside its hosts.
#pragma once

#include "corvane/lyrics/LyricsTag.h"

#include <pugixml.hpp>

#include <string>

namespace corvane {

template <>
struct Internals<LyricsTag> {
    // Reads the tag that ends the file, or stands before its ID3v1 record when HasID3v1 tells of one. What the object
    // held before is forgotten. A file without a tag is no failure.
    //
    // Fails with a RuntimeFailure that is not recorded; what was found before the failure stays:
    //   TypeMismatch      the size of the tag or the length of a field is no number
    //   BadRecordNumber   the body begins before the file does (in v1.00 it always has 5100 bytes)
    //   DuplicateKey      two fields have the same ID
    //   errno             the file cannot be opened or read
    static void Load(LyricsTag& tag, const std::string& FileName, bool HasID3v1) { tag.Load(FileName, HasID3v1); }
    static void Load(LyricsTag& tag, FileReader& file, bool HasID3v1) { tag.Load(file, HasID3v1); }

    // The name of the file that was loaded last by its name.
    static const std::string& FileName(const LyricsTag& tag) { return tag.fileName_; }
    // Whether an ID3v1 record follows the tag, as the last load was told.
    static bool HasID3v1Tag(const LyricsTag& tag) { return tag.hasId3v1Tag_; }
    static void HasID3v1Tag(LyricsTag& tag, bool hasId3v1Tag) { tag.hasId3v1Tag_ = hasId3v1Tag; }

    // The object's record itself, which LastError shows.
    static const cError& error(const LyricsTag& tag) { return *tag.error_; }

    // Appends the tag's element to a document.
    static void appendXml(const LyricsTag& tag, pugi::xml_node parent) { tag.appendXml(parent); }
};

} // namespace corvane
