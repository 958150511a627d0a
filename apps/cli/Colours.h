// Colours for those who look at a terminal.
#pragma once

#include "apps/cli/Options.h"

#include <string>
#include <string_view>

namespace corvane::cli {

enum class ColourChoice { Auto, Always, Never };

// Adds "--color auto|always|never", which sets `choice`.
void addColourOption(Options& options, ColourChoice& choice);

class Colours {
public:
    // By default only on a terminal that is not "dumb", and not when the environment sets NO_COLOR to anything but "".
    Colours(ColourChoice choice, bool isTerminal);

    std::string heading(std::string_view text) const { return dressed("1;36", text); }
    std::string label(std::string_view text) const { return dressed("2", text); }
    std::string good(std::string_view text) const { return dressed("32", text); }
    std::string bad(std::string_view text) const { return dressed("1;31", text); }
    std::string hint(std::string_view text) const { return dressed("33", text); }

private:
    // ECMA-48 select graphic rendition around the text.
    std::string dressed(std::string_view rendition, std::string_view text) const;

    bool on_;
};

} // namespace corvane::cli
