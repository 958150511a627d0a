#include "apps/cli/Failures.h"

#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/VisibleText.h"
#include "apps/cli/WriteAll.h"

#include <unistd.h>

#include <string>

namespace corvane::cli {

Failures::Failures(int descriptor) : descriptor_(descriptor), terminal_(::isatty(descriptor) == 1) {}

void Failures::file(std::string_view path, std::string_view reason) {
    ++count_;
    line(std::string(path).append(": ").append(reason));
}

void Failures::warning(std::string_view path, std::string_view text) {
    line(std::string(path).append(": warning: ").append(text));
}

void Failures::message(std::string_view text) { line(text); }

void Failures::line(std::string_view text) const {
    std::string line = "corvane: ";
    line.append(terminal_ ? visibleText(text) : withoutControls(text)).push_back('\n');
    try {
        writeAll(descriptor_, line);
    } catch (const RuntimeFailure&) {
        // Nobody is left who could be told; the exit code still tells.
    }
}

} // namespace corvane::cli
