// A new empty file of our own beside the file that it will replace or serve. It disappears with its object, unless it
// has taken over another name or is to be kept. Its name has the prefix "tmp" (TemporaryNames.h).
#pragma once

#include "corvane/platform/Descriptor.h"

#include <sys/types.h>

#include <string>
#include <string_view>

namespace corvane {

class TemporaryFile {
public:
    // folder: descriptor of the folder, which must stay open while this lives. mode: permission bits before the
    // process's mask; by default the file is for its owner only. Fails with errno's number and text.
    explicit TemporaryFile(int folder, std::string_view extension = "tmp", mode_t mode = 0600);
    ~TemporaryFile();
    TemporaryFile(TemporaryFile&& other) noexcept;
    TemporaryFile& operator=(TemporaryFile&&) = delete;

    // Its name in the folder; the empty text once it is no temporary file any more.
    const std::string& name() const { return name_; }
    // Open for reading and writing.
    int descriptor() const { return file_.number(); }

    // Waits until the content is on the medium. Fails with errno's number and text.
    void flush() const;
    // Closes the file and gives it another name in the folder, replacing the file of that name in one step. Fails
    // with errno's number and text, then nothing has been replaced: where a network file system reports a failure
    // although the file bears the name now, that is a success.
    void replace(const std::string& otherName);
    // Leaves the file where it is. The result is its name.
    std::string keep() noexcept { return std::exchange(name_, std::string()); }

private:
    int folder_;
    std::string name_;
    Descriptor file_;
};

} // namespace corvane
