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

    void StepsLeaveAloneWhatSomebodyElseHasChanged() {
        EditSession session;
        session.learn("a", tags("Old"));
        FileTags edited = tags("New");
        edited.v2[Field::Artist] = "Mine";
        session.edit("edit", {{"a", edited}});
        session.undoStack().undo();
        session.learn("a", tags("Theirs"));
        session.undoStack().redo();
        QCOMPARE(title(session), std::string("Theirs"));
        QCOMPARE(session.wanted("a")->v2[Field::Artist], std::string("Mine"));
    }

    void SavedFilesKeepTheirSteps() {
        EditSession session;
        QSignalSpy dirty(&session, &EditSession::dirtyChanged);
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.learnAgain({{.path = "a", .now = tags("New"), .isSaved = true}});
        QVERIFY(!session.hasChanges());
        QCOMPARE(dirty.count(), 2);
        session.undoStack().undo();
        QCOMPARE(title(session), std::string("Old"));
        QCOMPARE(session.inFile("a")->v2[Field::Title], std::string("New"));
        QVERIFY(session.isChanged("a"));
        session.undoStack().redo();
        QVERIFY(!session.hasChanges());
    }

    void ForgottenFilesLoseTheirPartOfTheSteps() {
        EditSession session;
        QSignalSpy dirty(&session, &EditSession::dirtyChanged);
        for (const char* path : {"a", "b"}) session.learn(path, tags("Old"));
        session.edit("edit", {{"a", tags("New")}, {"b", tags("New")}});
        session.forget({"a"});
        QVERIFY(!session.knows("a"));
        session.learn("a", tags("Read again"));
        session.undoStack().undo();
        QCOMPARE(title(session, "b"), std::string("Old"));
        QCOMPARE(title(session, "a"), std::string("Read again"));
        session.forget({"b"});
        QCOMPARE(dirty.count(), 2);
        QCOMPARE(dirty.back().front().toBool(), false);
    }

    void SaveOfOneTagAloneLeavesTheStepsOfBoth() {
        EditSession session;
        FileTags old = tags("Old");
        old.v1 = old.v2;
        FileTags edited = tags("New");
        edited.v1 = edited.v2;
        session.learn("a", old);
        session.edit("edit", {{"a", edited}});
        FileTags half = edited;
        half.v1 = old.v1;
        session.learnAgain({{.path = "a", .now = half}}); // the record could not be written
        QCOMPARE(*session.wanted("a"), edited);
        session.undoStack().undo();
        QCOMPARE(*session.wanted("a"), old);
        QVERIFY(session.isChanged("a"));
    }

    void FileThatWasSavedInPartKeepsWhatIsLeft() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", tags("New")}});
        session.learnAgain({{.path = "a", .now = tags("Between")}});
        QVERIFY(session.isChanged("a"));
        QSignalSpy dirty(&session, &EditSession::dirtyChanged), changed(&session, &EditSession::changed);
        session.learnAgain({{.path = "a", .now = tags("New")}, {.path = "unknown", .now = tags("New")}});
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
        session.learnAgain({{.path = "a", .now = theirs}});
        FileTags expected = theirs;
        expected.v2[Field::Title] = "New";
        QCOMPARE(*session.wanted("a"), expected);
        session.undoStack().undo();
        QCOMPARE(*session.wanted("a"), theirs);
        QVERIFY(!session.isChanged("a"));
    }

    void EditOfATagThatSomebodyElseRemovesStaysWanted() {
        EditSession session;
        FileTags old = tags("Old");
        old.v2[Field::Artist] = "Artist";
        session.learn("a", old);
        FileTags edited = old;
        edited.v2[Field::Title] = "New";
        session.edit("edit", {{"a", edited}});
        session.learnAgain({{.path = "a", .now = FileTags()}});
        QCOMPARE(*session.wanted("a"), tags("New"));
    }

    void RemovalStaysWanted() {
        EditSession session;
        session.learn("a", tags("Old"));
        session.edit("edit", {{"a", FileTags()}});
        session.learnAgain({{.path = "a", .now = tags("Theirs")}});
        QVERIFY(session.isChanged("a"));
        QVERIFY(!session.wanted("a")->v2.present);
    }
};

static const bool kIsRegisteredEditSessionTest = corvane::test::registerTest<EditSessionTest>("EditSessionTest");
#include <EditSessionTest.moc>
