// Standard error: one line for each file that failed.
#pragma once

#include <cstddef>
#include <string_view>

namespace corvane::cli {

class Failures {
public:
    explicit Failures(int descriptor);

    // "corvane: PATH: reason". Control characters of both are made visible, so that it stays one line; other bytes of
    // a path are written as they are, unless they would reach a terminal that cannot show them.
    void file(std::string_view path, std::string_view reason);
    // The same for something that did not stop the work.
    void warning(std::string_view path, std::string_view text);
    // "corvane: text".
    void message(std::string_view text);

    // Files named so far.
    std::size_t count() const { return count_; }

private:
    void line(std::string_view text) const;

    int descriptor_;
    bool terminal_;
    std::size_t count_ = 0;
};

} // namespace corvane::cli
