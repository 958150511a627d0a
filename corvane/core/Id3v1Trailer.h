// Where the ID3v1 record stands in a file: its last 128 bytes.
#pragma once

#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/platform/Bytes.h"
#include "corvane/platform/KnownFile.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

class FileReader;

// The fields of the record at the end of an open file, or nothing when there is none.
std::optional<Id3v1Fields> readTrailer(FileReader& file);

// The state of a file that is longer than a record and whose last 128 bytes begin with "TAG", else nothing. A file that
// is nothing but a record has none in this sense: a record is written behind it, and hosts rely on that. Fails when the
// file cannot be read.
std::optional<FileIdentity> identityWithRecord(const std::string& path);

// Writes a record over the one at the end of the file, or behind its last byte when there is none. Fails, with the file
// as it was, when that is not possible.
FileChange writeTrailer(const std::string& path, Bytes record);

// Cuts the record off a file that is in the state `known`.
FileChange cutTrailer(const std::string& path, const FileIdentity& known);

} // namespace corvane
