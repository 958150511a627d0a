#include "corvane/controls/BatchString.h"

#include "corvane/controls/Text.h"

#include <QChar>
#include <QList>
#include <QString>

namespace corvane::controls {

namespace {

QString inProperCase(const QString& text) {
    QList<uint> characters = text.toLower().toUcs4();
    bool atStart = true;
    for (uint& character : characters) {
        if (QChar::isSpace(character)) {
            atStart = true;
        } else if (atStart && QChar::isLetterOrNumber(character)) {
            character = QChar::toTitleCase(character);
            atStart = false;
        }
    }
    return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size());
}

} // namespace

std::string BatchString::Convert() const {
    switch (conversion_) {
    case kUpperCase:
        return fromQt(toQt(text_).toUpper());
    case kLowerCase:
        return fromQt(toQt(text_).toLower());
    case kProperCase:
        return fromQt(inProperCase(toQt(text_)));
    default:
        return text_;
    }
}

} // namespace corvane::controls
