// The texts of the controls in the language of the user. The library holds them; a host asks for them before it makes
// its first control:
//
//     QTranslator controls;
//     if (corvane::controls::loadTranslation(controls, QLocale())) QCoreApplication::installTranslator(&controls);
#pragma once

#include "corvane/controls/Export.h"

#include <QLocale>
#include <QTranslator>

namespace corvane::controls {

// False when there are none for the languages of the locale, or English, in which the texts are written, comes first.
CORVANE_CONTROLS_EXPORT bool loadTranslation(QTranslator& translator, const QLocale& locale);

} // namespace corvane::controls
