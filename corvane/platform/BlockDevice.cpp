#include "corvane/platform/BlockDevice.h"

#include "corvane/platform/Descriptor.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <charconv>
#include <memory>
#include <optional>

namespace corvane {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::optional<unsigned> hexadecimal(std::string_view digits) {
    unsigned value = 0;
    const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (problem != std::errc{} || end != digits.data() + digits.size()) return std::nullopt;
    return value;
}

// The first character of a file; nothing when there is none.
std::optional<char> firstCharacter(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    char character = 0;
    if (!file.isOpen() || ::read(file.number(), &character, 1) != 1) return std::nullopt;
    return character;
}

} // namespace

std::string udevDecoded(std::string_view name) {
    constexpr std::string_view kEscape = "\\x";
    std::string decoded;
    while (!name.empty()) {
        const auto code = name.starts_with(kEscape) && name.size() >= 4 ? hexadecimal(name.substr(2, 2)) : std::nullopt;
        decoded.push_back(code ? static_cast<char>(*code) : name[0]);
        name.remove_prefix(code ? 4 : 1);
    }
    return decoded;
}

std::string diskName(const std::string& folder, dev_t device) {
    const std::unique_ptr<DIR, CloseFolder> links(::opendir(folder.c_str()));
    if (links == nullptr) return {};
    // NOLINTNEXTLINE(concurrency-mt-unsafe): no other thread reads this stream
    while (const dirent* link = ::readdir(links.get())) {
        struct stat status {};
        if (::fstatat(::dirfd(links.get()), link->d_name, &status, 0) != 0) continue;
        if (S_ISBLK(status.st_mode) && status.st_rdev == device) return udevDecoded(link->d_name);
    }
    return {};
}

bool isRemovable(dev_t device, const std::string& devices) {
    const std::string described = devices + "/" + std::to_string(major(device)) + ":" + std::to_string(minor(device));
    auto answer = firstCharacter(described + "/removable");
    if (!answer) answer = firstCharacter(described + "/../removable"); // a partition: its disk knows
    return answer == '1';
}

} // namespace corvane
