#include "apps/editor/Translations.h"

#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"

#include <QCheckBox>
#include <optional>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

QString openFilesText() {
    EditorWindow window;
    return window.action("openFiles").text().remove(QLatin1Char('&'));
}

} // namespace

class TranslationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WindowSpeaksTheLanguageOfTheLocale_data() {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("text");
        QTest::newRow("German") << "de_DE"
                                << "Dateien öffnen …";
        QTest::newRow("German of Austria") << "de_AT"
                                           << "Dateien öffnen …";
        QTest::newRow("English") << "en_GB"
                                 << "Open files…";
        QTest::newRow("none") << "C"
                              << "Open files…";
        QTest::newRow("one without a translation") << "fi_FI"
                                                   << "Open files…";
    }
    void WindowSpeaksTheLanguageOfTheLocale() {
        QFETCH(QString, locale);
        const Translations texts{QLocale(locale)};
        QTEST(openFilesText(), "text");
    }

    void ControlsOfTheWindowSpeakItToo() {
        const Translations texts{QLocale(QLocale::German)};
        EditorWindow window;
        QCOMPARE(child<QCheckBox>(*window, "chkID3v2").text().remove('&'), QStringLiteral("ID3v2-Tag"));
    }

    void TextsGoWithTheirObject() {
        std::optional<Translations> texts(QLocale(QLocale::German));
        texts.reset();
        QCOMPARE(openFilesText(), QStringLiteral("Open files…"));
    }
};

static const bool kRegistered = corvane::test::registerTest<TranslationsTest>("TranslationsTest");
#include <TranslationsTest.moc>
