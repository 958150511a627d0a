// A file that a run makes beside its standard output.
#pragma once

#include <string>
#include <string_view>

namespace corvane::cli {

// Puts `content` in the place of the file `path`, in one step when it is complete: a failure leaves what was there. A
// device or a pipe is written to directly. Refuses to replace the file `source`, from which the content was made. Fails
// with a RuntimeFailure.
void writeOutputFile(const std::string& path, std::string_view content, const std::string& source);

} // namespace corvane::cli
