// The ID3v1 tag of a file as a part of what happens to the file.
#pragma once

#include "corvane/core/FileHandler.h"
#include "corvane/id3v1/ID3V1Tag.h"

#include "apps/cli/Id3v1Edit.h"
#include "apps/cli/TagChange.h"

#include <memory>

namespace corvane::cli {

class Id3v1Change {
public:
    // Remembers the values of the handler's tag.
    explicit Id3v1Change(std::shared_ptr<FileHandler> handler);

    // The tag, to be given new values.
    ID3V1Tag& tag() { return *handler_->ID3v1xTag(); }

    enum class Write { Changes, NewTagOrChanges };
    // Tells how the tag differs from the one in the file, and how it is written: when there is such a difference, or
    // also when the file has no tag yet.
    void addTo(ChangeReport& report, Write when = Write::Changes) const;

private:
    std::shared_ptr<FileHandler> handler_;
    bool hadTag_;
    Id3v1Fields before_;
};

// "ID3v1.1", or "ID3v1" for one without a track number.
const char* id3v1Name(const ID3V1Tag& tag);

} // namespace corvane::cli
