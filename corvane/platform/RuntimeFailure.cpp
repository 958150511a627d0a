#include "corvane/platform/RuntimeFailure.h"

#include <system_error>
#include <utility>

namespace corvane {

RuntimeFailure::RuntimeFailure(std::int32_t number, std::string source, const std::string& description)
    : std::runtime_error(description), number_(number), source_(std::move(source)) {}

RuntimeFailure::RuntimeFailure(FailureNumber number, std::string source, const std::string& description)
    : RuntimeFailure(static_cast<std::int32_t>(number), std::move(source), description) {}

RuntimeFailure::~RuntimeFailure() = default;

DamageFailure::~DamageFailure() = default;

RuntimeFailure systemFailure(int errorNumber, std::string source) {
    return {errorNumber, std::move(source), std::generic_category().message(errorNumber)};
}

RuntimeFailure overflowFailure(std::string source) { return {FailureNumber::Overflow, std::move(source), "Overflow"}; }

RuntimeFailure typeMismatchFailure(std::string source) {
    return {FailureNumber::TypeMismatch, std::move(source), "Type mismatch"};
}

} // namespace corvane
