// The keyboard focus, the cursor and the selection while what is edited is shown anew.
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"

#include <QCheckBox>
#include <QScrollBar>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

// What a user sees of a text box that is being edited.
struct Caret {
    QWidget* widget;
    int anchor, position;

    bool operator==(const Caret&) const = default;
};

Caret caretOf(QWidget* widget) {
    if (const auto* line = qobject_cast<QLineEdit*>(widget)) {
        const bool isBackward = line->hasSelectedText() && line->cursorPosition() == line->selectionStart();
        const int start = line->hasSelectedText() ? line->selectionStart() : line->cursorPosition();
        const int end = line->hasSelectedText() ? line->selectionEnd() : start;
        return isBackward ? Caret{widget, end, start} : Caret{widget, start, end};
    }
    if (const auto* page = qobject_cast<QPlainTextEdit*>(widget)) {
        return {widget, page->textCursor().anchor(), page->textCursor().position()};
    }
    return {widget, 0, 0};
}

void select(QWidget& widget, int anchor, int position) {
    if (auto* line = qobject_cast<QLineEdit*>(&widget)) return line->setSelection(anchor, position - anchor);
    auto& page = *qobject_cast<QPlainTextEdit*>(&widget);
    QTextCursor cursor = page.textCursor();
    cursor.setPosition(anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    page.setTextCursor(cursor);
}

QString textOf(QWidget& widget) {
    if (const auto* line = qobject_cast<QLineEdit*>(&widget)) return line->text();
    return qobject_cast<QPlainTextEdit*>(&widget)->toPlainText();
}

// A window with one or two files that are edited, and a box of it that has the focus and a text.
struct EditedBox {
    EditorWindow window;
    Mp3File first = withLyrics("a.mp3");
    Mp3File second = withLyrics("b.mp3");
    QWidget* box = nullptr;

    Mp3File withLyrics(const std::string& name) {
        Id3v2Builder tag;
        tag.text("TIT2", "Old title").frame("USLT", commentFrame("", "Some lyrics")).padding(500);
        return {window.folder(), tag.done(), name};
    }
    bool open(const QString& name, int files) {
        if (!window.open({first.path(), second.path()})) return false;
        if (!(files == 1 ? window.select({0}) : window.select({0, 1}))) return false;
        const bool isRecord = name.startsWith("ID3v1 ");
        if (isRecord) window->findChild<FilePages*>()->setCurrentIndex(1);
        for (QWidget* found : window->findChildren<QWidget*>(name.mid(isRecord ? 6 : 0))) {
            if (found->isVisible()) box = found;
        }
        if (!box) return false;
        box->setFocus();
        return window->focusWidget() == box;
    }
};

} // namespace

class FocusTest : public QObject {
    Q_OBJECT

private:
    static void addBoxes() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("files");
        QTest::newRow("line") << "txtTitle" << 1;
        QTest::newRow("lyrics") << "txtLyrics" << 1;
        QTest::newRow("ID3v1") << "ID3v1 txtTitle" << 1;
        QTest::newRow("many files") << "many0" << 2;
    }

