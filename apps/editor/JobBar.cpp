#include "apps/editor/JobBar.h"

#include "apps/editor/BackgroundJob.h"

#include <QHBoxLayout>
#include <QStyle>

namespace corvane::editor {

JobBar::JobBar(QWidget* parent) : QWidget(parent) {
    label_ = new QLabel(this);
    bar_ = new QProgressBar(this);
    bar_->setObjectName(QStringLiteral("jobProgress"));
    bar_->setMaximumWidth(fontMetrics().averageCharWidth() * 28);
    bar_->setTextVisible(false);
    cancel_ = new QToolButton(this);
    cancel_->setObjectName(QStringLiteral("jobCancel"));
    cancel_->setText(tr("Cancel"));
    cancel_->setFocusPolicy(Qt::StrongFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->addWidget(label_);
    row->addWidget(bar_);
    row->addWidget(cancel_);
    hide();
    connect(cancel_, &QToolButton::clicked, this, [this] {
        if (shown_) shown_->cancel();
    });
}

void JobBar::watch(BackgroundJob& job, const QString& text) {
    connect(&job, &BackgroundJob::progressed, this, [this, &job, text](qsizetype done, qsizetype total) {
        if (!job.isRunning()) return; // told before the end, heard behind it
        shown_ = &job;
        show(text, done, total);
    });
    connect(&job, &BackgroundJob::finished, this, [this, &job] {
        if (shown_ != &job || job.isRunning()) return;
        shown_ = nullptr;
        hide();
    });
}

void JobBar::show(const QString& text, qsizetype done, qsizetype total) {
    label_->setText(total > 0 ? tr("%1: %2 of %3").arg(text).arg(done).arg(total) : text);
    bar_->setRange(0, static_cast<int>(total));
    bar_->setValue(static_cast<int>(done));
    setVisible(true);
}

} // namespace corvane::editor
