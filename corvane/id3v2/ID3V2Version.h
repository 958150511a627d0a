// The version of an ID3v2 tag, such as 2.3.0.
#pragma once

#include "corvane/platform/Export.h"
#include "corvane/platform/Internals.h"

#include <cstdint>

namespace corvane {

class CORVANE_EXPORT ID3V2Version {
public:
    std::int16_t Major() const { return 2; }            // always 2
    std::int16_t Minor() const { return minor_; }       // the header's major version byte: 2, 3, 4; 0 without tag
    std::int16_t Revision() const { return revision_; } // the header's second version byte

private:
    friend struct Internals<ID3V2Version>;
    void setMinor(std::int16_t minor) { minor_ = minor; }
    void setRevision(std::int16_t revision) { revision_ = revision; }

    std::int16_t minor_ = 0;
    std::int16_t revision_ = 0;
};

template <>
struct Internals<ID3V2Version> {
    static void setMinor(ID3V2Version& version, std::int16_t minor) { version.setMinor(minor); }
    static void setRevision(ID3V2Version& version, std::int16_t revision) { version.setRevision(revision); }
};

} // namespace corvane
