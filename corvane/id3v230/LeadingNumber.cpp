#include "corvane/id3v230/LeadingNumber.h"

#include "corvane/platform/RuntimeFailure.h"

#include <charconv>
#include <system_error>

namespace corvane {

std::int16_t leadingNumber(std::string_view text, const char* source) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-')) return 0;
    }
    std::int16_t number = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), number).ec == std::errc::result_out_of_range)
        throw overflowFailure(source);
    return number;
}

} // namespace corvane
