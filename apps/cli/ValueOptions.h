// The options that give values to tags.
#pragma once

#include "apps/cli/Failures.h"
#include "apps/cli/Options.h"
#include "apps/cli/TagValues.h"

#include <optional>
#include <string>

namespace corvane::cli {

class ValueOptions {
public:
    void declare(Options& options);

    // Whether any value was given.
    bool any() const { return any_; }
    // An option that was given and that only ID3v2 has; nullptr when there is none.
    const char* id3v2Option() const { return id3v2Option_; }
    // Reads the files that were given as values. False, and the file is told to the failures, when that fails.
    bool readFiles(Failures& failures);
    // The values; those in files once they are read.
    const TagValues& values() const { return values_; }

private:
    struct Text;
    void addText(Options& options, const Text& option);
    void addFile(Options& options, const char* name, std::optional<std::string>& path, const char* description);

    TagValues values_;
    std::optional<std::string> lyricsFile_, pictureFile_;
    bool any_ = false;
    const char* id3v2Option_ = nullptr;
};

} // namespace corvane::cli
