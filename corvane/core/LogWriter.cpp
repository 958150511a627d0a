#include "corvane/core/LogWriter.h"

#include "corvane/platform/Descriptor.h"
#include "corvane/platform/FileSizeLimitGuard.h"
#include "corvane/platform/LocalTime.h"
#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace corvane {

namespace {

constexpr const char* kSource = "write log";
constexpr const char* kLogLineEnd = "\r\n";

void writeAll(int file, std::string_view line) {
    while (!line.empty()) {
        const auto written = ::write(file, line.data(), line.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) throw systemFailure(errno, kSource);
        line.remove_prefix(static_cast<std::size_t>(written));
    }
}

void appendLine(const std::string& path, std::string_view line) {
    constexpr int kFlags = O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const FileSizeLimitGuard guard;
    Descriptor file(::open(systemPath(path), kFlags, 0666));
    if (!file.isOpen()) throw systemFailure(errno, kSource);
    writeAll(file.number(), line);
    if (const int problem = file.close(); problem != 0) throw systemFailure(problem, kSource);
}

} // namespace

bool LogWriter::writeLog(std::string_view Text) {
    try {
        const LocalTime now = currentLocalTime();
        std::string line = shortDateOfUser(now) + " " + timeOfUser(now) + " - ";
        appendLine(fileName_, line.append(Text).append(kLogLineEnd));
        return true;
    } catch (const std::exception& failure) {
        cError& error = *LastError();
        error.Clear();
        error.CopyError(&failure);
        error.Description =
            "Es konnte nicht ins LogFile '" + fileName_ + "' geschrieben werden." + kLogLineEnd + error.Description;
        return false;
    }
}

std::shared_ptr<cError> LogWriter::LastError() {
    if (error_ == nullptr) error_ = std::make_shared<cError>();
    return error_;
}

} // namespace corvane
