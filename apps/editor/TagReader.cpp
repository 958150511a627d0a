#include "apps/editor/TagReader.h"

#include <QElapsedTimer>
#include <exception>

namespace corvane::editor {

namespace {

constexpr qint64 kReadReportTime = 40; // milliseconds between two words about the progress

} // namespace

TagReader::~TagReader() { stop(); }

void TagReader::read(std::vector<std::string> paths) {
    stop();
    tags_.clear();
    failureCount_ = 0;
    start([this, paths = std::move(paths)] { work(paths); });
}

void TagReader::work(const std::vector<std::string>& paths) {
    const auto total = static_cast<qsizetype>(paths.size());
    QElapsedTimer sinceTold;
    sinceTold.start();
    for (std::size_t at = 0; at < paths.size() && !isCancelled(); ++at) {
        try {
            tags_.emplace_back(paths[at], readTags(paths[at]));
        } catch (const std::exception&) {
            ++failureCount_; // the list shows why it cannot be read
        }
        if (sinceTold.elapsed() < kReadReportTime) continue;
        Q_EMIT progressed(static_cast<qsizetype>(at) + 1, total);
        sinceTold.restart();
    }
}

} // namespace corvane::editor
