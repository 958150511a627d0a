// The icons of menus and tool bar. They are our own, in tones that stand out on light and dark windows alike, so that
// they belong together on every desktop.
#pragma once

#include <QIcon>
#include <QString>

namespace corvane::editor {

// By the name of its file, without the ending.
inline QIcon iconOf(const char* name) { return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name))); }

} // namespace corvane::editor
