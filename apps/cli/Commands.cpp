#include "apps/cli/Commands.h"

#include <algorithm>
#include <array>

namespace corvane::cli {

namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

// In the order in which the help text lists them.
constexpr std::array kCommands{
    CommandEntry{"show", "Show everything that is known about files", "FILE...", 1, kAnyNumber,
                 "corvane show song.mp3\n"
                 "corvane show --color=always *.mp3 | less -R",
                 makeShowCommand},
    CommandEntry{"xml", "Write the XML document of a file", "FILE", 1, 1,
                 "corvane xml song.mp3\n"
                 "corvane xml song.mp3 --output song.xml",
                 makeXmlCommand},
    CommandEntry{"scan", "List the MP3 files below folders, one line each", "PATH...", 1, kAnyNumber,
                 "corvane scan ~/Music > music.jsonl\n"
                 "corvane scan --format csv ~/Music > music.csv\n"
                 "corvane scan ~/Music | jq -r 'select(.year == \"1999\") | .path'",
                 makeScanCommand},
    CommandEntry{"set", "Set values of the tags of files; an empty value deletes", "FILE...", 1, kAnyNumber,
                 "corvane set song.mp3 --title \"New title\" --track 5/12 --genre Jazz --picture cover.jpg\n"
                 "corvane set --album \"\" --keep-mtime *.mp3\n"
                 "corvane set --tag v1 --dry-run --year 1999 -- -odd-name.mp3",
                 makeSetCommand},
    CommandEntry{"remove", "Remove tags of files", "FILE...", 1, kAnyNumber,
                 "corvane remove song.mp3 --tag both\n"
                 "corvane remove --tag v2 --dry-run *.mp3",
                 makeRemoveCommand},
    CommandEntry{"import", "Fill the ID3v1 tag of a file from a document made by `corvane xml`", "FILE DOCUMENT", 2, 2,
                 "corvane import song.mp3 song.xml\n"
                 "corvane xml old.mp3 | corvane import new.mp3 -",
                 makeImportCommand},
    CommandEntry{"genres", "List the genre numbers of ID3v1 and their names", "", 0, 0,
                 "corvane genres\n"
                 "corvane genres --json",
                 makeGenresCommand},
    CommandEntry{"selftest", "Write, read and compare a tag on a scratch file", "[DIR]", 0, 1,
                 "corvane selftest\n"
                 "corvane selftest /mnt/player",
                 makeSelftestCommand},
};

} // namespace

std::span<const CommandEntry> commands() { return kCommands; }

const CommandEntry* findCommand(std::string_view name) {
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [name](const CommandEntry& entry) { return entry.name == name; });
    return found == kCommands.end() ? nullptr : &*found;
}

} // namespace corvane::cli
