#include "apps/cli/LibraryFailure.h"

namespace corvane::cli {

std::string reasonOf(const TagError& error) {
    constexpr std::string_view kSeparator = ", ";
    std::string line = error.Stream(); // "number, source, description"
    for (int part = 0; part < 2; ++part) {
        const std::size_t separator = line.find(kSeparator);
        if (separator != std::string::npos) line.erase(0, separator + kSeparator.size());
    }
    return line;
}

void openFile(FileHandler& handler, const std::string& path) {
    if (!handler.Create(path)) throw FileFailure(reasonOf(*handler.LastError()));
}

void writeId3v1Tag(FileHandler& handler) {
    if (!handler.writeID3v1xTag()) throw FileFailure(reasonOf(*handler.LastError()));
}

} // namespace corvane::cli
