#include "apps/editor/RecentPaths.h"

namespace corvane::editor {

namespace {

constexpr auto kKey = "recentPaths";

} // namespace

QStringList RecentPaths::paths() const { return settings_.value(QLatin1String(kKey)).toStringList(); }

void RecentPaths::add(const QString& path) {
    QStringList kept = paths();
    kept.removeAll(path);
    kept.prepend(path);
    settings_.setValue(QLatin1String(kKey), kept.mid(0, kLimit));
}

void RecentPaths::remove(const QString& path) {
    QStringList kept = paths();
    kept.removeAll(path);
    settings_.setValue(QLatin1String(kKey), kept);
}

void RecentPaths::clear() { settings_.remove(QLatin1String(kKey)); }

} // namespace corvane::editor
