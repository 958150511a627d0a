#include "apps/editor/EditSession.h"

#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::editor;

namespace {

FileTags tags(const char* title) {
    FileTags made;
    made.v2.present = true;
    made.v2[Field::Title] = title;
    return made;
}

std::string title(const EditSession& session, const char* path = "a") { return session.wanted(path)->v2[Field::Title]; }

} // namespace

class EditSessionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EditCanBeUndoneAndRedone() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        QVERIFY(session.isChanged("a"));
        QCOMPARE(title(session), std::string("New"));
        session.undoStack().undo();
        QVERIFY(!session.hasChanges());
        QCOMPARE(title(session), std::string("Old"));
        session.undoStack().redo();
        QCOMPARE(title(session), std::string("New"));
        QCOMPARE(session.inFile("a")->v2[Field::Title], std::string("Old"));
    }

    void TypingAWordIsOneStep() {
        EditSession session;
        session.learn("a", tags(""));
        for (const char* text : {"N", "Ne", "New"}) session.edit("edit", {{"a", tags(text)}}, "v2 0");
        QCOMPARE(session.undoStack().count(), 1);
        session.endStep();
        session.edit("edit", {{"a", tags("Newer")}}, "v2 0");
        QCOMPARE(session.undoStack().count(), 2);
        session.undoStack().undo();
        QCOMPARE(title(session), std::string("New"));
        session.undoStack().undo();
        QCOMPARE(title(session), std::string());
    }

    void WordThatIsTakenBackLeavesNoStep() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("Older")}}, "v2 0");
        session.edit("edit", {{"a", tags("Old")}}, "v2 0");
        QCOMPARE(session.undoStack().count(), 0);
        QVERIFY(!session.hasChanges());
    }

    void EditOfManyFilesIsOneStep() {
        EditSession session;
        session.learn("a", tags("A"));
        session.learn("b", tags("B"));
        const QSignalSpy changed(&session, &EditSession::changed);
        session.edit("edit", {{"a", tags("Same")}, {"b", tags("Same")}});
        QCOMPARE(changed.count(), 1);
        QCOMPARE(session.changedPaths(), (std::vector<std::string>{"a", "b"}));
        session.undoStack().undo();
        QCOMPARE(title(session, "b"), std::string("B"));
    }

    void EditThatChangesNothingIsNoStep() {
        EditSession session;
        session.learn("a", tags("A"));
        session.edit("edit", {{"a", tags("A")}, {"unknown", tags("B")}});
        QCOMPARE(session.undoStack().count(), 0);
    }

    void RevertIsAStepItself() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.revert({"a"});
        QVERIFY(!session.hasChanges());
        session.undoStack().undo();
        QCOMPARE(title(session), std::string("New"));
    }

    void ValuesOfATagThatIsNotWantedAreNoChange() {
        EditSession session;
        session.learn("a", FileTags());
        FileTags typed = tags("Typed");
        session.edit("edit", {{"a", typed}});
        typed.v2.present = false;
        session.edit("edit", {{"a", typed}});
        QVERIFY(!session.hasChanges());
    }

    void FileWithChangesKeepsThemWhenItIsReadAgain() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.learn("a", tags("Somebody else's"));
        QCOMPARE(title(session), std::string("New"));
        QCOMPARE(session.inFile("a")->v2[Field::Title], std::string("Old"));
    }

    void StepsEndWhenSomebodyElseChangesAFile() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.undoStack().undo();
        session.learn("a", tags("Old"));
        QVERIFY(session.undoStack().canRedo());
        session.learn("a", tags("Somebody else's"));
        QVERIFY(!session.undoStack().canRedo());
    }

    void SavedFilesAreForgottenWithAllSteps() {
        EditSession session;
        QSignalSpy dirty(&session, &EditSession::dirtyChanged);
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.forget({"a"});
        QVERIFY(!session.hasChanges());
        QVERIFY(!session.undoStack().canUndo());
        QCOMPARE(dirty.count(), 2);
        QCOMPARE(dirty.back().front().toBool(), false);
    }

    void FileThatWasSavedInPartKeepsWhatIsLeft() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.learnAgain({{"a", tags("Between")}});
        QVERIFY(session.isChanged("a"));
        QSignalSpy dirty(&session, &EditSession::dirtyChanged), changed(&session, &EditSession::changed);
        session.learnAgain({{"a", tags("New")}, {"unknown", tags("New")}});
        QVERIFY(!session.isChanged("a"));
        QCOMPARE(dirty.count(), 1);
        QCOMPARE(changed.count(), 1);
    }

    void SomebodyElsesValuesAreNotWantedOtherwise() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        FileTags theirs = tags("Old");
        theirs.v2[Field::Artist] = "Theirs";
        theirs.v1.present = true;
        theirs.v1[Field::Title] = "Theirs";
        session.learnAgain({{"a", theirs}});
        FileTags expected = theirs;
        expected.v2[Field::Title] = "New";
        QCOMPARE(*session.wanted("a"), expected);
        QVERIFY(!session.undoStack().canUndo());
    }

    void EditOfATagThatSomebodyElseRemovesStaysWanted() {
        EditSession session;
        FileTags old = tags("Old");
        old.v2[Field::Artist] = "Artist";
        session.learn("a", old);
        FileTags edited = old;
        edited.v2[Field::Title] = "New";
        session.edit("edit", {{"a", edited}});
        session.learnAgain({{"a", FileTags()}});
        QCOMPARE(*session.wanted("a"), tags("New"));
    }

    void RemovalStaysWanted() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", FileTags()}});
        session.learnAgain({{"a", tags("Theirs")}});
        QVERIFY(session.isChanged("a"));
        QVERIFY(!session.wanted("a")->v2.present);
    }
};

static const bool kRegistered = corvane::test::registerTest<EditSessionTest>("EditSessionTest");
#include <EditSessionTest.moc>
