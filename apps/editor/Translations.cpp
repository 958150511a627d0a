#include "apps/editor/Translations.h"

#include "corvane/controls/Translation.h"
#include "corvane/controls/TranslationFile.h"

#include <QCoreApplication>
#include <QLibraryInfo>

// See Translation.cpp of the controls.
static void initTexts() { Q_INIT_RESOURCE(corvane_editor_translations); }

namespace corvane::editor {

// Qt's own texts only together with ours: a window in two languages is worse than one in English.
Translations::Translations(const QLocale& locale) {
    initTexts();
    if (!controls::loadTranslationFile(editor_, locale, QStringLiteral("corvane-editor"))) return;
    QCoreApplication::installTranslator(&editor_);
    if (controls::loadTranslation(controls_, locale)) QCoreApplication::installTranslator(&controls_);
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (qt_.load(QLocale(editor_.language()), QStringLiteral("qtbase"), QStringLiteral("_"), folder)) {
        QCoreApplication::installTranslator(&qt_);
    }
}

Translations::~Translations() {
    for (QTranslator* texts : {&qt_, &controls_, &editor_}) QCoreApplication::removeTranslator(texts);
}

} // namespace corvane::editor
