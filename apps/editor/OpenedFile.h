// A file as the controls show it: opened anew, with the changes that wait to be saved written into its tag objects. No
// byte of the file changes by that.
#pragma once

#include "corvane/core/FileHandler.h"
#include "corvane/id3v2/ID3V2Tag.h"

#include "apps/editor/FileTags.h"

#include <memory>
#include <string>

namespace corvane::editor {

class OpenedFile {
public:
    // Fails with an exception that tells why when the file cannot be read.
    explicit OpenedFile(const std::string& path);

    FileHandler& handler() { return handler_; }
    // As the file has them.
    const FileTags& tags() const { return tags_; }

    // The tag with these values, for an editor to show. A file without a tag gets an empty one in memory.
    std::shared_ptr<ID3V2Tag> id3v2Tag(const TagValues& wanted);
    // The picture of that tag to be shown.
    static std::shared_ptr<Picture> pictureOf(ID3V2Tag& tag);

private:
    std::shared_ptr<ID3V2Tag> draft() const;

    FileHandler handler_;
    FileTags tags_;
};

} // namespace corvane::editor
