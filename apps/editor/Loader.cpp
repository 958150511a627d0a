#include "apps/editor/Loader.h"

#include "corvane/controls/Text.h"
#include "corvane/core/FirstTag.h"

#include "apps/editor/NaturalOrder.h"
#include "apps/scan/FileWalk.h"

#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <exception>
#include <set>
#include <utility>

namespace corvane::editor {

namespace {

constexpr qsizetype kFirstBatch = 100; // files; enough for the first screen
constexpr qint64 kBatchTime = 60;      // milliseconds between two batches

QString shown(std::string_view path) {
    return QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
}

// Why a file is not taken; "" when it is. One that cannot be read is, and its row says why it cannot.
std::string obstacleToRow(const std::string& path) {
    if (scan::hasMp3Name(path)) return {};
    try {
        return obstacleToFirstTag(path);
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace

Loader::Loader(QObject* parent) : BackgroundJob(parent) {
    connect(this, &Loader::finished, this, [this] {
        std::vector<std::string> next = std::exchange(waiting_, {});
        if (!next.empty()) load(std::move(next));
    });
}

Loader::~Loader() { stop(); }

void Loader::load(std::vector<std::string> paths) {
    if (isRunning()) {
        waiting_.insert(waiting_.end(), paths.begin(), paths.end());
    } else {
        isAbandoned_ = false;
        start([this, roots = std::move(paths)] { work(roots); });
    }
}

void Loader::cancel() {
    waiting_.clear();
    BackgroundJob::cancel();
}

void Loader::abandon() {
    cancel();
    isAbandoned_ = true;
}

// On the thread of this object, where abandon is called too: what comes behind it is not told.
void Loader::tell(std::function<void()> news) {
    QMetaObject::invokeMethod(
        this,
        [this, news = std::move(news)] {
            if (!isAbandoned_) news();
        },
        Qt::QueuedConnection);
}

void Loader::work(const std::vector<std::string>& roots) {
    Q_EMIT progressed(0, 0);
    const std::vector<std::string> paths = find(roots);
    read(paths);
    findLeftovers(paths);
}

std::vector<std::string> Loader::find(const std::vector<std::string>& roots) {
    scan::FileWalk walk(roots, [this](std::string_view folder, std::string_view reason) {
        tell([this, name = shown(folder), why = controls::toQt(reason)] { Q_EMIT refused(name, why); });
    });
    std::vector<std::string> paths;
    for (auto path = walk.next(); path && !isCancelled(); path = walk.next()) {
        const std::string obstacle = obstacleToRow(*path);
        if (obstacle.empty()) {
            paths.push_back(*std::move(path));
        } else {
            tell([this, name = shown(*path), why = controls::toQt(obstacle)] { Q_EMIT ignored(name, why); });
        }
    }
    std::sort(paths.begin(), paths.end(), [](const std::string& one, const std::string& other) {
        return compareNaturally(std::string_view(one), std::string_view(other)) < 0;
    });
    return paths;
}

void Loader::read(const std::vector<std::string>& paths) {
    const auto total = static_cast<qsizetype>(paths.size());
    FileRows batch;
    qsizetype done = 0;
    QElapsedTimer sinceBatch;
    sinceBatch.start();
    for (const std::string& path : paths) {
        if (isCancelled()) break;
        batch.push_back(readRow(path));
        ++done;
        if (done != kFirstBatch && done != total && sinceBatch.elapsed() < kBatchTime) continue;
        tell([this, rows = std::exchange(batch, {})] { Q_EMIT loaded(rows); });
        Q_EMIT progressed(done, total);
        sinceBatch.restart();
    }
    if (!batch.empty()) tell([this, batch] { Q_EMIT loaded(batch); });
}

void Loader::findLeftovers(const std::vector<std::string>& paths) {
    std::set<std::string> folders;
    for (const std::string& path : paths) folders.insert(path.substr(0, path.find_last_of('/') + 1));
    std::vector<std::string> found;
    for (const std::string& folder : folders) {
        if (isCancelled()) return;
        const auto here = leftoversIn(folder, leftoverAge_);
        found.insert(found.end(), here.begin(), here.end());
    }
    if (!found.empty()) tell([this, found] { Q_EMIT leftoversFound(found); });
}

} // namespace corvane::editor
