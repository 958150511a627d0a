#include "bench/ScanRounds.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
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
        const auto start = std::chrono::steady_clock::now();
        for (const auto& file : files) read(file);
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count() / static_cast<double>(files.size()));
    }
    std::cout << best << '\n';
    return 0;
}

} // namespace corvane::bench
