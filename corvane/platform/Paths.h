// Names of files and their parts. A path is any bytes but NUL; its separator is '/'.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Everything before the last component, with its separator: "music/" of "music/a.mp3", "" of "a.mp3".
std::string folderOf(std::string_view path);
// The last component: "a.mp3" of "music/a.mp3", "" of "music/".
std::string fileNameOf(std::string_view path);
// What stands behind the last dot of the last component: "mp3" of "music/a.mp3" and of ".mp3", "" of "music.old/a" and
// of "a.".
std::string extensionOf(std::string_view path);
// The name of the drive that a path begins with. Paths begin with none here, so it is always "".
std::string driveNameOf(std::string_view path);

// The path as seen from the root: a relative one stands behind the current folder; components "." and repeated
// separators are left out, ".." and links stay as they are. "" stays "". Fails with errno's number and text when the
// current folder is needed and cannot be told.
std::string absolutePath(std::string_view path);
// The path under which an object knows its file from now on: a relative one as seen from the root, since the process
// may go to another folder; others as they are. Fails as absolutePath does.
std::string lastingPath(const std::string& path);
// The path of the same file with all links and ".." resolved. Fails with errno's number and text when there is no such
// file.
std::string resolvedPath(const std::string& path);

// The path as the system's calls take it; it must outlive the result. A path with a NUL byte fails with EINVAL: cut
// there it would name another file.
const char* systemPath(const std::string& path);

// Whether there is a regular file of that name, links followed.
bool fileExists(const std::string& path);
// Whether there is a folder of that name, links followed; "" is the current folder.
bool folderExists(const std::string& path);

} // namespace corvane
