// A progress bar for those who look at a terminal.
#pragma once

#include <chrono>
#include <cstddef>

namespace corvane::cli {

class Progress {
public:
    // total: number of files to come. A bar that is not shown does nothing.
    Progress(int descriptor, bool isShown, std::size_t total);
    // Takes the bar away.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // So many more files are done. Draws when the last drawing is long enough ago for an eye.
    void advance(std::size_t fileCount);
    // Makes room for a line of text on the same terminal; the bar comes back with the next advance.
    void hide();

private:
    void draw();

    int descriptor_;
    bool shown_;
    std::size_t total_;
    std::size_t done_ = 0;
    bool drawn_ = false;
    std::chrono::steady_clock::time_point nextDrawing_{};
};

} // namespace corvane::cli
