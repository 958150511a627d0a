// The files and folders that were opened last, kept in the user's settings.
#pragma once

#include <QSettings>
#include <QStringList>

namespace corvane::editor {

class RecentPaths {
public:
    static constexpr qsizetype kLimit = 10;

    // The settings must outlive this object.
    explicit RecentPaths(QSettings& settings) : settings_(settings) {}

    // The last one first.
    QStringList paths() const;
    void add(const QString& path);
    void remove(const QString& path);
    void clear();

private:
    QSettings& settings_;
};

} // namespace corvane::editor
