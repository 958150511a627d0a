#include "corvane/platform/MessageBox.h"

#include <cerrno>
#include <cstdio>
#include <mutex>
#include <optional>
#include <utility>

namespace corvane {

namespace {

// What the host has set. A host sets it once at start; the lock makes a later change safe for other threads too.
struct HostSettings {
    std::mutex guard;
    MessageBoxHook hook;
    std::optional<HostTexts> texts;
};

HostSettings& settings() {
    static HostSettings all;
    return all;
}

void writeToStandardError(const MessageBoxRequest& request) {
    std::string lines = request.caption + '\n';
    for (const char character : request.text + "\r\n") {
        if (character != '\r') lines.push_back(character);
    }
    std::fwrite(lines.data(), 1, lines.size(), stderr);
}

} // namespace

void setMessageBoxHook(MessageBoxHook hook) {
    const std::lock_guard lock(settings().guard);
    settings().hook = std::move(hook);
}

void setHostTexts(HostTexts texts) {
    const std::lock_guard lock(settings().guard);
    settings().texts = std::move(texts);
}

HostTexts hostTexts() {
    const std::lock_guard lock(settings().guard);
    return settings().texts.value_or(HostTexts{program_invocation_short_name, program_invocation_short_name});
}

void showMessageBox(const MessageBoxRequest& request) {
    MessageBoxHook hook;
    {
        // The hook runs without the lock: it may well set another hook.
        const std::lock_guard lock(settings().guard);
        hook = settings().hook;
    }
    if (hook) {
        hook(request);
    } else {
        writeToStandardError(request);
    }
}

} // namespace corvane
