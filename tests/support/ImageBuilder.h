// Small but complete grey images of any size, as any program can decode them.
#pragma once

#include "corvane/platform/Bytes.h"

namespace corvane::test {

// A baseline JPEG (SOF0, one component) whose blocks are all equal.
ByteArray jpegImage(unsigned width, unsigned height);
// A PNG of 8-bit grey.
ByteArray pngImage(unsigned width, unsigned height);
// A GIF89a with a colour table of two greys.
ByteArray gifImage(unsigned width, unsigned height);
// A BMP of 24 bits a pixel with a header of 40 bytes; its rows go from top to bottom when told so.
ByteArray bmpImage(unsigned width, unsigned height, bool topDown = false);

} // namespace corvane::test
