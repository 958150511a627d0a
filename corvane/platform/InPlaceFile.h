// A regular file opened for a small change in place: a few bytes over old ones, or behind the last one. A change that
// fails is taken back, so that the file is then what it was.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/FileIdentity.h"

#include <cstdint>
#include <string>

namespace corvane {

class InPlaceFile {
public:
    // Opens the file for reading and writing. Fails with errno's number and text when that is not possible or the name
    // is that of a folder, a device, a pipe or a socket or has a NUL byte. Links are followed.
    explicit InPlaceFile(const std::string& path);
    ~InPlaceFile();
    InPlaceFile(const InPlaceFile&) = delete;
    InPlaceFile& operator=(const InPlaceFile&) = delete;

    // Length in bytes when it was opened.
    std::uint64_t size() const { return opened_.size; }
    // The file's state when it was opened.
    const FileIdentity& openedIdentity() const { return opened_; }
    // The file's state now; the empty one when the system does not tell it.
    FileIdentity identity() const;
    // The bytes [offset, offset + count), fewer when the file ends before.
    ByteArray read(std::uint64_t offset, std::size_t count) const;

    // Writes the bytes at `offset`, which is at most size(), with one system call, and waits until they are on the
    // medium. Fails with errno's number and text; the file is then as before. Where even taking the change back fails,
    // the description says so.
    void write(std::uint64_t offset, Bytes bytes);
    // The same over bytes that the caller has just read: `old` are those that stand there, as many as are written.
    void overwrite(std::uint64_t offset, Bytes bytes, Bytes old);

private:
    struct Written {
        std::size_t count = 0; // bytes that stand in the file now
        int problem = 0;       // 0, or the errno value of what went wrong
    };
    Written put(std::uint64_t offset, Bytes bytes) const;
    int takeBack(std::uint64_t offset, Bytes old, bool hasGrown) const;

    int descriptor_;
    FileIdentity opened_;
};

} // namespace corvane
