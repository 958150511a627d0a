#include "apps/scan/FileScan.h"

#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>

namespace corvane::scan::filescan_test {
namespace {

using Paths = std::vector<std::string>;

class Scan : public testing::TestWithParam<unsigned> {
protected:
    // Files "000.mp3" and so on.
    Paths make(int count) {
        Paths paths;
        for (int number = 1000; number < 1000 + count; ++number) {
            paths.push_back(folder_.write(std::to_string(number).substr(1) + ".mp3", {}));
        }
        return paths;
    }
    FileScan<Paths> scan(std::function<Paths(const Batch&)> work) {
        return {{folder_.path()}, GetParam(), std::move(work), [](std::string_view, std::string_view) { FAIL(); }};
    }

    test::ScratchFolder folder_;
};

Paths allOf(FileScan<Paths>& files) {
    Paths all;
    while (const auto batch = files.next()) all.insert(all.end(), batch->begin(), batch->end());
    return all;
}

TEST_P(Scan, GivesEveryFileInTheOrderOfTheWalk) {
    const Paths paths = make(500);
    auto files = scan([](const Batch& batch) { return batch; });
    EXPECT_EQ(allOf(files), paths);
    EXPECT_FALSE(files.next());
}

TEST_P(Scan, OfAnEmptyFolderGivesNothing) {
    auto files = scan([](const Batch& batch) { return batch; });
    EXPECT_FALSE(files.next());
}

TEST_P(Scan, WorksOnlyALittleAhead) {
    make(999);
    std::atomic<std::size_t> begun = 0;
    auto files = scan([&begun](const Batch& batch) {
        begun += batch.size();
        return batch;
    });
    EXPECT_TRUE(files.next());
    EXPECT_LT(begun, 999u);
}

TEST_P(Scan, HandsOnWhatTheWorkThrows) {
    make(1);
    auto files = scan([](const Batch&) -> Paths { throw std::runtime_error("work"); });
    EXPECT_THROW(files.next(), std::runtime_error);
}

INSTANTIATE_TEST_SUITE_P(Threads, Scan, testing::Values(1u, 4u));

} // namespace
} // namespace corvane::scan::filescan_test
