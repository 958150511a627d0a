// One run of the driver with one thing going wrong.
#pragma once

#include <string>

namespace corvane::test {

// What goes wrong, and where: a kind of the preloaded library (FaultShim.cpp), or "allocation" for lack of memory.
struct Fault {
    std::string kind;
    int errorNumber = 0;
    long at = 1; // counted from 1
};

struct FaultRun {
    bool isKilled = false;
    bool toldSuccess = false;
    std::string text; // of the failure that was told
    std::string call; // the one that went wrong; empty when the run has not come that far
};

// temporaryFolder: where the driver makes temporary files that are not beside the file. Throws when the driver cannot
// be run or is not used as it should be.
FaultRun runWithFault(const std::string& operation, const std::string& path, const Fault& fault,
                      const std::string& temporaryFolder = "/tmp");

} // namespace corvane::test
