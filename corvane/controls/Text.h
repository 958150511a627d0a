// Text of the library (UTF-8) and text of Qt (UTF-16).
#pragma once

#include <QString>
#include <QStringView>
#include <algorithm>
#include <string>
#include <string_view>

namespace corvane::controls {

inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string fromQt(const QString& text) { return text.toStdString(); }

// Number of characters (code points).
inline qsizetype characterCount(QStringView text) {
    return std::count_if(text.begin(), text.end(), [](QChar unit) { return !unit.isLowSurrogate(); });
}

} // namespace corvane::controls
