// The words of a command line, sorted into options and operands before CLI11 sees them.
//
// CLI11 reads meaning into some texts: "[a,b]" is a list to it, "{}" an empty one, and "--title=" takes its value from
// the next word. Operands are names of files and may be any bytes, so they never get that far; an option's value is
// handed over as a word of its own.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace corvane::cli {

struct Arguments {
    std::vector<std::string> options; // in the order of the command line
    std::vector<std::string> operands;
};

// `app` tells which options take a value. Behind "--" every word is an operand, and "-" always is one.
Arguments sortArguments(const CLI::App& app, const std::vector<std::string>& words);

} // namespace corvane::cli
