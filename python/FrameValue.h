// The value of a frame as Python has it: None, int, str or Picture.
#pragma once

#include "corvane/id3v230/FrameVariant.h"

#include "python/Values.h"

namespace corvane::python {

py::object objectOf(const FrameVariant& value);
// A whole number is taken as 16 bits wide when it fits, as a year is, else as 32; fails with an overflow beyond. Fails
// with TypeError for an object of another type.
FrameVariant frameValueOf(const py::object& object);

} // namespace corvane::python
