#include "corvane/controls/Translation.h"

#include "corvane/controls/TranslationFile.h"

// The texts inside a static library are there only when somebody asks for them, outside of any namespace.
static void initTexts() { Q_INIT_RESOURCE(corvane_controls_translations); }

namespace corvane::controls {

bool loadTranslation(QTranslator& translator, const QLocale& locale) {
    initTexts();
    return loadTranslationFile(translator, locale, QStringLiteral("corvane-controls"));
}

} // namespace corvane::controls
