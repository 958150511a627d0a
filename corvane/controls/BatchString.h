// Converts the case of a text.
#pragma once

#include "corvane/controls/Export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::controls {

class CORVANE_CONTROLS_EXPORT BatchString {
public:
    // Codes of Conversion, as automation hosts number the conversions of strings. Any other code leaves a text as it
    // is; so does the code of a new object.
    static constexpr std::int32_t kUpperCase = 1;
    static constexpr std::int32_t kLowerCase = 2;
    static constexpr std::int32_t kProperCase = 3; // first letter of each word upper case, the others lower case

    // The code of the conversion; 0 in a new object.
    std::int32_t Conversion() const { return conversion_; }
    void Conversion(std::int32_t code) { conversion_ = code; }

    // Takes the text to convert (UTF-8).
    void Initialize(std::string_view Value) { text_ = Value; }
    // The text in the case that Conversion tells. Words are what white space separates; marks in front of a word's
    // first letter are skipped ("(live)" becomes "(Live)"), a number is not ("2nd" stays).
    std::string Convert() const;

private:
    std::int32_t conversion_ = 0;
    std::string text_;
};

} // namespace corvane::controls
