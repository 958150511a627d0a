// Failures of the library as the command reports them.
#pragma once

#include "corvane/core/FileHandler.h"
#include "corvane/core/TagError.h"

#include <stdexcept>
#include <string>

namespace corvane::cli {

// A file that failed, with the reason as its text.
class FileFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The description in an error record, without its number and source.
std::string reasonOf(const TagError& error);

// Opens a file, or fails with a FileFailure.
void openFile(FileHandler& handler, const std::string& path);

// Writes the handler's ID3v1 tag to its file, or fails with a FileFailure.
void writeId3v1Tag(FileHandler& handler);

} // namespace corvane::cli