private Q_SLOTS:
    void UndoAndRedoLeaveTheFocusWhereItIs_data() { addBoxes(); }
    void UndoAndRedoLeaveTheFocusWhereItIs() {
        QFETCH(QString, name);
        QFETCH(int, files);
        EditedBox edited;
        type(edited.window->list().words(), "mp3");
        QVERIFY(edited.open(name, files));
        const QString before = textOf(*edited.box);
        QTest::keyClicks(edited.box, "ab");
        const QString typed = textOf(*edited.box);
        QVERIFY(typed != before);
        for (int round = 0; round < 2; ++round) {
            QTest::keyClick(edited.window->focusWidget(), Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(edited.window->focusWidget(), edited.box);
            QCOMPARE(textOf(*edited.box), before);
            QTest::keyClick(edited.window->focusWidget(), Qt::Key_Y, Qt::ControlModifier);
            QCOMPARE(edited.window->focusWidget(), edited.box);
            QCOMPARE(textOf(*edited.box), typed);
        }
        QTest::keyClick(edited.window->focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(edited.window->focusWidget(), Qt::Key_Z, Qt::ControlModifier); // one more than there are steps
        QCOMPARE(edited.window->list().words().text(), QStringLiteral("mp3"));
    }

    void SaveLeavesFocusCursorAndSelection_data() { addBoxes(); }
    void SaveLeavesFocusCursorAndSelection() {
        QFETCH(QString, name);
        QFETCH(int, files);
        EditedBox edited;
        QVERIFY(edited.open(name, files));
        QTest::keyClicks(edited.box, "abcdef");
        select(*edited.box, 4, 2);
        const Caret before = caretOf(edited.box);
        QCOMPARE(before.anchor, 4);
        QTest::keyClick(edited.box, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(edited.window->saving().isRunning());
        QVERIFY(edited.window.waitForSave());
        QVERIFY(!edited.window->isWindowModified());
        QCOMPARE(edited.window->focusWidget(), edited.box);
        QVERIFY(caretOf(edited.box) == before);
        const QString saved = textOf(*edited.box);
        QTest::keyClicks(edited.window->focusWidget(), "X");
        QCOMPARE(textOf(*edited.box), QString(saved).replace(2, 2, "X"));
        QVERIFY(edited.window->isWindowModified());
    }

    void FailedSaveLeavesThemToo() {
        EditedBox edited;
        QVERIFY(edited.open("txtTitle", 1));
        QTest::keyClicks(edited.box, "abcdef");
        select(*edited.box, 1, 3);
        QVERIFY(::unlink(edited.first.path().c_str()) == 0);
        QTest::keyClick(edited.box, Qt::Key_S, Qt::ControlModifier);
        QDialog* report = edited.window.waitForDialog("report");
        QVERIFY(report != nullptr);
        report->reject();
        edited.window->activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), edited.box);
        QVERIFY((caretOf(edited.box) == Caret{edited.box, 1, 3}));
    }

    void PreviewLeavesThemToo() {
        EditedBox edited;
        QVERIFY(edited.open("txtLyrics", 1));
        QTest::keyClicks(edited.box, "abcdef");
        select(*edited.box, 1, 3);
        QTest::keyClick(edited.box, Qt::Key_P, Qt::ControlModifier);
        QDialog* preview = edited.window.waitForDialog("preview");
        QVERIFY(preview != nullptr);
        preview->reject();
        edited.window->activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), edited.box);
        QVERIFY((caretOf(edited.box) == Caret{edited.box, 1, 3}));
    }

    void RevertLeavesThemAsFarAsTheTextGoes() {
        EditedBox edited;
        QVERIFY(edited.open("txtTitle", 1));
        QTest::keyClick(edited.box, Qt::Key_End);
        QTest::keyClicks(edited.box, " and more");
        select(*edited.box, 4, 15);
        QTest::keyClick(edited.box, Qt::Key_R, Qt::ControlModifier);
        QCOMPARE(textOf(*edited.box), QStringLiteral("Old title"));
        QVERIFY((caretOf(edited.window->focusWidget()) == Caret{edited.box, 4, 9}));
    }

    void FocusStaysOnThePageWhenItsFieldCannotHaveItAnyMore() {
        EditorWindow window;
        const Mp3File file = plainFile(window.folder(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        auto& pages = *window->findChild<FilePages*>();
        pages.setCurrentIndex(1);
        auto& box = child<QCheckBox>(pages, "chkID3v1");
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
        QLineEdit& title = window.field("txtTitle");
        title.setFocus();
        QVERIFY(title.hasFocus());
        QTest::keyClick(&title, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!title.isEnabled());
        QCOMPARE(window->focusWidget(), static_cast<QWidget*>(&box));
    }

    void LongLyricsStayWhereTheyAreScrolledTo() {
        EditedBox edited;
        QVERIFY(edited.open("txtLyrics", 1));
        auto& page = *qobject_cast<QPlainTextEdit*>(edited.box);
        page.setPlainText(QStringLiteral("line\n").repeated(200));
        QTest::keyClick(edited.box, Qt::Key_End, Qt::ControlModifier);
        QTest::keyClicks(edited.box, "x");
        const int scrolled = page.verticalScrollBar()->value();
        QVERIFY(scrolled > 0);
        QTest::keyClick(edited.box, Qt::Key_S, Qt::ControlModifier);
        QVERIFY(edited.window.waitForSave());
        QCOMPARE(page.verticalScrollBar()->value(), scrolled);
    }
};

static const bool kIsRegisteredFocusTest = corvane::test::registerTest<FocusTest>("FocusTest");
#include <FocusTest.moc>
