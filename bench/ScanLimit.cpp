// The system calls that a scan cannot do without: open, fstat, the first block, the last bytes, and the block behind a
// tag that is longer than the first block. Nothing is made of what they read.
#include "bench/ScanRounds.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <iostream>

namespace {

constexpr std::size_t kBlockSize = 4096;
constexpr off_t kTrailerSize = 128 + 15; // an ID3v1 record, and the end of a Lyrics3 tag in front of it

// The 28 bits that a tag header's four size bytes hold; where the tag ends.
off_t endOfTag(const std::array<std::uint8_t, kBlockSize>& head) {
    if (head[0] != 'I' || head[1] != 'D' || head[2] != '3') return 0;
    return off_t{head[6]} << 21 | off_t{head[7]} << 14 | off_t{head[8]} << 7 | off_t{head[9]};
}

void readFile(const std::string& path) {
    std::array<std::uint8_t, kBlockSize> block{};
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    bool done = descriptor >= 0 && ::fstat(descriptor, &status) == 0;
    done = done && ::pread(descriptor, block.data(), block.size(), 0) > 0;
    const off_t audio = endOfTag(block);
    if (static_cast<std::size_t>(audio) + 1024 > kBlockSize)
        done = done && ::pread(descriptor, block.data(), block.size(), audio) > 0;
    done = done && ::pread(descriptor, block.data(), kTrailerSize, status.st_size - kTrailerSize) > 0;
    ::close(descriptor);
    if (!done) {
        std::cerr << "cannot read " << path << '\n';
        std::exit(1);
    }
}

} // namespace

int main(int argumentCount, char** arguments) { return corvane::bench::scanRounds(argumentCount, arguments, readFile); }
