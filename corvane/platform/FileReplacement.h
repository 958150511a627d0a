// Gives a file new content, safely: this is how the library changes a user's file whenever it is more than a few bytes
// in place.
//
//   FileReplacement replacement(path);
//   replacement.append(newTag);
//   replacement.copy(oldTagSize, replacement.originalSize() - oldTagSize);
//   replacement.commit();
//
// Until commit has returned, the file is byte-identical to what it was, and if anything fails, at any point, it stays
// so: the failure is raised as RuntimeFailure with errno's number and text, and no temporary file stays behind. The new
// content is written to a temporary file in the same folder, flushed to the medium, and takes the name in one step, so
// that there is never a moment without the file. When the process or the power dies, the name bears either the old or
// the new content, whole.
//
// Symbolic links are followed: the file that they lead to is replaced. Its permission bits, owner, access control list
// and extended attributes are taken over (FileAttributes.h); its times are those of a newly written file. A file with
// several hard links is filled through its own inode instead, so that all names show the new content (OwnInode.h).
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Descriptor.h"
#include "corvane/platform/FileIdentity.h"
#include "corvane/platform/TemporaryFile.h"

#include <sys/stat.h>

#include <cstdint>
#include <optional>
#include <string>

namespace corvane {

class FileReplacement {
public:
    // Opens the file, which must be a regular file that this process may write; nothing is written yet. The temporary
    // file will have the extension that is given.
    explicit FileReplacement(const std::string& path, std::string temporaryExtension = "tmp");
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    // Length of the old content in bytes.
    std::uint64_t originalSize() const { return identity_.size; }
    // The file's state when it was opened.
    const FileIdentity& openedIdentity() const { return identity_; }
    // The folder of the file behind all links, with its trailing separator.
    const std::string& folder() const { return folderName_; }
    // The temporary file's path, as soon as there is one; it stays known after a failure.
    const std::string& temporaryName() const { return temporaryName_; }

    // Fails when the file is not the one, or not in the state, in which it was when `known` was taken. For callers who
    // have read it before and compose the new content from what they know.
    void requireUnchanged(const FileIdentity& known) const;
    // Fails when the folder takes no new file in the place of the old one; nothing is written to find that out. The
    // other operations fail there too, but only on the way.
    void requireReplaceable() const;
    // The new content keeps the old modification time.
    void keepModificationTime() { keepsModificationTime_ = true; }

    // Creates the temporary file. The other operations do it too; on its own it tells failures of this step apart.
    void begin();
    // Appends the range [offset, offset + count) of the old content, which must lie within it.
    void copy(std::uint64_t offset, std::uint64_t count);
    // Appends bytes.
    void append(Bytes bytes);
    // Puts the new content in the old one's place. To be called once, at the end. Also fails when the file was changed
    // by somebody else since it was opened.
    //
    // Returns when the name bears the new content. The step itself may still have to reach the medium where the folder
    // cannot be flushed; a power cut would then bring the old content back, whole. That is no failure of the call: the
    // file is the new one.
    void commit();
    // The state in which commit has left the file; the empty one when the system does not tell it.
    const FileIdentity& committed() const { return committed_; }

private:
    void requireSameState() const;
    bool isHeldBySticky() const;
    void prepare();
    void putInPlace();
    void fillInPlace();

    std::string folderName_;
    std::string fileName_; // in the folder
    std::string temporaryExtension_;
    std::string temporaryName_;
    Descriptor folder_;
    Descriptor original_;
    struct stat status_ {};
    FileIdentity identity_;
    FileIdentity committed_;
    std::optional<TemporaryFile> temporary_; // after the folder's descriptor, which it needs to the end
    std::uint64_t size_ = 0;                 // of the new content so far, in bytes
    std::uint64_t keptPrefix_ = 0;           // bytes at the start that are those of the old content
    bool keepsModificationTime_ = false;
};

} // namespace corvane
