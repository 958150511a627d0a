// The entry of a file in the file system.
#pragma once

#include "corvane/platform/Export.h"

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

class CORVANE_EXPORT File {
public:
    // The entry of a file, with the state at the time of the call; links are followed. Fails with errno's number and
    // text when there is no such file; a folder, a device, a pipe or a socket is none.
    static std::shared_ptr<File> ofPath(const std::string& path);

    // Dates by the local time, as "dd/mm/yyyy hh:mm:ss"; "" where the file system does not keep them.
    const std::string& DateCreated() const { return dateCreated_; }
    const std::string& DateLastAccessed() const { return dateLastAccessed_; }
    const std::string& DateLastModified() const { return dateLastModified_; }
    // Without the folder, "a.mp3".
    const std::string& Name() const { return name_; }
    // As seen from the root.
    const std::string& Path() const { return path_; }
    // Bytes.
    std::uint64_t Size() const { return size_; }
    // What kind of file the name says it is, "MPEG audio"; "XYZ File" for an unknown extension, "File" without one.
    const std::string& TypeName() const { return typeName_; }

private:
    File() = default;

    std::string dateCreated_;
    std::string dateLastAccessed_;
    std::string dateLastModified_;
    std::string name_;
    std::string path_;
    std::string typeName_;
    std::uint64_t size_ = 0;
};

} // namespace corvane
