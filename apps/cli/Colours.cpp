#include "apps/cli/Colours.h"

#include <cstdlib>

namespace corvane::cli {

namespace {

bool environmentAllowsColours() {
    const char* refused = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return (refused == nullptr || *refused == '\0') && (terminal == nullptr || std::string_view(terminal) != "dumb");
}

bool wanted(ColourChoice choice, bool isTerminal) {
    if (choice != ColourChoice::Auto) return choice == ColourChoice::Always;
    return isTerminal && environmentAllowsColours();
}

} // namespace

void addColourOption(Options& options, ColourChoice& choice) {
    options.addChoice<ColourChoice>(
        "--color", choice, "Use colours; auto: on a terminal, unless NO_COLOR is set",
        {{"auto", ColourChoice::Auto}, {"always", ColourChoice::Always}, {"never", ColourChoice::Never}});
}

Colours::Colours(ColourChoice choice, bool isTerminal) : on_(wanted(choice, isTerminal)) {}

std::string Colours::dressed(std::string_view rendition, std::string_view text) const {
    if (!on_ || text.empty()) return std::string(text);
    return std::string("\x1b[").append(rendition).append("m").append(text).append("\x1b[0m");
}

} // namespace corvane::cli
