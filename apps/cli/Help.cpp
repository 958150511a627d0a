#include "apps/cli/Help.h"

#include "corvane/Version.h"

#include "apps/cli/Commands.h"

#include <fmt/core.h>

#include <cstring>

namespace corvane::cli {

namespace {

std::string indented(const char* lines) {
    std::string text;
    while (*lines != '\0') {
        const char* end = std::strchr(lines, '\n');
        const std::string line = end != nullptr ? std::string(lines, end) : std::string(lines);
        text += fmt::format("  {}\n", line);
        lines += line.size() + (end != nullptr ? 1 : 0);
    }
    return text;
}

constexpr char kExamples[] = R"(corvane show song.mp3
corvane scan ~/Music > music.jsonl
corvane set song.mp3 --title "New title" --track 7
corvane xml song.mp3 --output song.xml)";

constexpr char kEnding[] = R"(
Exit codes: 0 all done, 1 at least one file failed, 2 wrong use.
"corvane COMMAND --help" tells more about one command.
)";

} // namespace

std::string versionText() { return fmt::format("corvane {}\n", kVersion); }

std::string commandsHelp() {
    std::string text = "Shows, lists, changes and removes the tags of MP3 files.\n\n"
                       "Usage: corvane COMMAND [OPTIONS] ...\n\nCommands:\n";
    for (const CommandEntry& entry : commands()) text += fmt::format("  {:<12}{}\n", entry.name, entry.summary);
    text += "\nOptions:\n  -h, --help  Print this help and exit\n  --version   Print the version and exit\n";
    return text + "\nExamples:\n" + indented(kExamples) + kEnding;
}

std::string commandHelp(const CommandEntry& entry, const Options& options) {
    const char* gap = *entry.operands == '\0' ? "" : " ";
    return fmt::format("{}\n\nUsage: corvane {} [OPTIONS]{}{}\n{}\nExamples:\n{}", entry.summary, entry.name, gap,
                       entry.operands, options.help(), indented(entry.examples));
}

} // namespace corvane::cli
