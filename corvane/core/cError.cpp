#include "corvane/core/cError.h"

#include "corvane/platform/MessageBox.h"
#include "corvane/platform/RuntimeFailure.h"

#include <cxxabi.h>

#include <cerrno>
#include <new>
#include <system_error>

namespace corvane {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string& operator<<(std::string& text, std::string_view more) { return text.append(more); }

MessageBoxIcon iconOf(std::int32_t severity) {
    switch (severity) {
    case cError::kWarning:
        return MessageBoxIcon::Exclamation;
    case cError::kError:
        return MessageBoxIcon::Stop;
    default:
        return MessageBoxIcon::Information;
    }
}

} // namespace

void cError::Clear() { *this = {}; }

bool cError::CopyError(const std::exception* oErr) {
    if (oErr == nullptr) return false;
    cError copy;
    copy.Severity = kError;
    copy.Description = oErr->what();
    if (const auto* failure = dynamic_cast<const RuntimeFailure*>(oErr)) {
        copy.Number = failure->number();
        copy.Source = failure->source();
    } else if (const auto* system = dynamic_cast<const std::system_error*>(oErr)) {
        copy.Number = system->code().value();
    } else if (dynamic_cast<const std::bad_alloc*>(oErr) != nullptr) {
        copy.Number = ENOMEM;
        copy.Description = std::generic_category().message(ENOMEM);
    }
    if (copy.Number == 0) copy.Number = static_cast<std::int32_t>(FailureNumber::InternalError);
    *this = std::move(copy);
    return true;
}

void cError::Show(std::string_view Title) const {
    MessageBoxRequest request;
    request.icon = iconOf(Severity);
    if (Number != 0) request.text << std::to_string(Number) << kLineEnd;
    request.text << Source << kLineEnd << Description;
    const HostTexts host = hostTexts();
    request.caption = host.title;
    if (!Title.empty()) {
        request.caption = host.fileDescription;
        request.caption << " : " << Title;
    }
    showMessageBox(request);
}

std::string cError::Stream() const {
    std::string line = std::to_string(Number);
    line << ", " << Source << ", " << Description;
    return line;
}

bool cError::CopyHistory(const cError* oErr, std::string_view CurrentSource, std::string_view CurrentDescription) {
    if (oErr == nullptr) return false;
    cError wrapped;
    wrapped.Source = CurrentSource;
    wrapped.Description << CurrentDescription << kLineEnd << oErr->Stream();
    wrapped.Severity = oErr->Severity;
    wrapped.Number = oErr->Number;
    *this = std::move(wrapped);
    return true;
}

void cError::CopyHistoryEx(std::string_view PROC, std::string_view Delimiter) {
    std::string pushed = Source;
    pushed << Delimiter << Description;
    Source = PROC; // first: PROC may be a view of the description
    Description = std::move(pushed);
}

void cError::record(std::string_view source, std::string_view description, std::int32_t severity) {
    Clear();
    Source = source;
    Description = description;
    Severity = severity;
}

void cError::recordUnknownException() {
    // The end of a thread has no type, as every exception of C++ has.
    if (abi::__cxa_current_exception_type() == nullptr) throw;
    const RuntimeFailure unknown(FailureNumber::InternalError, {}, "Unknown failure");
    Clear();
    CopyError(&unknown);
}

} // namespace corvane
