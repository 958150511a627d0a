// The one exception type of the library: a run-time failure with its number, its source and its text.
#pragma once

#include "corvane/platform/Export.h"

#include <cstdint>
#include <stdexcept>
#include <string>

namespace corvane {

// Numbers of run-time failures that are not system errors. They are those that automation hosts know.
enum class FailureNumber : std::int32_t {
    Overflow = 6,               // a value does not fit its published width
    SubscriptOutOfRange = 9,    // an index lies outside its table
    TypeMismatch = 13,          // a text is not the number that it should be
    InternalError = 51,         // a failure of no other number
    BadRecordNumber = 63,       // a position lies outside the file
    ObjectNotSet = 91,          // an object reference that is not set was used
    DuplicateKey = 457,         // a key is already associated with an element of the collection
    ObjectDefined = -2147221504 // 0x80040000, the base of the numbers that objects define themselves
};

// A failure that ends an operation. Operations of the tag classes catch it and record it; the file routines and the
// XML imports let it reach the caller.
class CORVANE_EXPORT RuntimeFailure : public std::runtime_error {
public:
    // number: an errno value or a FailureNumber. source: label of the operation that failed. description: its message,
    // which is also what().
    RuntimeFailure(std::int32_t number, std::string source, const std::string& description);
    RuntimeFailure(FailureNumber number, std::string source, const std::string& description);
    RuntimeFailure(const RuntimeFailure&) noexcept = default;
    RuntimeFailure& operator=(const RuntimeFailure&) noexcept = default;
    ~RuntimeFailure() override;

    // An errno value or a FailureNumber.
    std::int32_t number() const noexcept { return number_; }
    // Label of the operation that failed.
    const std::string& source() const noexcept { return source_; }
    // The message, for people.
    std::string description() const { return what(); }

private:
    std::int32_t number_;
    std::string source_;
};

// The failure of a change that could not be taken back either, because the medium failed a second time: the file is not
// what it was. The description tells what a person needs to repair it.
class CORVANE_EXPORT DamageFailure : public RuntimeFailure {
public:
    using RuntimeFailure::RuntimeFailure;
    DamageFailure(const DamageFailure&) noexcept = default;
    DamageFailure& operator=(const DamageFailure&) noexcept = default;
    ~DamageFailure() override;
};

// A system error as a run-time failure: errno as number, the system's own text as description.
RuntimeFailure systemFailure(int errorNumber, std::string source);

// The failure of a value that does not fit its published width.
RuntimeFailure overflowFailure(std::string source);

// The failure of a text that is not the number that it should be.
RuntimeFailure typeMismatchFailure(std::string source);

} // namespace corvane
