#include "corvane/xml/XmlImport.h"

#include "corvane/platform/RuntimeFailure.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace corvane {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

std::optional<std::string> findPropertyAttribute(const XmlNode& element, std::string_view name,
                                                 const std::string& attribute) {
    constexpr const char* kPath =
        "./Properties[namespace-uri() = '']/Property[namespace-uri() = ''][@Name = '"; // a name alone is in no
                                                                                       // namespace
    return element.selectSingleNode(kPath + std::string(name).append("']")).attribute(attribute);
}

std::string propertyAttribute(const XmlNode& element, std::string_view name, const std::string& attribute,
                              const char* source) {
    auto text = findPropertyAttribute(element, name, attribute);
    if (!text) {
        throw RuntimeFailure(FailureNumber::ObjectNotSet, source,
                             std::string("The document has no \"")
                                 .append(attribute)
                                 .append("\" of the property \"")
                                 .append(name)
                                 .append("\"."));
    }
    return *std::move(text);
}

std::int64_t wholeNumber(std::string_view text, const char* source) {
    text = withoutBlanks(text);
    const bool hasSign = text.starts_with('+') || text.starts_with('-');
    const std::string_view digits = text.substr(hasSign ? 1 : 0);
    if (digits.empty() || !std::ranges::all_of(digits, isDigit)) throw typeMismatchFailure(source);
    if (text.front() == '+') text = digits;
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc{}) throw overflowFailure(source);
    return value;
}

} // namespace corvane
