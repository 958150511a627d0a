// The texts of the program in the language of the user: those of Qt, of the controls and of the editor itself. They are
// installed for as long as this object lives.
#pragma once

#include <QLocale>
#include <QTranslator>

namespace corvane::editor {

class Translations {
public:
    explicit Translations(const QLocale& locale);
    ~Translations();
    Translations(const Translations&) = delete;
    Translations& operator=(const Translations&) = delete;

private:
    QTranslator qt_, controls_, editor_;
};

} // namespace corvane::editor
