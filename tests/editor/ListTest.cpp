// What is done with the list itself: its order, reading it anew, taking files off it; and the window around it.
#include "apps/editor/Tools.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"

#include <QScreen>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

// Another program changes the title of a file.
void writeTitle(const Mp3File& file, const char* title) {
    const auto now = std::make_shared<const FileTags>(readTags(file.path()));
    FileTags wanted = *now;
    wanted.v2[Field::Title] = title;
    const SaveResult saved =
        saveFile({file.path(), now, std::make_shared<const FileTags>(std::move(wanted))}, SaveJob::Mode::Save);
    if (!saved.failure.empty()) qFatal("%s", saved.failure.c_str());
}

} // namespace

class ListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TracksAreNumberedInTheOrderInWhichPeopleCount() {
        EditorWindow window;
        const Mp3File tenth = taggedFile(window.folder(), "Track 10.mp3", "Ten"),
                      first = taggedFile(window.folder(), "Track 1.mp3", "One"),
                      second = taggedFile(window.folder(), "Track 2.mp3", "Two");
        QVERIFY(window.open({window.folder().path()}));
        QCOMPARE(window.cell(1, FileTable::Name), QStringLiteral("Track 2.mp3"));
        QVERIFY(window.select({0, 1, 2}));
        window->editing().applyNumbered(
            [](FileTags tags, int place) { return withTrack(std::move(tags), place + 1, 0); }, "numbering");
        QCOMPARE(window->session().wanted(second.path())->v2[Field::Track], std::string("2"));
        QCOMPARE(window->session().wanted(tenth.path())->v2[Field::Track], std::string("3"));
    }

    void FilesThatAreReadAgainShowWhatAnotherProgramHasWritten() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old"),
                      gone = taggedFile(window.folder(), "b.mp3", "Gone");
        QVERIFY(window.open({file.path(), gone.path()}));
        QVERIFY(window.select({0}));
        writeTitle(file, "Theirs");
        QVERIFY(::unlink(gone.path().c_str()) == 0);
        QCOMPARE(window.action("reload").shortcut(), QKeySequence(Qt::Key_F5));
        window.action("reload").trigger();
        QTRY_COMPARE(window.cell(0, FileTable::Title), QStringLiteral("Theirs"));
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("Theirs"));
        QTRY_VERIFY(!window->table().find(gone.path())->failure.empty());
        QCOMPARE(window->table().rowCount(), 2);
    }

    void ReadingAgainKeepsWhatIsNotSaved() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "er");
        const QString typed = window.field("txtTitle").text();
        window.action("reload").trigger();
        QTRY_VERIFY(!window->loader().isRunning());
        QCOMPARE(window.field("txtTitle").text(), typed);
        QCOMPARE(window.cell(0, FileTable::Title), typed);
        QVERIFY(window->isWindowModified());
    }

    void RemovedFileLeavesTheListAndStaysInItsFolder() {
        EditorWindow window;
        const Mp3File first = taggedFile(window.folder(), "a.mp3", "One"),
                      second = taggedFile(window.folder(), "b.mp3", "Two");
        QVERIFY(window.open({first.path(), second.path()}));
        QVERIFY(window.select({0}));
        window->list().view().setFocus();
        QTest::keyClick(&window->list().view(), Qt::Key_Delete);
        QCOMPARE(window->table().rowCount(), 1);
        QCOMPARE(window->table().path(0), second.path());
        QVERIFY(first.isUnchanged() && second.isUnchanged());
    }

    void DeleteKeyOfAFieldDeletesALetter() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        window.field("txtTitle").setFocus();
        window.field("txtTitle").setCursorPosition(0);
        QTest::keyClick(&window.field("txtTitle"), Qt::Key_Delete);
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("ne"));
        QCOMPARE(window->table().rowCount(), 1);
    }

    void RemovingAFileWithChangesAsks_data() {
        QTest::addColumn<bool>("isRemoved");
        QTest::newRow("left") << false;
        QTest::newRow("removed") << true;
    }
    void RemovingAFileWithChangesAsks() {
        QFETCH(bool, isRemoved);
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "er");
        answer(isRemoved ? QMessageBox::Discard : QMessageBox::Cancel);
        window.action("removeFromList").trigger();
        QCOMPARE(window->table().rowCount(), isRemoved ? 0 : 1);
        QCOMPARE(window->session().hasChanges(), !isRemoved);
        QVERIFY(file.isUnchanged());
        window.action("undo").trigger();
        QVERIFY(!window->session().hasChanges()); // nothing of a file that is not listed comes back
    }

    void WindowIsNotLargerThanTheScreen() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        const QSize screen = window->screen()->availableGeometry().size();
        QVERIFY(window->width() <= screen.width() && window->height() <= screen.height());
        window->close();
        window.settings().setValue("geometry", {}); // as of another, larger screen
        const MainWindow next(window.settings());
        QVERIFY(next.width() <= screen.width() && next.height() <= screen.height());
    }

    void TitleNamesWhatIsEditedAndElseTheProgram() {
        EditorWindow window;
        const Mp3File first = taggedFile(window.folder(), "a[*].mp3", "One"),
                      second = taggedFile(window.folder(), "b.mp3", "Two");
        QVERIFY(window.open({first.path(), second.path()}));
        QCOMPARE(window->windowTitle(), QStringLiteral("Corvane Editor[*]"));
        QVERIFY(window.select({0}));
        QCOMPARE(window->windowTitle(), QStringLiteral("a[*][*].mp3[*]"));
        QVERIFY(window.select({0, 1}));
        QCOMPARE(window->windowTitle(), QStringLiteral("2 files[*]"));
    }
};

static const bool kIsRegisteredListTest = corvane::test::registerTest<ListTest>("ListTest");
#include <ListTest.moc>
