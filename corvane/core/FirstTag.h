// Whether a file may be given a tag of a kind that it lacks.
//
// A tag belongs to MPEG audio. In front of a picture or after the last byte of another format it makes a file that its
// own programs may refuse, so what people use (the command, the editor) asks here before it adds one. A tag that is in
// the file already may be changed and removed whatever else the file holds. The automation objects do not ask: their
// hosts decide themselves.
#pragma once

#include <string>

namespace corvane {

class FileReader;

// Why the file should get no first tag, as a sentence without its full stop: "This is a JPEG image, not an MPEG audio
// file". "" when nothing speaks against it: the file does not begin with the signature of another format, at its start
// or after its leading tags, and a frame of MPEG audio is proven (AudioProof.h). Fails with a RuntimeFailure when the
// file cannot be read.
std::string obstacleToFirstTag(FileReader& file);
std::string obstacleToFirstTag(const std::string& path);

} // namespace corvane
