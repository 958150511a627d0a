// Shows how far a job is, and lets the user cancel it. Hidden while there is nothing to show.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <QWidget>

namespace corvane::editor {

class BackgroundJob;

class JobBar : public QWidget {
    Q_OBJECT

public:
    explicit JobBar(QWidget* parent = nullptr);

    // From now on each run of the job is shown, under this text.
    void watch(BackgroundJob& job, const QString& text);

private:
    void show(const QString& text, qsizetype done, qsizetype total);

    QLabel* label_;
    QProgressBar* bar_;
    QToolButton* cancel_;
    BackgroundJob* shown_ = nullptr; // the job that runs
};

} // namespace corvane::editor
