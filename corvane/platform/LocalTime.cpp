#include "corvane/platform/LocalTime.h"

#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/Utf.h"

#include <array>
#include <clocale>
#include <cwchar>

namespace corvane {

namespace {

// The user's locale for dates, or the standard one where the user's is not installed.
class UserLocale {
public:
    UserLocale() : locale_(::newlocale(LC_TIME_MASK, "", nullptr)) {
        if (locale_ == nullptr) locale_ = ::newlocale(LC_TIME_MASK, "C", nullptr);
    }
    ~UserLocale() {
        if (locale_ != nullptr) ::freelocale(locale_);
    }
    UserLocale(const UserLocale&) = delete;
    UserLocale& operator=(const UserLocale&) = delete;

    // As UTF-8: wide characters are the same in every locale, while bytes would be in the encoding of this one.
    std::string formatted(const wchar_t* form, const LocalTime& time) const {
        if (locale_ == nullptr) return {};
        std::array<wchar_t, 256> text{};
        const std::size_t count = ::wcsftime_l(text.data(), text.size(), form, &time, locale_);
        std::string utf8;
        for (std::size_t i = 0; i < count; ++i) appendUtf8(utf8, static_cast<char32_t>(text[i]));
        return utf8;
    }

private:
    locale_t locale_;
};

} // namespace

LocalTime localTimeOf(std::int64_t secondsSince1970) {
    const auto seconds = static_cast<std::time_t>(secondsSince1970);
    LocalTime time{};
    if (::localtime_r(&seconds, &time) == nullptr) throw overflowFailure("date");
    return time;
}

LocalTime currentLocalTime() { return localTimeOf(std::time(nullptr)); }

std::string documentDate(const LocalTime& time) {
    std::array<char, 64> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%d/%m/%Y %H:%M:%S", &time)};
}

std::string shortDateOfUser(const LocalTime& time) { return UserLocale().formatted(L"%x", time); }

std::string timeOfUser(const LocalTime& time) { return UserLocale().formatted(L"%X", time); }

} // namespace corvane
