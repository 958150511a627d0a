#include "corvane/platform/TemporaryNames.h"

#include "corvane/platform/Paths.h"
#include "corvane/platform/RuntimeFailure.h"

#include <fcntl.h>
#include <sys/random.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

namespace corvane {

namespace {

constexpr const char* kTemporaryNameSource = "create temporary file";
constexpr int kNameAttempts = 100; // far more than chance can need for names of 64 random bits

std::uint64_t randomNumber() {
    std::uint64_t number = 0;
    for (;;) {
        const auto got = ::getrandom(&number, sizeof number, 0);
        if (got == static_cast<ssize_t>(sizeof number)) return number;
        if (got < 0 && errno != EINTR) throw systemFailure(errno, kTemporaryNameSource);
    }
}

std::string withSeparator(std::string folder) {
    if (!folder.empty() && folder.back() != '/') folder.push_back('/');
    return folder;
}

} // namespace

std::string temporaryFolder() {
    std::error_code problem;
    const std::string folder = std::filesystem::temp_directory_path(problem).string();
    return withSeparator(problem ? P_tmpdir : folder);
}

std::string unguessableName(std::string_view prefix, std::string_view extension) {
    constexpr std::size_t kPrefixSize = 3;
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string name(prefix);
    if (name.size() < kPrefixSize) name.resize(kPrefixSize, '_');
    std::uint64_t number = randomNumber();
    for (int i = 0; i < 16; ++i, number >>= 4) name.push_back(kDigits[number & 0xF]);
    return name.append(".").append(extension);
}

NewFile openNewFile(int folderDescriptor, const std::string& folder, std::string_view prefix,
                    std::string_view extension, mode_t mode) {
    constexpr int kFlags = O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC | O_NOCTTY;
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        std::string path = withSeparator(folder) + unguessableName(prefix, extension);
        Descriptor descriptor(::openat(folderDescriptor, systemPath(path), kFlags, mode));
        if (descriptor.isOpen()) return {std::move(path), std::move(descriptor)};
        if (errno != EEXIST && errno != EINTR) throw systemFailure(errno, kTemporaryNameSource);
    }
    throw systemFailure(EEXIST, kTemporaryNameSource);
}

std::string createTemporaryFile(const std::string& folder, std::string_view prefix) {
    return openNewFile(AT_FDCWD, folder, prefix, "tmp", 0600).path;
}

} // namespace corvane
