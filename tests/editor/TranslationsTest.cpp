#include "apps/editor/Translations.h"

#include "apps/editor/About.h"
#include "apps/editor/CaseDialog.h"
#include "apps/editor/ChangeDialog.h"
#include "apps/editor/ChangeTree.h"
#include "apps/editor/GenreDialog.h"
#include "apps/editor/NumberDialog.h"
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

QStringList mnemonicsIn(const QMenuBar& bar) {
    QStringList found;
    for (const QAction* entry : bar.actions()) found << QKeySequence::mnemonic(entry->text()).toString();
    return found;
}

// Desktops give these buttons their first letters, in whatever language.
QStringList ofStandardButtons(const QDialog& dialog) {
    QStringList found;
    for (const auto* box : dialog.findChildren<QDialogButtonBox*>()) {
        for (const QAbstractButton* button : box->buttons()) {
            const bool hasNone = QKeySequence::mnemonic(button->text()).isEmpty();
            if (hasNone) found << QStringLiteral("Alt+") + button->text().left(1).toUpper();
        }
    }
    found.removeDuplicates(); // how they differ among themselves is for the desktop
    return found;
}

bool areDistinct(QStringList letters) { return letters.removeDuplicates() == 0; }

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

    void MnemonicsOfAPageAndOfTheMenuBarAreDistinct_data() {
        QTest::addColumn<QString>("locale");
        QTest::newRow("German") << "de";
        QTest::newRow("English") << "en";
    }
    void MnemonicsOfAPageAndOfTheMenuBarAreDistinct() {
        QFETCH(QString, locale);
        const Translations texts{QLocale(locale)};
        EditorWindow window;
        const QStringList bar = mnemonicsIn(*window->menuBar());
        QCOMPARE(bar.size(), window->menuBar()->actions().size());
        auto& one = *window->findChild<FilePages*>();
        auto& many = *window->findChild<ManyPages*>();
        for (QTabWidget* pages : {static_cast<QTabWidget*>(&one), static_cast<QTabWidget*>(&many)}) {
            for (int at = 0; at < pages->count(); ++at) {
                const QStringList letters = bar + mnemonicsIn(*pages->widget(at));
                QVERIFY2(areDistinct(letters), qPrintable(pages->tabText(at) + ": " + letters.join(QString())));
            }
        }
    }

    void MnemonicsOfAMenuAreDistinct_data() { MnemonicsOfAPageAndOfTheMenuBarAreDistinct_data(); }
    void MnemonicsOfAMenuAreDistinct() {
        QFETCH(QString, locale);
        const Translations texts{QLocale(locale)};
        EditorWindow window;
        const auto menus = window->findChildren<QMenu*>();
        QVERIFY(menus.size() > 8); // those of the bar, and those of the text boxes
        for (const QMenu* menu : menus) {
            const QStringList letters = mnemonicsIn(*menu);
            QVERIFY2(areDistinct(letters),
                     qPrintable(menu->title() + menu->objectName() + ": " + letters.join(QString())));
        }
    }

    void MnemonicsOfADialogAreDistinct_data() { MnemonicsOfAPageAndOfTheMenuBarAreDistinct_data(); }
    void MnemonicsOfADialogAreDistinct() {
        QFETCH(QString, locale);
        const Translations texts{QLocale(locale)};
        QWidget window;
        showAbout(window);
        const QList<QDialog*> dialogs{new CaseDialog(&window),
                                      new NumberDialog(3, &window),
                                      new GenreDialog(&window),
                                      new ChangeDialog({}, SaveJob::Mode::Preview, &window),
                                      new ChangeDialog({}, SaveJob::Mode::Save, &window),
                                      window.findChild<QDialog*>("about")};
        for (const QDialog* dialog : dialogs) {
            const QStringList letters = mnemonicsIn(*dialog) + ofStandardButtons(*dialog);
            QVERIFY2(areDistinct(letters), qPrintable(dialog->windowTitle() + ": " + letters.join(QString())));
        }
    }

    void TextsGoWithTheirObject() {
        std::optional<Translations> texts;
        texts.emplace(QLocale(QLocale::German));
        texts.reset();
        QCOMPARE(openFilesText(), QStringLiteral("Open files…"));
    }
};

static const bool kIsRegisteredTranslationsTest = corvane::test::registerTest<TranslationsTest>("TranslationsTest");
#include <TranslationsTest.moc>
