// How the library fills an MPEGHeader.
#pragma once

#include "corvane/mpeg/MPEGHeader.h"

#include <pugixml.hpp>

#include <memory>
#include <string>

namespace corvane {

template <>
struct Internals<MPEGHeader> {
    // Finds the first frame of an open file from a 1-based position and takes its values. False when there is none
    // (the values of an earlier load stay, but the file size is the new one), and false with a record when the file
    // cannot be read, is larger than 2,147,483,647 bytes, or has a value that does not fit (what was taken before the
    // failure stays).
    static bool LoadHeaderEx(MPEGHeader& header, FileReader& file, std::int32_t StartPosition) {
        return header.LoadHeaderEx(file, StartPosition);
    }
    // Never loads anything: false with the record number 0x80040000 for every existing file, false without a record
    // for a missing one.
    static bool LoadHeader(MPEGHeader& header, const std::string& FileName, std::int32_t StartPosition) {
        return header.LoadHeader(FileName, StartPosition);
    }
    static std::shared_ptr<cError> ErrorRecord(const MPEGHeader& header) { return header.error_; }
    // Computes bit rate, duration and frame size, in this order; fails where one does not fit.
    static void CalculateValues(MPEGHeader& header) { header.CalculateValues(); }
    // 1-based position of the frame in the file; 0 before the first load.
    static std::int32_t headerPosition(const MPEGHeader& header) { return header.headerPosition_; }
    static void appendXml(const MPEGHeader& header, pugi::xml_node parent) { header.appendXml(parent); }
};

} // namespace corvane
