#include "corvane/core/FileDocument.h"

#include "corvane/core/FileHandler.h"
#include "corvane/core/FileHandlerInternals.h"
#include "corvane/core/PathWithoutDrive.h"
#include "corvane/id3v1/ID3V1Tag.h"
#include "corvane/id3v1/ID3V1TagInternals.h"
#include "corvane/id3v2/ID3V2Tag.h"
#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/lyrics/LyricsTagInternals.h"
#include "corvane/mpeg/MPEGHeader.h"
#include "corvane/mpeg/MPEGHeaderInternals.h"
#include "corvane/platform/Drive.h"
#include "corvane/platform/File.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlLayout.h"

#include <exception>

namespace corvane {

namespace {

void appendDrive(pugi::xml_node parent, const Drive& drive) {
    const auto properties = appendElementWithProperties(parent, "Drive");
    appendProperty(properties, "DriveType", std::to_string(drive.DriveType()));
    appendProperty(properties, "VolumeName", drive.VolumeName());
    appendProperty(properties, "AvailableSpace", std::to_string(drive.AvailableSpace()));
    appendProperty(properties, "DriveLetter", drive.DriveLetter());
    appendProperty(properties, "FileSystem", drive.FileSystem());
    appendProperty(properties, "FreeSpace", std::to_string(drive.FreeSpace()));
    appendProperty(properties, "Path", drive.Path());
    appendProperty(properties, "RootFolder", drive.RootFolder());
    appendProperty(properties, "SerialNumber", drive.SerialNumber());
    appendProperty(properties, "ShareName", drive.ShareName());
    appendProperty(properties, "TotalSize", std::to_string(drive.TotalSize()));
}

void appendFileProperties(pugi::xml_node properties, const FileHandler& handler, const File& file) {
    const std::string folder = pathWithoutDrive(Internals<FileHandler>::path(handler));
    appendProperty(properties, "DateCreated", file.DateCreated());
    appendProperty(properties, "DateLastAccessed",
                   dateOr([&] { return file.DateLastAccessed(); }, file.DateLastModified()));
    appendProperty(properties, "DateLastModified", file.DateLastModified());
    appendProperty(properties, "Name", file.Name());
    appendProperty(properties, "Size", std::to_string(file.Size()));
    appendProperty(properties, "TypeName", file.TypeName());
    appendProperty(properties, "DriveLetter", driveNameOf(handler.FileName()));
    appendProperty(properties, "Path", folder);
    appendProperty(properties, "FullPath", folder + file.Name());
    appendProperty(properties, "Type", handler.FileTypeName(), std::to_string(handler.FileType()));
}

} // namespace

std::string dateOr(const std::function<std::string()>& read, const std::string& fallback) {
    try {
        const std::string date = read();
        return date.empty() ? fallback : date;
    } catch (const std::exception&) {
        return fallback;
    }
}

std::string renderFileDocument(FileHandler& handler, const std::function<void()>& loadLyricsTag) {
    const auto id3v1Tag = handler.ID3v1xTag();
    if (!id3v1Tag) throw RuntimeFailure(FailureNumber::ObjectNotSet, "FileHandler", "Object variable not set");
    const auto document = newDocument("FileHandler");
    auto root = document->append_child("ImportData");
    appendDrive(root, *Drive::ofFile(Internals<FileHandler>::path(handler)));
    auto element = root.append_child("Files").append_child("File");
    appendFileProperties(element.append_child("Properties"), handler,
                         *File::ofPath(Internals<FileHandler>::path(handler)));
    Internals<MPEGHeader>::appendXml(*handler.MPEGHeader(), element);
    Internals<ID3V1Tag>::appendXml(*id3v1Tag, element);
    Internals<ID3V2Tag>::appendXml(*handler.ID3V2Tag(), element);
    loadLyricsTag();
    Internals<LyricsTag>::appendXml(*handler.LyricsTag(), element);
    return documentText(*document);
}

} // namespace corvane
