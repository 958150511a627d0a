// The temporary files that a save leaves when its process is killed or the power fails.
//
// Their names alone prove nothing, so a file counts as such only when all of this holds: it has the exact name of a
// temporary file of the library, belongs to the user, has one name, is a regular file, was not changed for ten minutes
// and is open in no program; and all its bytes after an ID3v2 tag at its start are the beginning of what follows the
// tag in an MP3 file of the same folder. So nothing but the tag that was being written is lost with it. Where the
// folder has a file with several names (hard links), no file counts: a save fills such a file in place, and what it
// left behind may be the only whole copy.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace corvane::editor {

inline constexpr std::chrono::seconds kLeftoverAge{600};

// "tmp", sixteen hexadecimal digits in capitals, ".tmp".
bool isLeftoverName(const std::string& name);

// The paths of those in a folder, sorted; none when the folder cannot be read.
std::vector<std::string> leftoversIn(const std::string& folder, std::chrono::seconds age = kLeftoverAge);

// Looks at the file once more and removes it. Returns the reason when it is still there, else "".
std::string removeLeftover(const std::string& path, std::chrono::seconds age = kLeftoverAge);

} // namespace corvane::editor
