// The error record that every fallible object owns, and the one wall behind which failures become records.
#pragma once

#include "corvane/platform/Export.h"
#include "corvane/platform/RuntimeFailure.h"

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace corvane {

class CORVANE_EXPORT cError {
public:
    static constexpr std::int32_t kNone = 0;    // Severity: nothing happened
    static constexpr std::int32_t kWarning = 1; // Severity: a check of the library failed
    static constexpr std::int32_t kError = 2;   // Severity: an unexpected run-time failure was caught

    std::string Source;        // label of the operation that failed
    std::string Description;   // message; may hold several lines joined by CR LF
    std::int32_t Number = 0;   // 0 for checks of the library, the failure's number for run-time failures
    std::int32_t Severity = 0; // kNone, kWarning or kError

    // Empties all four fields.
    void Clear();
    // Fills the record from a failure with severity 2; the number is 51 where the failure has none, since 0 is that of
    // checks. Returns false, and changes nothing, when there is none.
    bool CopyError(const std::exception* oErr);
    // Shows the record in a message box with an OK button. The caption is the host's file description and the title,
    // or the host's title when none is given.
    void Show(std::string_view Title = {}) const;
    // The record as one line: number, source and description.
    std::string Stream() const;
    // Wraps another record under the current operation. Returns false, and changes nothing, when there is none.
    bool CopyHistory(const cError* oErr, std::string_view CurrentSource = {}, std::string_view CurrentDescription = {});
    // Pushes the current source in front of the description and takes PROC as the new source.
    void CopyHistoryEx(std::string_view PROC, std::string_view Delimiter = {});

    // Records a failed check of the library: number 0 and severity 1 unless told otherwise.
    void record(std::string_view source, std::string_view description, std::int32_t severity = kWarning);
    // Inside a handler of an exception that is no std::exception: records it with number 51 and severity 2. The end of
    // a thread passes on.
    void recordUnknownException();
};

// Runs `body`. No exception passes: what it throws is recorded, and `failure` is the result. Only the end of a thread
// (pthread_exit, pthread_cancel) passes, which nobody may stop.
template <class Result, class Body>
Result recordFailures(cError& error, Result failure, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (const std::exception& unexpected) {
        error.Clear();
        error.CopyError(&unexpected);
    } catch (...) {
        error.recordUnknownException();
    }
    return failure;
}

} // namespace corvane
