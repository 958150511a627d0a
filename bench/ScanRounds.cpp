#include "bench/ScanRounds.h"

#include "tests/support/ProcessorTime.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <vector>

namespace corvane::bench {
namespace {

std::vector<std::string> filesBelow(const std::string& folder) {
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file()) found.push_back(entry.path().string());
    std::sort(found.begin(), found.end());
    return found;
}

// Peak memory of this program in kB. What getrusage tells also counts the program that started this one.
long peakKilobytes() {
    std::ifstream status("/proc/self/status");
    const std::string label = "VmHWM:";
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(label)) return std::atol(line.c_str() + label.size());
    return 0;
}

} // namespace

int scanRounds(int argumentCount, char** arguments, const std::function<void(const std::string&)>& read) {
    if (argumentCount < 2) {
        std::cerr << "usage: " << arguments[0] << " FOLDER [ROUNDS]\n";
        return 2;
    }
    const auto files = filesBelow(arguments[1]);
    const int rounds = argumentCount > 2 ? std::atoi(arguments[2]) : 1;
    auto best = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round) {
        // With the files in memory a scan waits for nothing.
        const double start = test::processorSeconds();
        for (const auto& file : files) read(file);
        best = std::min(best, (test::processorSeconds() - start) * 1e6 / static_cast<double>(files.size()));
    }
    std::cout << best << ' ' << peakKilobytes() << '\n';
    return 0;
}

} // namespace corvane::bench
