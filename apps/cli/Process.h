// What the process settles with the system before it does anything.
#pragma once

namespace corvane::cli {

// Opens /dev/null for each standard stream that the caller has closed: else the next file opened, which may be a user's
// music, would take its number and receive what is meant for the stream. Nothing can be written to such an output. A
// file size limit becomes a failure to write instead of the end of the process.
void prepareProcess();

} // namespace corvane::cli
