#include "apps/cli/WriteAll.h"

#include "corvane/platform/RuntimeFailure.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace corvane::cli {

namespace {

// A terminal or pipe that was made non-blocking by somebody else is waited for.
bool waitUntilWritable(int descriptor) {
    pollfd waiting{descriptor, POLLOUT, 0};
    return ::poll(&waiting, 1, -1) >= 0 || errno == EINTR;
}

} // namespace

void writeAll(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const auto written = ::write(descriptor, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR && !(errno == EAGAIN && waitUntilWritable(descriptor))) {
            throw systemFailure(errno, "write");
        }
    }
}

} // namespace corvane::cli
