// Reports of changes, for people and for programs.
#pragma once

#include "apps/cli/Colours.h"
#include "apps/cli/Output.h"
#include "apps/cli/TagChange.h"

#include <string>
#include <string_view>

namespace corvane::cli {

class ChangeText {
public:
    ChangeText(const ChangeOptions& options, const Output& output);

    // Lines about what was done, or would be done, to a file; "" when nothing is to be said.
    std::string of(const std::string& path, const ChangeReport& report) const;
    std::string ofFailure(const std::string& path, std::string_view reason) const;

private:
    std::string jsonOf(const std::string& path, const ChangeReport& report) const;
    std::string linesOf(const std::string& path, const ChangeReport& report) const;

    ChangeOptions options_;
    Colours colours_;
    bool asciiOnly_; // in JSON: no character of a tag reaches a terminal
};

} // namespace corvane::cli
