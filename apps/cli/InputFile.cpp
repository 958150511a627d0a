#include "apps/cli/InputFile.h"

#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace corvane::cli {

namespace {

// Whether there is a point in trying again.
bool waitForMore(int descriptor) {
    if (errno == EINTR) return true;
    pollfd waiting{descriptor, POLLIN, 0};
    return errno == EAGAIN && (::poll(&waiting, 1, -1) >= 0 || errno == EINTR);
}

ByteArray readAll(int descriptor) {
    ByteArray content;
    std::array<std::uint8_t, 64 * 1024> block;
    for (;;) {
        const auto got = ::read(descriptor, block.data(), block.size());
        if (got == 0) return content;
        if (got > 0)
            content.insert(content.end(), block.begin(), block.begin() + got);
        else if (!waitForMore(descriptor))
            throw systemFailure(errno, "read");
    }
}

class OpenInput {
public:
    // A pipe that nobody writes to is empty instead of waited for.
    explicit OpenInput(const std::string& path)
        : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)) {
        if (descriptor_ < 0) throw systemFailure(errno, "open");
    }
    ~OpenInput() { ::close(descriptor_); }
    OpenInput(const OpenInput&) = delete;
    OpenInput& operator=(const OpenInput&) = delete;

    int number() const { return descriptor_; }

private:
    int descriptor_;
};

} // namespace

ByteArray readInput(const std::string& path) {
    if (path == "-") return readAll(STDIN_FILENO);
    const OpenInput input(path);
    return readAll(input.number());
}

} // namespace corvane::cli
