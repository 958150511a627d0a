// What becomes of a tag that is given values.
#pragma once

#include <string>
#include <vector>

namespace corvane::cli {

struct FieldChange {
    std::string name, before, after; // values as text
};

struct TagOutcome {
    std::vector<FieldChange> changes;  // of values as the tag can hold them
    std::vector<std::string> warnings; // what it cannot hold
};

} // namespace corvane::cli
