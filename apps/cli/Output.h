// Standard output: buffered, and no failure to write it goes unseen.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace corvane::cli {

// What was to be said could not be said.
class OutputFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class Output {
public:
    explicit Output(int descriptor);
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    // Takes the text. It is written when enough has come together, and at once when somebody looks at a terminal.
    // This and the next two fail with an OutputFailure.
    void write(std::string_view text);
    void flush();
    // Flushes and closes: a network file system tells of a full disk only then.
    void close();

    bool isTerminal() const { return terminal_; }
    // Columns of the terminal; 0 when it is none or does not tell.
    unsigned columns() const;

private:
    int descriptor_;
    bool terminal_;
    std::string buffer_;
};

} // namespace corvane::cli
