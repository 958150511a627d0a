#include "corvane/id3v230/FrameRecordContent.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace corvane {

namespace {

template <class Value>
std::string text(const Value& value) {
    if constexpr (std::is_same_v<Value, std::string>) {
        return value;
    } else if constexpr (std::is_integral_v<Value>) {
        return std::to_string(value);
    } else {
        return {};
    }
}

} // namespace

bool replaceQuotes(std::string& text) {
    if (text.find('"') == std::string::npos) return false;
    std::replace(text.begin(), text.end(), '"', '\'');
    return true;
}

std::string withApostrophes(std::string text) {
    replaceQuotes(text);
    return text;
}

std::string valueText(const FrameVariant& value) {
    return std::visit([](const auto& held) { return text(held); }, value);
}

std::string valueText(const Variant& value) {
    return std::visit([](const auto& held) { return text(held); }, value);
}

} // namespace corvane
