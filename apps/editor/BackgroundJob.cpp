#include "apps/editor/BackgroundJob.h"

#include "corvane/controls/FailureWall.h"

#include <utility>

namespace corvane::editor {

void BackgroundJob::start(std::function<void()> work) {
    stop();
    cancelled_ = false;
    running_ = true;
    thread_ = std::thread([this, work = std::move(work), run = ++run_] {
        controls::behindWall("BackgroundJob", work);
        QMetaObject::invokeMethod(
            this, [this, run] { end(run); }, Qt::QueuedConnection);
    });
}

void BackgroundJob::end(int run) {
    if (run != run_ || !running_) return;
    if (thread_.joinable()) thread_.join();
    running_ = false;
    Q_EMIT finished(!cancelled_);
}

void BackgroundJob::stop() {
    cancelled_ = true;
    if (thread_.joinable()) thread_.join();
    running_ = false;
}

} // namespace corvane::editor
