// Work that is done beside the user interface: on a thread of its own, one piece at a time, until it is done or
// cancelled. Its signals are emitted on that thread, so they reach widgets through the event loop.
#pragma once

#include <QObject>
#include <atomic>
#include <functional>
#include <thread>

namespace corvane::editor {

class BackgroundJob : public QObject {
    Q_OBJECT

public:
    explicit BackgroundJob(QObject* parent = nullptr) : QObject(parent) {}
    // A job that is still running is cancelled and waited for; every job does that in its own destructor.
    ~BackgroundJob() override { stop(); }

    bool isRunning() const { return running_; }
    // Asks the work to end soon. It tells `finished` as ever.
    virtual void cancel() { cancelled_ = true; }

Q_SIGNALS:
    // total is 0 while it is not known.
    void progressed(qsizetype done, qsizetype total);
    // On the thread of this object. complete is false when the work was cancelled.
    void finished(bool complete);

protected:
    // The work must ask isCancelled often. What it throws is logged, and ends it.
    void start(std::function<void()> work);
    bool isCancelled() const { return cancelled_; }
    // Cancels and waits. Nothing more is told of that run.
    void stop();

private:
    void end(int run);

    std::thread thread_;
    std::atomic<bool> cancelled_ = false;
    bool running_ = false;
    int run_ = 0; // what an earlier run still has to say is not heard
};

} // namespace corvane::editor
