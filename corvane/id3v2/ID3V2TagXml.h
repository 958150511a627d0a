// The frames of a tag as properties of its XML document.
#pragma once

#include "corvane/id3v2/TagFrames.h"

#include <pugixml.hpp>

namespace corvane {

class ID3V230Frames;

// Appends one property for the first frame of each ID, in file order: under its name what the readers have a predicate
// for ("Title", "Picture" ...), under its ID everything else, as text where the frame has some, else as bytes. Fails
// with a RuntimeFailure when a payload that was left in the file can no longer be read, or inflates beyond the limit of
// the tag.
void appendFrameProperties(pugi::xml_node properties, const TagFrames& frames, unsigned majorVersion);
// The same for every record of a tag that can be changed, in the order of the records; without its bytes where the
// value of a record was taken out.
void appendFrameProperties(pugi::xml_node properties, const ID3V230Frames& records);

} // namespace corvane
