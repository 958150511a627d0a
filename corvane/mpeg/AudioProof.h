// Finds MPEG audio by the published standards: ISO/IEC 11172-3 (MPEG 1), ISO/IEC 13818-3 (MPEG 2) and the MPEG 2.5
// extension, every layer and every bit rate, free format included.
//
// This is not the search of MPEGHeader (FrameSearch.h), which refuses some valid headers because hosts keep the
// positions that it finds. Here one header proves nothing. A frame with which the bytes begin counts when another frame
// of the same kind begins where it ends, or when it ends the audio. A frame after something else counts when ten frames
// follow one another, or three or more up to the end of the audio or of the file. So does one of free format, and only
// where the bytes begin.
#pragma once

#include "corvane/mpeg/HeaderWord.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace corvane {

class FileReader;

// Positions at which a frame may begin. More junk than this does not precede the audio of any known writer.
inline constexpr std::size_t kSearchedPositions = std::size_t{128} * 1024;

// Whether the word is the header of a frame by the standards. Reserved and forbidden values are not.
bool isStandardFrameHeader(HeaderWord header);

// Whether two headers can belong to one stream: same version, layer and sampling rate, and either both or neither of
// free format.
bool isSameKind(HeaderWord one, HeaderWord other);

// Bytes of a frame, its header included; 0 for free format, whose size no header states.
std::uint32_t standardFrameSize(HeaderWord header);

// The offset of the first proven frame that begins in the first kSearchedPositions of `bytes`. A frame may end the
// audio where `bytes` end, so they must reach to the end of the file or 32 KiB past those positions.
std::optional<std::size_t> findProvenFrame(Bytes bytes);

// The same in a file from `offset` on; nothing where the file has no such frame. Zeros at `offset` are skipped before
// the search begins, up to 1 MiB of them. Fails with a RuntimeFailure when the file cannot be read.
std::optional<std::uint64_t> findProvenFrame(FileReader& file, std::uint64_t offset);

} // namespace corvane
