// Steps that are undone and redone after the files have been saved.
#include "apps/editor/OpenedFile.h"
#include "apps/editor/Tools.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"
#include "tests/support/ImageBuilder.h"

using namespace corvane::editor;
using namespace corvane::test;

namespace {

using Change = std::function<void(FileTags&)>;

Change titled(const char* title) {
    return [title](FileTags& tags) { tags.v2[Field::Title] = title; };
}

// What another program does to a file.
std::string changeElsewhere(const std::string& path, const Change& change) {
    const FileTags tags = readTags(path);
    FileTags wanted = tags;
    change(wanted);
    const auto shared = [](const FileTags& values) { return std::make_shared<const FileTags>(values); };
    return saveFile({path, shared(tags), shared(wanted)}, SaveJob::Mode::Save).failure;
}

// A window with one file whose title has been changed and saved.
struct SavedFile {
    EditorWindow window;
    Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");

    bool open() { return window.open({file.path()}) && window.select({0}); }
    bool titleAndSave() {
        if (!open()) return false;
        window.field("txtTitle").selectAll();
        type(window.field("txtTitle"), "New");
        return save() && title() == "New";
    }
    bool save() {
        window.action("save").trigger();
        return window.waitForSave() && audioIsUntouchedIn(file);
    }
    std::string title() const { return readTags(file.path()).v2[Field::Title]; }
    TagsPointer wanted() { return window->session().wanted(file.path()); }
    corvane::ByteArray picture() const {
        OpenedFile opened(file.path());
        const auto stored = opened.id3v2Tag(opened.tags().v2)->Picture();
        return stored ? corvane::ByteArray(stored->bytes().begin(), stored->bytes().end()) : corvane::ByteArray();
    }
};

} // namespace

class UndoAfterSaveTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void UndoMakesTheEarlierValuesPendingAgain() {
        SavedFile saved;
        QVERIFY(saved.titleAndSave());
        QVERIFY(saved.window.action("undo").isEnabled());
        saved.window.action("undo").trigger();
        QVERIFY(saved.window->isWindowModified());
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("Old"));
        QCOMPARE(saved.window.cell(0, FileTable::Title), QStringLiteral("Old"));
        QCOMPARE(saved.title(), std::string("New"));
        saved.window.action("redo").trigger();
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("undo").trigger();
        QVERIFY(saved.save());
        QCOMPARE(saved.title(), std::string("Old"));
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("redo").trigger();
        QVERIFY(saved.save());
        QCOMPARE(saved.title(), std::string("New"));
    }

    void TypingAfterASaveIsAStepOfItsOwn() {
        SavedFile saved;
        QVERIFY(saved.titleAndSave());
        type(saved.window.field("txtTitle"), "er");
        saved.window.action("undo").trigger();
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("New"));
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("undo").trigger();
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("Old"));
    }

    void SaveThatFailsKeepsTheSteps() {
        SavedFile saved;
        QVERIFY(saved.open());
        saved.window.field("txtTitle").selectAll();
        type(saved.window.field("txtTitle"), "New");
        const std::string path = saved.file.path();
        QVERIFY(::rename(path.c_str(), (path + ".moved").c_str()) == 0);
        saved.window.action("save").trigger();
        QDialog* report = saved.window.waitForDialog("report");
        QVERIFY(report != nullptr);
        report->reject();
        QVERIFY(::rename((path + ".moved").c_str(), path.c_str()) == 0);
        QVERIFY(saved.window.action("undo").isEnabled());
        saved.window.action("undo").trigger();
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("redo").trigger();
        QVERIFY(saved.save());
        QCOMPARE(saved.title(), std::string("New"));
    }

    void ValueThatSomebodyElseChangesAfterTheSaveIsNotOverwrittenUnseen() {
        SavedFile saved;
        QVERIFY(saved.titleAndSave());
        QCOMPARE(changeElsewhere(saved.file.path(), titled("Theirs")), std::string());
        const auto theirs = saved.file.content();
        saved.window.action("undo").trigger();
        saved.window.action("save").trigger();
        QDialog* report = saved.window.waitForDialog("report");
        QVERIFY(report != nullptr);
        report->reject();
        QCOMPARE(saved.file.content(), theirs);
        saved.window.action("redo").trigger(); // nothing of this session is wanted any more
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("Theirs"));
        QVERIFY(!saved.window->isWindowModified());
    }

    void OtherFieldThatSomebodyElseChangesStaysTheirs() {
        SavedFile saved;
        QVERIFY(saved.titleAndSave());
        const Change album = [](FileTags& tags) { tags.v2[Field::Album] = "Theirs"; };
        QCOMPARE(changeElsewhere(saved.file.path(), album), std::string());
        saved.window.action("undo").trigger();
        QVERIFY(saved.save());
        QCOMPARE(saved.title(), std::string("Old"));
        QCOMPARE(readTags(saved.file.path()).v2[Field::Album], std::string("Theirs"));
    }

    void StepsLeaveAloneWhatSomebodyElseHasChangedSince() {
        SavedFile saved;
        QVERIFY(saved.titleAndSave());
        type(saved.window.field("txtArtist"), "s");
        saved.window.action("undo").trigger();
        QCOMPARE(changeElsewhere(saved.file.path(), titled("Theirs")), std::string());
        saved.window->editing().showAgain(); // reads the file
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("Theirs"));
        saved.window.action("undo").trigger();
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("Theirs"));
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("redo").trigger();
        saved.window.action("redo").trigger();
        QCOMPARE(saved.window.field("txtTitle").text(), QStringLiteral("Theirs"));
        QVERIFY(saved.window->isWindowModified()); // the artist, which nobody else has changed
    }

    void PictureThatWasReplacedComesBack_data() {
        QTest::addColumn<bool>("hadPicture");
        QTest::addColumn<bool>("isRemoved");
        QTest::newRow("replaced") << true << false;
        QTest::newRow("added") << false << false;
        QTest::newRow("removed") << true << true;
    }
    void PictureThatWasReplacedComesBack() {
        QFETCH(bool, hadPicture);
        QFETCH(bool, isRemoved);
        const corvane::ByteArray first = jpegImage(8, 8), second = pngImage(9, 9);
        SavedFile saved;
        Id3v2Builder tag;
        tag.text("TIT2", "T");
        if (hadPicture) tag.frame("APIC", pictureFrame(first, "image/jpeg"));
        tag.padding(100);
        saved.file = Mp3File(saved.window.folder(), tag.done(), "a.mp3");
        QVERIFY(saved.open());
        const auto picture = isRemoved ? nullptr : corvane::Picture::fromBytes(second);
        saved.window->editing().apply([&](FileTags tags) { return withPicture(std::move(tags), picture); }, "picture");
        QVERIFY(saved.save());
        QCOMPARE(saved.picture(), isRemoved ? corvane::ByteArray() : second);
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("undo").trigger();
        QVERIFY(saved.window->isWindowModified());
        QVERIFY(saved.save());
        QCOMPARE(saved.picture(), hadPicture ? first : corvane::ByteArray());
        saved.window.action("redo").trigger();
        QVERIFY(saved.window->isWindowModified());
        QVERIFY(saved.save());
        QCOMPARE(saved.picture(), isRemoved ? corvane::ByteArray() : second);
    }

    void TagThatCannotBeWrittenStaysRemoved() {
        SavedFile saved;
        saved.file = taggedFile(saved.window.folder(), "a.mp3", "Old", 4);
        QVERIFY(saved.open());
        saved.window.action("removeV2").trigger();
        QVERIFY(saved.save());
        saved.window.action("undo").trigger();
        QVERIFY(!saved.window->isWindowModified());
        QVERIFY(!saved.wanted()->v2.present);
    }

    void TagThatWasRemovedComesBackWithItsTextsAndItsCover() {
        const corvane::ByteArray cover = jpegImage(8, 8);
        SavedFile saved;
        Id3v2Builder tag;
        tag.text("TIT2", "T").text("TCOM", "C").frame("APIC", pictureFrame(cover, "image/jpeg")).padding(100);
        saved.file = Mp3File(saved.window.folder(), tag.done(), "a.mp3");
        QVERIFY(saved.open());
        const FileTags before = readTags(saved.file.path());
        saved.window.action("removeBoth").trigger();
        QVERIFY(saved.save());
        QVERIFY(!readTags(saved.file.path()).v2.present);
        saved.window.action("undo").trigger();
        QVERIFY(saved.save());
        QCOMPARE(readTags(saved.file.path()), before);
        QCOMPARE(saved.picture(), cover);
        saved.window.action("redo").trigger();
        QVERIFY(saved.save());
        QCOMPARE(readTags(saved.file.path()), FileTags());
    }

    void ValueThatARecordCutsShortIsNoChangeAfterwards() {
        SavedFile saved;
        QVERIFY(saved.open());
        const std::string text(40, 'x'), kept(30, 'x');
        const std::string before = readTags(saved.file.path()).v1[Field::Title];
        const auto edit = [&](FileTags tags) {
            tags.v1[Field::Title] = text;
            return tags;
        };
        saved.window->editing().apply(edit, "edit");
        QVERIFY(saved.save());
        QVERIFY(!saved.window->isWindowModified());
        saved.window.action("undo").trigger();
        QCOMPARE(saved.wanted()->v1[Field::Title], before);
        saved.window.action("redo").trigger();
        QVERIFY(!saved.window->isWindowModified());
        QCOMPARE(saved.wanted()->v1[Field::Title], kept);
    }

    void StepsOfManyFilesAreKeptToo() {
        EditorWindow window;
        const Mp3File first = taggedFile(window.folder(), "a.mp3", "One"),
                      second = taggedFile(window.folder(), "b.mp3", "Two");
        QVERIFY(window.open({first.path(), second.path()}));
        QVERIFY(window.select({0, 1}));
        window.field("many2").selectAll();
        type(window.field("many2"), "Both");
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        QCOMPARE(window.field("many2").text(), QStringLiteral("Both"));
        window.action("undo").trigger();
        QCOMPARE(window.field("many2").text(), QStringLiteral("An album"));
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        for (const Mp3File* file : {&first, &second}) {
            QCOMPARE(readTags(file->path()).v2[Field::Album], std::string("An album"));
            QVERIFY(audioIsUntouchedIn(*file));
        }
    }
};

static const bool kIsRegisteredUndoAfterSaveTest = corvane::test::registerTest<UndoAfterSaveTest>("UndoAfterSaveTest");
#include <UndoAfterSaveTest.moc>
