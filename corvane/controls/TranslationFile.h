// Finding the translation of a part of Corvane among the resources of a program.
#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>

namespace corvane::controls {

// The first of the locale's languages that the texts called `name` are translated into, unless English, in which they
// are written, stands before it.
inline bool loadTranslationFile(QTranslator& translator, const QLocale& locale, const QString& name) {
    for (const QString& language : locale.uiLanguages()) {
        const QLocale::Language spoken = QLocale(language).language();
        if (spoken == QLocale::English || spoken == QLocale::C) return false;
        const QString file =
            QStringLiteral(":/corvane/translations/%1_%2.qm").arg(name, QLocale::languageToCode(spoken));
        if (translator.load(file)) return true;
    }
    return false;
}

} // namespace corvane::controls
