#include "corvane/core/Id3v1Trailer.h"

#include "corvane/core/FileRoutines.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/InPlaceFile.h"
#include "corvane/platform/RuntimeFailure.h"

namespace corvane {

namespace {

// The empty state when the file cannot be opened: what was asked for has been done.
FileIdentity identityNow(const std::string& path) {
    try {
        return FileReader(path).identity();
    } catch (const RuntimeFailure&) {
        return {};
    }
}

bool isRecord(Bytes bytes) { return bytes.size() >= 3 && bytes[0] == 'T' && bytes[1] == 'A' && bytes[2] == 'G'; }

} // namespace

std::optional<Id3v1Fields> readTrailer(FileReader& file) {
    if (file.size() < kId3v1RecordSize) return std::nullopt;
    return decodeRecord(file.view(file.size() - kId3v1RecordSize, kId3v1RecordSize));
}

std::optional<FileIdentity> identityWithRecord(const std::string& path) {
    FileReader file(path);
    if (file.size() <= kId3v1RecordSize) return std::nullopt;
    if (!isRecord(file.view(file.size() - kId3v1RecordSize, kId3v1RecordSize))) return std::nullopt;
    return file.identity();
}

FileChange writeTrailer(const std::string& path, Bytes record) {
    InPlaceFile file(path);
    const FileIdentity before = file.identity();
    std::uint64_t offset = file.size();
    if (offset > kId3v1RecordSize && isRecord(file.read(offset - kId3v1RecordSize, kId3v1RecordSize))) {
        offset -= kId3v1RecordSize;
    }
    file.write(offset, record);
    return {before, file.identity()};
}

FileChange cutTrailer(const std::string& path, const FileIdentity& known) {
    FileRoutines::CutFileBytes(path, static_cast<std::int32_t>(kId3v1RecordSize), &known);
    return {known, identityNow(path)};
}

} // namespace corvane
