// A command line that cannot be meant.
#pragma once

#include <stdexcept>

namespace corvane::cli {

// Ends a run before anything is done; the text says what is wrong.
class WrongUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace corvane::cli
