#include "corvane/platform/MountInfo.h"

#include "corvane/platform/Descriptor.h"
#include "corvane/platform/Numbers.h"

#include <fcntl.h>

#include <array>

namespace corvane {

namespace {

// Takes the text up to the separator off `rest`, and the separator with it.
std::string_view takeUpTo(std::string_view& rest, char separator) {
    const std::string_view taken = rest.substr(0, rest.find(separator));
    rest.remove_prefix(taken.size() == rest.size() ? taken.size() : taken.size() + 1);
    return taken;
}

constexpr bool isOctal(char character) { return character >= '0' && character <= '7'; }

// Blanks, tabs, line ends and backslashes stand as a backslash and three octal digits.
std::string unescaped(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        if (text[0] == '\\' && text.size() >= 4 && isOctal(text[1]) && isOctal(text[2]) && isOctal(text[3])) {
            plain.push_back(static_cast<char>((text[1] - '0') << 6 | (text[2] - '0') << 3 | (text[3] - '0')));
            text.remove_prefix(4);
        } else {
            plain.push_back(text[0]);
            text.remove_prefix(1);
        }
    }
    return plain;
}

// number parent major:minor root target options [optional fields] - kind source options
std::optional<Mount> parsed(std::string_view line) {
    takeUpTo(line, ' ');
    takeUpTo(line, ' ');
    const auto major = parseNumber<unsigned>(takeUpTo(line, ':'));
    const auto minor = parseNumber<unsigned>(takeUpTo(line, ' '));
    takeUpTo(line, ' ');
    const std::string_view target = takeUpTo(line, ' ');
    constexpr std::string_view kEndOfOptionalFields = " - ";
    const auto end = line.find(kEndOfOptionalFields);
    if (!major || !minor || target.empty() || end == std::string_view::npos) return std::nullopt;
    line.remove_prefix(end + kEndOfOptionalFields.size());
    const std::string_view fileSystem = takeUpTo(line, ' ');
    const std::string_view source = takeUpTo(line, ' ');
    return Mount{*major, *minor, unescaped(target), unescaped(fileSystem), unescaped(source)};
}

bool holds(const std::string& target, std::string_view path) {
    if (target == "/") return path.starts_with('/');
    return path.starts_with(target) && (path.size() == target.size() || path[target.size()] == '/');
}

} // namespace

std::optional<Mount> mountOfNumber(std::string_view table, std::uint64_t number) {
    while (!table.empty()) {
        const std::string_view line = takeUpTo(table, '\n');
        std::string_view rest = line;
        if (parseNumber<std::uint64_t>(takeUpTo(rest, ' ')) == number) return parsed(line);
    }
    return std::nullopt;
}

std::optional<Mount> mountOfPath(std::string_view table, std::string_view path) {
    std::optional<Mount> longest;
    while (!table.empty()) {
        auto mount = parsed(takeUpTo(table, '\n'));
        if (!mount || !holds(mount->target, path)) continue;
        if (!longest || mount->target.size() >= longest->target.size()) longest = std::move(mount);
    }
    return longest;
}

std::string mountTable() {
    const Descriptor file(::open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC));
    if (!file.isOpen()) return {};
    std::string table;
    std::array<char, 4096> block;
    for (;;) {
        const auto got = ::read(file.number(), block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return got == 0 ? table : std::string();
        table.append(block.data(), static_cast<std::size_t>(got));
    }
}

} // namespace corvane
