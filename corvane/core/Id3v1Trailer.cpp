#include "corvane/core/Id3v1Trailer.h"

#include "corvane/platform/FileReader.h"
#include "corvane/platform/InPlaceFile.h"

namespace corvane {

namespace {

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

void writeTrailer(const std::string& path, Bytes record) {
    InPlaceFile file(path);
    std::uint64_t offset = file.size();
    if (offset > kId3v1RecordSize && isRecord(file.read(offset - kId3v1RecordSize, kId3v1RecordSize))) {
        offset -= kId3v1RecordSize;
    }
    file.write(offset, record);
}

} // namespace corvane
