// Paths, which are bytes, as people read them.
#pragma once

#include <QFile>
#include <QString>
#include <QTextDocument>
#include <QUrl>
#include <string>

namespace corvane::editor {

inline QString shownPath(const std::string& path) { return QFile::decodeName(QByteArray::fromStdString(path)); }
inline QString nameOf(const std::string& path) { return shownPath(path.substr(path.find_last_of('/') + 1)); }
inline QString folderOf(const std::string& path) {
    const std::size_t separator = path.find_last_of('/');
    return separator == std::string::npos ? QString() : shownPath(path.substr(0, separator == 0 ? 1 : separator));
}
inline std::string pathOf(const QString& path) { return QFile::encodeName(path).toStdString(); }
// The bytes that a URL of a file stands for, whether they are text or not.
inline std::string pathOf(const QUrl& url) {
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()).toStdString();
}
// A text for tool tips and message boxes, which would take "<b>" in a name for a mark.
inline QString asWritten(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    return text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"));
}
// Whether the text tells the path exactly.
inline bool isText(const std::string& path) { return pathOf(shownPath(path)) == path; }

} // namespace corvane::editor
