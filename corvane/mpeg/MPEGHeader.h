// The technical data of an MP3 file: the fields of its first MPEG audio frame and what follows from them.
//
// FileHandler makes one and fills it while it opens a file; all that hosts see is read-only. An object that was never
// filled answers as the all-zero header does: "MPEG 2.5", layer "Reserved", "Stereo", 32000 Hz, CRC, the rest 0, false
// or "". A Xing header is remembered for good: an object filled from a second file keeps VBR and the frame count of the
// first when the second has none.
//
// Fields of the frame: ISO/IEC 11172-3 section 2.4.1.3. Objects share no state; one object belongs to one thread at a
// time.
#pragma once

#include "corvane/core/cError.h"
#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"
#include "corvane/xml/XmlNode.h"

#include <cstdint>
#include <memory>
#include <string>

namespace pugi {
class xml_node;
} // namespace pugi

namespace corvane {

class FileReader;

class CORVANE_EXPORT MPEGHeader {
public:
    // A header that was never filled, see above.
    MPEGHeader() = default;
    MPEGHeader(const MPEGHeader&) = delete;
    MPEGHeader& operator=(const MPEGHeader&) = delete;

    // "MPEG 1.0", "MPEG 2.0", "MPEG 2.5" or "Reserved".
    std::string Version() const;
    // 3 MPEG 1, 2 MPEG 2, 1 reserved, 0 MPEG 2.5.
    std::int32_t VersionID() const;
    // "1", "2", "3" or "Reserved".
    std::string Layer() const;
    // 3 Layer I, 2 Layer II, 1 Layer III, 0 reserved.
    std::int32_t LayerID() const;
    // "Stereo", "Joint Stereo", "Dual Channel" or "Single Channel".
    std::string Mode() const;
    // 0 to 3, in the order of the names of Mode.
    std::int32_t ModeID() const;
    // kbit/s, rounded down; an average with VBR, and -1 when a VBR file does not tell its frame count. Fails with a
    // RuntimeFailure when it does not fit.
    std::int32_t BitRate() const;
    // Hz. With MPEG 2.5 32000, 16000 or 8000, which are not the frequencies that the stream is played at. Fails with a
    // RuntimeFailure when the header's index has no frequency.
    std::int32_t Frequency() const;
    // Whole seconds; -1 when the bit rate is not known.
    std::int32_t Duration() const { return durationSeconds_; }
    // Whether a CRC follows the frame's header.
    bool CRC() const { return !ProtectionBit(); }
    // The bit of that name in the header.
    bool Copyright() const;
    bool Original() const;
    // Whether a Xing header was found.
    bool VBR() const { return vbr_; }
    // Bytes from the frame to the end of the file, with all tags at the end, less 2; or what the Xing header says.
    std::int32_t AudioSize() const { return audioSize_; }
    // Bytes; an average with VBR.
    std::int32_t FrameSize() const { return frameSize_; }
    // "None", "Unknown" (1) or "CCITT j.17" (3).
    std::string Emphasis() const;
    // 0 to 3.
    std::int16_t EmphasisID() const;
    // Bytes; 0 for a file of 2 GB (2^31 bytes) or more, whose header is not looked for.
    std::int32_t FileSize() const { return fileSize_; }
    // The bit of that name in the header.
    bool PaddingBit() const;
    bool PrivateBit() const;
    // The raw bit: the opposite of CRC.
    bool ProtectionBit() const;
    // The Xing header's frame count when it is above 0, else AudioSize / FrameSize. Never fails: 0 when the frame size
    // is 0.
    std::int32_t NumFrames() const;

    // The object as an XML document, UTF-8, with the root element "MPEGHeader". BaseNode is set to that element. Fails
    // where the properties fail.
    std::string xml(XmlNode* BaseNode = nullptr) const;

private:
    friend struct Internals<MPEGHeader>;

    bool LoadHeaderEx(FileReader& file, std::int32_t StartPosition);
    bool LoadHeader(const std::string& FileName, std::int32_t StartPosition);
    bool loadFrom(FileReader& file, std::int32_t startPosition);
    void takeXingHeader(FileReader& file, std::uint64_t frameOffset);
    void CalculateValues();
    void appendXml(pugi::xml_node parent) const;

    std::shared_ptr<cError> error_ = std::make_shared<cError>();
    double bitRateKbps_ = 0; // -1 when it cannot be known
    std::uint32_t headerWord_ = 0;
    std::int32_t headerPosition_ = 0; // file position of the header's first byte
    std::int32_t fileSize_ = 0;       // bytes
    std::int32_t audioSize_ = 0;      // bytes
    std::int32_t xingFrameCount_ = 0;
    std::int32_t durationSeconds_ = 0; // -1 when it cannot be known
    std::int16_t frameSize_ = 0;       // bytes
    bool vbr_ = false;
};

} // namespace corvane
