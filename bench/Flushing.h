// Whether this process waits for the medium, and when it begins to: half of the figures of saving are those of the
// medium, not of the library.
#pragma once

namespace corvane::bench {

// False: fsync and fdatasync of this process do nothing.
void flushes(bool really);

// Seconds on a clock that only goes forward.
double secondsNow();
// When fsync or fdatasync was first called since forgetFlush; 0 when it was not.
double secondsOfFirstFlush();
void forgetFlush();

} // namespace corvane::bench
