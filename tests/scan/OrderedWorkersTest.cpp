#include "apps/scan/OrderedWorkers.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <numeric>
#include <stdexcept>

namespace corvane::scan::orderedworkers_test {
namespace {

std::vector<int> upTo(int count) {
    std::vector<int> numbers(static_cast<std::size_t>(count));
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

class Workers : public testing::TestWithParam<unsigned> {
protected:
    std::vector<int> delivered_;
    void run(int taskCount, std::function<int(const int&)> work) {
        OrderedWorkers<int, int> workers(GetParam(), std::move(work),
                                         [this](int result) { delivered_.push_back(result); });
        for (int task = 0; task < taskCount; ++task) workers.submit(task);
        workers.finish();
    }
};

TEST_P(Workers, DeliverInTheOrderOfTheTasks) {
    run(500, [](const int& task) {
        if (task % 7 == 0) std::this_thread::sleep_for(std::chrono::microseconds(300));
        return task;
    });
    EXPECT_EQ(delivered_, upTo(500));
}

TEST_P(Workers, OneTaskAndNoTaskAreEnough) {
    run(1, [](const int& task) { return task; });
    EXPECT_EQ(delivered_, upTo(1));
    delivered_.clear();
    run(0, [](const int& task) { return task; });
    EXPECT_EQ(delivered_, upTo(0));
}

TEST_P(Workers, FailureOfATaskReachesTheOwner) {
    const auto failing = [](const int& task) {
        if (task == 20) throw std::runtime_error("task 20");
        return task;
    };
    EXPECT_THROW(run(40, failing), std::runtime_error);
    EXPECT_EQ(delivered_, upTo(20));
}

TEST_P(Workers, FailureOfADeliveryStopsTheWork) {
    std::atomic<int> begun = 0;
    const auto count = [&](const int& task) { return ++begun, task; };
    const auto refuse = [](int) { throw std::runtime_error("full"); };
    const auto runAll = [&] {
        OrderedWorkers<int, int> workers(GetParam(), count, refuse);
        for (int task = 0; task < 100000; ++task) workers.submit(task);
        workers.finish();
    };
    EXPECT_THROW(runAll(), std::runtime_error);
    EXPECT_LT(begun, 1000);
}

TEST_P(Workers, FewTasksAreUnderWayAtATime) {
    std::atomic<int> begun = 0;
    int done = 0, most = 0;
    OrderedWorkers<int, int> workers(
        GetParam(), [&](const int& task) { return ++begun, task; },
        [&](int) {
            most = std::max(most, begun - done);
            ++done;
        });
    for (int task = 0; task < 2000; ++task) workers.submit(task);
    workers.finish();
    EXPECT_EQ(done, 2000);
    EXPECT_LE(most, static_cast<int>(GetParam() * 4 + 1));
}

INSTANTIATE_TEST_SUITE_P(Threads, Workers, testing::Values(1u, 2u, 8u),
                         [](const auto& tested) { return std::to_string(tested.param); });

} // namespace
} // namespace corvane::scan::orderedworkers_test
