#include "corvane/platform/LocalTime.h"

#include "corvane/platform/RuntimeFailure.h"

#include <array>
#include <clocale>

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

    std::string formatted(const char* form, const LocalTime& time) const {
        std::array<char, 256> text{};
        if (locale_ == nullptr) return {};
        return {text.data(), ::strftime_l(text.data(), text.size(), form, &time, locale_)};
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

std::string shortDateOfUser(const LocalTime& time) { return UserLocale().formatted("%x", time); }

std::string timeOfUser(const LocalTime& time) { return UserLocale().formatted("%X", time); }

} // namespace corvane
