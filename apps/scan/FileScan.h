// The MP3 files below some folders, looked at by several threads, with the results in the order of the walk.
//
// A caller asks for one result after the other. Files are handed to the threads in batches, because handing over costs
// as much as reading a file or two; a result is what the caller's work makes of a batch. Work goes only a little ahead
// of what was asked for, so memory does not grow with the number of files.
#pragma once

#include "apps/scan/FileWalk.h"
#include "apps/scan/OrderedWorkers.h"

#include <algorithm>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace corvane::scan {

using Batch = std::vector<std::string>; // paths

inline constexpr unsigned kMostThreads = 256;

// Threads when nobody asks for a number: more do not make a disk faster.
inline unsigned usualThreadCount() {
    constexpr unsigned kMostUsualThreads = 8;
    return std::clamp(std::thread::hardware_concurrency(), 1u, kMostUsualThreads);
}

template <class Result>
class FileScan {
public:
    // roots and report: see FileWalk. work: called on any thread, by several at once.
    FileScan(std::vector<std::string> roots, unsigned threadCount, std::function<Result(const Batch&)> work,
             FileWalk::ReportUnreadable report)
        : walk_(std::move(roots), std::move(report)),
          workers_(threadCount, std::move(work), [this](Result result) { ready_.push_back(std::move(result)); }) {}

    // The result of the next batch; nothing at the end. What the work throws ends up here.
    std::optional<Result> next() {
        while (ready_.empty() && submitBatch()) {
        }
        if (ready_.empty()) workers_.deliverNext();
        if (ready_.empty()) return std::nullopt;
        std::optional<Result> result(std::move(ready_.front()));
        ready_.pop_front();
        return result;
    }

private:
    static constexpr std::size_t kBatchSize = 32;

    bool submitBatch() {
        Batch batch;
        while (batch.size() < kBatchSize) {
            std::optional<std::string> path = walk_.next();
            if (!path) break;
            batch.push_back(*std::move(path));
        }
        if (batch.empty()) return false;
        workers_.submit(std::move(batch));
        return true;
    }

    FileWalk walk_;
    std::deque<Result> ready_;
    OrderedWorkers<Batch, Result> workers_;
};

} // namespace corvane::scan
