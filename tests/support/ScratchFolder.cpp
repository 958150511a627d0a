#include "tests/support/ScratchFolder.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace corvane::test {

ScratchFolder::ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "corvane-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch folder can be made");
    path_ = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string ScratchFolder::write(const std::string& name, Bytes bytes) const {
    auto file = path(name);
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) throw std::runtime_error("cannot write " + file);
    return file;
}

std::vector<std::string> ScratchFolder::names() const { return namesIn(path_.string()); }

std::vector<std::string> namesIn(const std::string& folder) {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        found.push_back(entry.path().filename().string());
    std::sort(found.begin(), found.end());
    return found;
}

ByteArray contentOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

struct stat statusOf(const std::string& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) throw std::runtime_error("no file " + path);
    return status;
}

} // namespace corvane::test
