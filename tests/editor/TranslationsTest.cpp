#include "apps/editor/Translations.h"

#include "apps/editor/ChangeTree.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QMenuBar>
#include <QTabBar>
#include <optional>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

QString openFilesText() {
    EditorWindow window;
    return window.action("openFiles").text().remove(QLatin1Char('&'));
}

// The letters that lead to a part of this widget, pages that are hidden included.
QStringList mnemonicsIn(const QWidget& whole) {
    QStringList found;
    const auto note = [&found](const QString& text) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty()) found << letter;
    };
    for (const auto* label : whole.findChildren<QLabel*>()) {
        if (label->buddy()) note(label->text());
    }
    for (const auto* button : whole.findChildren<QAbstractButton*>()) note(button->text());
    for (const auto* tabs : whole.findChildren<QTabBar*>()) {
        for (int at = 0; at < tabs->count(); ++at) note(tabs->tabText(at));
    }
    return found;
}

QStringList mnemonicsIn(const QMenu& menu) {
    QStringList found;
    for (const QAction* entry : menu.actions()) {
        const QString letter = QKeySequence::mnemonic(entry->text()).toString();
        if (!letter.isEmpty()) found << letter;
    }
    return found;
}

bool areDistinct(QStringList letters) { return letters.size() > 1 && letters.removeDuplicates() == 0; }

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

    void PreviewNamesTheFieldsInIt() {
        const Translations texts{QLocale(QLocale::German)};
        SaveResult result;
        result.path = "/a.mp3";
        result.plan.tags.push_back({"v2", "ID3v2.3.0", corvane::cli::ChangedTag::Fate::Kept, {}, {}});
        result.plan.tags.front().changes = {{"encoded-by", "Old", "New"}, {"unheard-of", "Old", "New"}};
        ChangeTree tree;
        tree.show({result});
        const QTreeWidgetItem& tag = *tree.topLevelItem(0)->child(0);
        QCOMPARE(tag.child(0)->text(0), QStringLiteral("Kodiert von"));
        QCOMPARE(tag.child(1)->text(0), QStringLiteral("unheard-of"));
        QVERIFY(textOf({result}).contains("Kodiert von: "));
    }

    void MnemonicsOfAMenuOrAPageAreDistinct_data() {
        QTest::addColumn<QString>("locale");
        QTest::newRow("German") << "de";
        QTest::newRow("English") << "en";
    }
    void MnemonicsOfAMenuOrAPageAreDistinct() {
        QFETCH(QString, locale);
        const Translations texts{QLocale(locale)};
        EditorWindow window;
        for (const QAction* entry : window->menuBar()->actions()) {
            const QStringList letters = mnemonicsIn(*entry->menu());
            QVERIFY2(areDistinct(letters), qPrintable(entry->text() + letters.join(QString())));
        }
        const auto& one = *window->findChild<FilePages*>();
        const auto& many = *window->findChild<ManyPages*>();
        for (const QWidget* page : {one.widget(0), one.widget(1), one.widget(2), many.widget(0), many.widget(1)}) {
            const QStringList letters = mnemonicsIn(*page);
            QVERIFY2(areDistinct(letters), qPrintable(letters.join(QString())));
        }
    }

    void TextsGoWithTheirObject() {
        std::optional<Translations> texts;
        texts.emplace(QLocale(QLocale::German));
        texts.reset();
        QCOMPARE(openFilesText(), QStringLiteral("Open files…"));
    }
};

static const bool kRegistered = corvane::test::registerTest<TranslationsTest>("TranslationsTest");
#include <TranslationsTest.moc>
