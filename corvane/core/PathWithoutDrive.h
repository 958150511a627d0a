// The folder of a file as the interface shows it.
#pragma once

#include <string>

namespace corvane {

// The folder of the absolute form of a name, without the name of the drive and the first separator, with the last one:
// "music/rock/" for "/music/rock/a.mp3", "" for "/a.mp3". Fails when the current folder is needed and cannot be told.
std::string pathWithoutDrive(const std::string& fileName);

} // namespace corvane
