// The facts that `corvane scan` lists.
#include "corvane/core/FileSummary.h"

#include "bench/ScanRounds.h"

namespace {

std::size_t charactersSeen = 0;

void readFile(const std::string& path) {
    const auto summary = corvane::summarize(path);
    charactersSeen += summary.title.size() + summary.tags.size();
}

} // namespace

int main(int argumentCount, char** arguments) { return corvane::bench::scanRounds(argumentCount, arguments, readFile); }
