#include "apps/cli/Output.h"

#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/WriteAll.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace corvane::cli {

namespace {

constexpr std::size_t kFlushSize = std::size_t{64} * 1024; // bytes

} // namespace

Output::Output(int descriptor) : descriptor_(descriptor), terminal_(::isatty(descriptor) == 1) {}

void Output::write(std::string_view text) {
    buffer_.append(text);
    if (terminal_ || buffer_.size() >= kFlushSize) flush();
}

void Output::flush() {
    try {
        writeAll(descriptor_, buffer_);
    } catch (const RuntimeFailure& failure) {
        buffer_.clear();
        throw OutputFailure(failure.what());
    }
    buffer_.clear();
}

void Output::close() {
    flush();
    // A descriptor that was never open is a failure only for those who write to it.
    if (::close(descriptor_) != 0 && errno != EBADF) throw OutputFailure(std::system_category().message(errno));
}

unsigned Output::columns() const {
    winsize size{};
    return terminal_ && ::ioctl(descriptor_, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

} // namespace corvane::cli
