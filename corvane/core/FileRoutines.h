// What changes a file's length as a whole: temporary files beside the target, copies with or without their last bytes,
// and cutting a file in place.
//
// These operations raise their failures: number 0x80040000 with the sources and texts named below where the library
// itself finds out, errno's number and text where the system does. The calling class records them. Times and attributes
// of a copied file are those of a newly written one.
#pragma once

#include "corvane/platform/FileIdentity.h"

#include <cstdint>
#include <string>

namespace corvane {

class FileRoutines {
public:
    // Creates two empty files in a folder: one with the prefix "tmp" and the extension "tmp", and its twin of the same
    // name with `Extension`, whose path is the result. Both are created exclusively and for their owner only. The
    // first one stays; DeleteTempFile removes it.
    //
    // Without an extension the twin's name ends in a dot. Fails with source "FileRoutines::CreateTempFileName()" when
    // the files cannot be made.
    static std::string CreateTempFile(const std::string& OutputDirectory, const std::string& Extension = {});

    // Deletes the file that has the name with the extension "tmp", read-only ones only with Force. Never fails.
    //
    // Odd, and hosts rely on it: a file with another extension stays where it is. Callers delete it themselves or give
    // it another name.
    static void DeleteTempFile(const std::string& TempFileName, bool Force = false);

    // Always "": failures are raised.
    static std::string LastError() { return {}; }

    // The name without the characters of its extension, followed by the new one. The dot stays, so "a.mp3" with "tmp"
    // is "a.tmp". Odd, and hosts rely on it: a name without an extension gets the new one without a dot, "a" with
    // "tmp" is "atmp". A name that ends in a separator has an empty last component and so no extension: the folder that
    // it names keeps its own name.
    static std::string ChangeExtension(const std::string& FileName, const std::string& NewExtension);

    // Copies a file without its last numBytesToCutFromTheEnd bytes (0 or less: the whole file).
    //
    // A destination that exists is replaced with OverwriteFiles, in one step after the copy has succeeded; else
    // appended to with AppendData; else it is the failure "Destination file already exists.", source "FileCopy". A
    // source that does not exist is the failure "Source file does not exist.", source "File check".
    //
    // After any failure the destination is what it was before, or there is none.
    static void FileCopy(const std::string& FileSource, const std::string& FileDestination, bool OverwriteFiles = false,
                         std::int32_t numBytesToCutFromTheEnd = 0, bool AppendData = false);

    // Removes the last NumBytesToCut bytes of a file (0 or less: none) by a safe replacement (FileReplacement.h):
    // afterwards its name holds the shortened content, or what it held before. No temporary file stays.
    //
    // A folder in which no temporary file can be made is the failure of CreateTempFile. A failed copy has the source
    // "FileCopy" and the description "temporary file's name - what went wrong", the file being gone again; more bytes
    // to cut than the file has are such a failure. So is a file that is not in the state `known` any more, where a
    // caller has looked at what it cuts off.
    static void CutFileBytes(const std::string& File, std::int32_t NumBytesToCut, const FileIdentity* known = nullptr);
};

} // namespace corvane
