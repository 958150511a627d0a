#include "apps/cli/FileSection.h"

#include "corvane/platform/Drive.h"
#include "corvane/platform/File.h"

#include "apps/cli/Quantity.h"

#include <fmt/core.h>

namespace corvane::cli {

namespace {

// "dd/mm/yyyy hh:mm:ss" with the year in front, which everybody reads the same way.
std::string dateText(const std::string& date) {
    if (date.size() < 10) return date;
    return fmt::format("{}-{}-{}{}", date.substr(6, 4), date.substr(3, 2), date.substr(0, 2), date.substr(10));
}

std::string driveText(const Drive& drive) {
    std::string text;
    if (!drive.FileSystem().empty()) text = fmt::format("{} on {}, ", drive.FileSystem(), drive.Path());
    if (!drive.VolumeName().empty()) text += fmt::format("\"{}\", ", drive.VolumeName());
    if (!drive.ShareName().empty()) text += fmt::format("{}, ", drive.ShareName());
    return text +
           fmt::format("{} of {} free", roundedByteText(drive.AvailableSpace()), roundedByteText(drive.TotalSize()));
}

void addDate(std::vector<Row>& rows, const char* label, const std::string& date) {
    if (!date.empty()) rows.push_back({"", label, dateText(date)});
}

} // namespace

Section fileSection(const FileHandler& handler) {
    Section section{"File", {}};
    if (const auto file = handler.File()) {
        section.rows.push_back({"", "Path", file->Path()});
        section.rows.push_back({"", "Type", fmt::format("{} ({})", handler.FileTypeName(), file->TypeName())});
        section.rows.push_back({"", "Size", byteText(file->Size())});
        addDate(section.rows, "Created", file->DateCreated());
        addDate(section.rows, "Modified", file->DateLastModified());
        addDate(section.rows, "Accessed", file->DateLastAccessed());
    }
    if (const auto drive = handler.Drive()) section.rows.push_back({"", "Drive", driveText(*drive)});
    return section;
}

} // namespace corvane::cli
