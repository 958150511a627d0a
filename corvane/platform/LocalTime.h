// Points in time as a person at this machine reads them.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>

namespace corvane {

// A point in time by the calendar and clock of the local time zone.
using LocalTime = std::tm;

// The zone is read at the first use, as the system does it; who changes it later calls tzset.
//
// secondsSince1970: any; a time that no calendar can name is an overflow failure.
LocalTime localTimeOf(std::int64_t secondsSince1970);
LocalTime currentLocalTime();

// "dd/mm/yyyy hh:mm:ss", the form of all dates in documents.
std::string documentDate(const LocalTime& time);

// Date and time of day in the form of the user's locale, UTF-8 whatever the encoding of that locale is; the locale of
// the process stays as it is.
std::string shortDateOfUser(const LocalTime& time);
std::string timeOfUser(const LocalTime& time);

} // namespace corvane
