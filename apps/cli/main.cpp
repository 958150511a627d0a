#include "apps/cli/CommandLine.h"
#include "apps/cli/Process.h"

int main(int argc, char** argv) {
    corvane::cli::prepareProcess();
    return static_cast<int>(corvane::cli::runCommandLine({argv + (argc > 0 ? 1 : 0), argv + argc}));
}
