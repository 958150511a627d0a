// The time of a file's last modification, kept over a change.
#pragma once

#include <ctime>
#include <string>

namespace corvane::cli {

class FileTimes {
public:
    // Remembers the time; does nothing from then on when `isKept` is false. Fails with a RuntimeFailure.
    FileTimes(std::string path, bool isKept);

    // Gives the file its time back. Fails with a RuntimeFailure.
    void restore() const;

private:
    std::string path_;
    bool kept_;
    timespec modified_{};
};

} // namespace corvane::cli
