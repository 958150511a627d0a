// Work shared out to threads, whose results are delivered in the order in which the tasks were handed in.
//
// At most a few tasks for each thread are under way or waiting to be delivered, so memory does not grow with the number
// of tasks. Threads start with the second task: a single one is done where it is.
#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace corvane::scan {

template <class Task, class Result>
class OrderedWorkers {
public:
    // work: called on any thread, by several at once. deliver: called on the thread that owns this object. What either
    // throws ends up with that thread, out of submit or finish.
    OrderedWorkers(unsigned threadCount, std::function<Result(const Task&)> work, std::function<void(Result)> deliver)
        : threadCount_(threadCount), work_(std::move(work)), deliver_(std::move(deliver)) {}

    ~OrderedWorkers() {
        {
            const std::lock_guard lock(mutex_);
            stopping_ = true;
        }
        workThere_.notify_all();
        for (std::thread& thread : threads_) thread.join();
    }
    OrderedWorkers(const OrderedWorkers&) = delete;
    OrderedWorkers& operator=(const OrderedWorkers&) = delete;

    // Hands in a task; waits when too many are under way.
    void submit(Task task) {
        if (threadCount_ < 2) return deliver_(work_(task));
        add(std::move(task));
        if (threads_.empty() && inOrder_.size() > 1) start();
        while (inOrder_.size() > threadCount_ * kTasksPerThread) deliverFirst();
    }

    // Waits for the first result that is outstanding and delivers it. False when there is none.
    bool deliverNext() {
        if (inOrder_.empty()) return false;
        if (threads_.empty()) start();
        deliverFirst();
        return true;
    }

    // Waits for all results and delivers them.
    void finish() {
        while (deliverNext()) {
        }
    }

private:
    static constexpr std::size_t kTasksPerThread = 4;

    struct Job {
        explicit Job(Task given) : task(std::move(given)) {}
        Task task;
        Result result{};
        std::exception_ptr failure;
        bool done = false;
    };

    void add(Task task) {
        auto job = std::make_unique<Job>(std::move(task));
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(job.get());
        }
        inOrder_.push_back(std::move(job));
        workThere_.notify_one();
    }

    void start() {
        for (unsigned thread = 0; thread < threadCount_; ++thread) threads_.emplace_back([this] { run(); });
    }

    void run() {
        std::unique_lock lock(mutex_);
        for (;;) {
            workThere_.wait(lock, [this] { return stopping_ || !waiting_.empty(); });
            if (stopping_) return;
            Job& job = *waiting_.front();
            waiting_.pop_front();
            lock.unlock();
            perform(job);
            lock.lock();
            job.done = true;
            jobDone_.notify_one();
        }
    }

    void perform(Job& job) {
        try {
            job.result = work_(job.task);
        } catch (...) {
            job.failure = std::current_exception();
        }
    }

    void deliverFirst() {
        {
            std::unique_lock lock(mutex_);
            jobDone_.wait(lock, [this] { return inOrder_.front()->done; });
        }
        const std::unique_ptr<Job> job = std::move(inOrder_.front());
        inOrder_.pop_front();
        if (job->failure) std::rethrow_exception(job->failure);
        deliver_(std::move(job->result));
    }

    const unsigned threadCount_;
    const std::function<Result(const Task&)> work_;
    const std::function<void(Result)> deliver_;
    std::deque<std::unique_ptr<Job>> inOrder_; // of the owning thread: jobs not yet delivered
    std::mutex mutex_;                         // guards what follows, and what threads tell of jobs
    std::condition_variable workThere_;
    std::condition_variable jobDone_;
    std::deque<Job*> waiting_;
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

} // namespace corvane::scan
