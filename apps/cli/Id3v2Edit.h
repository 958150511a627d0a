// Changes of an ID3v2.3 tag: what is to be set, and what becomes of it in the tag's frames.
#pragma once

#include "corvane/id3v230/ID3V230.h"

#include "apps/cli/TagOutcome.h"
#include "apps/cli/TagValues.h"

#include <string>

namespace corvane::cli {

class Id3v2Edit {
public:
    // Reads the tag of a file, which may have none. Fails with a FileFailure when the tag must not be written anew, or
    // id3lib is missing, without which none can be.
    explicit Id3v2Edit(const std::string& path);

    // Sets the values in memory. Tells how the tag would differ from the one in the file.
    TagOutcome apply(const TagValues& values);
    // Whether the file has an ID3v2 tag.
    bool exists() const;
    // Whether no frame is left. Such a tag is removed when it is written.
    bool isEmpty() const;
    // Writes the tag into the file. Fails with a FileFailure; the file is then exactly what it was.
    void write();

private:
    ID3V230 tag_;
};

} // namespace corvane::cli
