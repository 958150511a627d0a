#include "apps/cli/Progress.h"

#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/WriteAll.h"

#include <fmt/core.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace corvane::cli {

namespace {

constexpr std::chrono::milliseconds kBetweenDrawings{100};
constexpr std::size_t kUsualColumns = 80;
constexpr std::size_t kLongestBar = 50;             // columns
constexpr std::string_view kEraseLine = "\r\x1b[K"; // ECMA-48 erase in line

std::size_t columnsOf(int descriptor) {
    winsize size{};
    return ::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : kUsualColumns;
}

// A bar that cannot be drawn is no reason to stop.
void tryWrite(int descriptor, std::string_view text) {
    try {
        writeAll(descriptor, text);
    } catch (const RuntimeFailure&) {
    }
}

} // namespace

Progress::Progress(int descriptor, bool isShown, std::size_t total)
    : descriptor_(descriptor), shown_(isShown), total_(total) {}

Progress::~Progress() { hide(); }

void Progress::advance(std::size_t fileCount) {
    done_ += fileCount;
    if (!shown_) return;
    const auto now = std::chrono::steady_clock::now();
    if (drawn_ && now < nextDrawing_) return;
    nextDrawing_ = now + kBetweenDrawings;
    draw();
}

void Progress::hide() {
    if (drawn_) tryWrite(descriptor_, kEraseLine);
    drawn_ = false;
}

void Progress::draw() {
    // Files may come and go between counting and scanning.
    const std::size_t total = std::max(total_, done_);
    const std::string count = fmt::format(" {}/{} {:3}%", done_, total, total == 0 ? 100 : done_ * 100 / total);
    const std::size_t columns = columnsOf(descriptor_);
    const std::size_t room = columns > count.size() + 3 ? columns - count.size() - 3 : 0; // brackets, last column
    const std::size_t length = std::min(room, kLongestBar);
    const std::size_t filled = total == 0 ? length : done_ * length / total;
    const std::string bar = std::string(filled, '#') + std::string(length - filled, '-');
    tryWrite(descriptor_, fmt::format("{}[{}]{}", kEraseLine, bar, count));
    drawn_ = true;
}

} // namespace corvane::cli
