// Several files in the window: mixed values, touched fields, tools.
#include "apps/editor/CaseDialog.h"
#include "apps/editor/GenreDialog.h"
#include "apps/editor/NumberDialog.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"
#include "tests/support/ImageBuilder.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QToolButton>
#include <QTreeWidget>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

struct TwoFiles {
    EditorWindow window;
    Mp3File first = taggedFile(window.folder(), "a.mp3", "One");
    Mp3File second = taggedFile(window.folder(), "b.mp3", "Two");

    bool open() { return window.open({first.path(), second.path()}) && window.select({0, 1}); }
    bool save() {
        window.action("save").trigger();
        return window.waitForSave() && audioIsUntouchedIn(first) && audioIsUntouchedIn(second);
    }
};

const char* const kTitle = "many0";
const char* const kArtist = "many1";
const char* const kAlbum = "many2";

} // namespace

class EditManyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CommonValuesAreShownAndMixedOnesAreNot() {
        TwoFiles files;
        QVERIFY(files.open());
        QCOMPARE(files.window.field(kArtist).text(), QStringLiteral("An artist"));
        QCOMPARE(files.window.field(kTitle).text(), QString());
        QVERIFY(!files.window.field(kTitle).placeholderText().isEmpty());
    }

    void OnlyTouchedFieldsAreWritten() {
        TwoFiles files;
        QVERIFY(files.open());
        const QColor untouched = background(files.window.field(kAlbum));
        files.window.field(kAlbum).selectAll();
        type(files.window.field(kAlbum), "Both");
        QVERIFY(background(files.window.field(kAlbum)) != untouched);
        QCOMPARE(background(files.window.field(kArtist)), untouched);
        QVERIFY(files.first.isUnchanged() && files.second.isUnchanged());
        QVERIFY(files.save());
        const FileTags first = readTags(files.first.path()), second = readTags(files.second.path());
        QCOMPARE(first.v2[Field::Album], std::string("Both"));
        QCOMPARE(second.v1[Field::Album], std::string("Both"));
        QCOMPARE(first.v2[Field::Title], std::string("One"));
        QCOMPARE(second.v2[Field::Title], std::string("Two"));
    }

    void WheelOverTheGenresChangesNoFile() {
        TwoFiles files;
        QVERIFY(files.open());
        QWidget& genres = *files.window.field("many5").parentWidget();
        const auto turn = [&genres] {
            const QPointF middle(genres.rect().center());
            QWheelEvent wheel(middle, genres.mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(&genres, &wheel);
        };
        files.window.field(kTitle).setFocus();
        turn();
        QVERIFY(!files.window->isWindowModified());
        genres.setFocus();
        turn();
        QVERIFY(files.window->isWindowModified());
    }

    void UndoBringsAllFilesBackInOneStep() {
        TwoFiles files;
        QVERIFY(files.open());
        type(files.window.field(kTitle), "Same");
        QCOMPARE(files.window.cell(1, FileTable::Title), QStringLiteral("Same"));
        files.window.action("undo").trigger();
        QCOMPARE(files.window.cell(0, FileTable::Title), QStringLiteral("One"));
        QCOMPARE(files.window.cell(1, FileTable::Title), QStringLiteral("Two"));
        QCOMPARE(files.window.field(kTitle).text(), QString());
        QVERIFY(!files.window->isWindowModified());
    }

    void EmptiedFieldIsDeletedInAll() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window.field(kArtist).selectAll();
        QTest::keyClick(&files.window.field(kArtist), Qt::Key_Delete);
        QVERIFY(files.save());
        QCOMPARE(readTags(files.first.path()).v2[Field::Artist], std::string());
        QCOMPARE(readTags(files.second.path()).v1[Field::Artist], std::string());
    }

    void Id3v1PageEditsTheRecordsAlone() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window->findChild<ManyPages*>()->setCurrentIndex(1);
        auto& comment = files.window.field("txtComment");
        comment.selectAll();
        type(comment, "For all records");
        QVERIFY(files.save());
        for (const Mp3File* file : {&files.first, &files.second}) {
            const FileTags tags = readTags(file->path());
            QCOMPARE(tags.v1[Field::Comment], std::string("For all records"));
            QCOMPARE(tags.v2[Field::Comment], std::string());
        }
    }

    void Id3v1PageGivesNoFileARecordByATextAlone() {
        EditorWindow window;
        const Mp3File first = taggedFile(window.folder(), "a.mp3", "One"), second = plainFile(window.folder(), "b.mp3");
        QVERIFY(window.open({first.path(), second.path()}));
        QVERIFY(window.select({0, 1}));
        window->findChild<ManyPages*>()->setCurrentIndex(1);
        type(window.field("txtComment"), "x");
        QVERIFY(window->session().isChanged(first.path()));
        QVERIFY(!window->session().isChanged(second.path()));
    }

    void Id3v1PageGivesAndTakesAllRecordsAndShowsIt() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window->findChild<ManyPages*>()->setCurrentIndex(1);
        auto& editor = *files.window->findChild<ManyPages*>()->findChild<corvane::controls::ID3v1*>();
        auto& box = child<QCheckBox>(editor, "chkID3v1");
        const auto click = [&box] { QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2)); };
        const auto hasRecord = [&](const Mp3File& file) {
            return files.window->session().wanted(file.path())->v1.present;
        };
        click();
        QVERIFY(!hasRecord(files.first) && !hasRecord(files.second));
        QTest::mouseClick(&child<QToolButton>(editor, "cmdNext"), Qt::LeftButton);
        QVERIFY(!box.isChecked());
        click();
        QVERIFY(hasRecord(files.first) && hasRecord(files.second));
        QVERIFY(!files.window->isWindowModified());
        QVERIFY(files.first.isUnchanged() && files.second.isUnchanged());
    }

    void EntryOfTheMenuDoesWhatItSays_data() {
        QTest::addColumn<QString>("titles"); // in ID3v1 and ID3v2; "-" without the tag
        QTest::addColumn<bool>("takesPicture");
        QTest::newRow("copyToV2") << "1 1" << false;
        QTest::newRow("copyToV1") << "2 2" << false;
        QTest::newRow("removeV1") << "- 2" << false;
        QTest::newRow("removeV2") << "1 -" << false;
        QTest::newRow("removeBoth") << "- -" << false;
        QTest::newRow("removePicture") << "1 2" << true;
    }
    void EntryOfTheMenuDoesWhatItSays() {
        QFETCH(QString, titles);
        EditorWindow window;
        Id3v2Builder tag;
        tag.text("TIT2", "2").frame("APIC", pictureFrame(pngImage(9, 9)));
        const auto rest = Id3v1Builder().title("1").done();
        const Mp3File first(window.folder(), tag.done(), rest, "a.mp3"),
            second(window.folder(), tag.done(), rest, "b.mp3");
        QVERIFY(window.open({first.path(), second.path()}));
        QVERIFY(window.select({0, 1}));
        window.action(QTest::currentDataTag()).trigger();
        for (const Mp3File* file : {&first, &second}) {
            const auto wanted = window->session().wanted(file->path());
            const auto title = [](const TagValues& values) { return values.present ? values[Field::Title] : "-"; };
            QCOMPARE(QString::fromStdString(title(wanted->v1) + " " + title(wanted->v2)), titles);
            QTEST(wanted->v2.cover && !*wanted->v2.cover, "takesPicture");
        }
        QCOMPARE(window->session().undoStack().count(), 1);
    }

    void OnlyTheSelectedFilesAreSavedWhenThatIsAsked() {
        TwoFiles files;
        QVERIFY(files.open());
        type(files.window.field(kTitle), "Same");
        QVERIFY(files.window.select({0}));
        files.window.action("saveSelected").trigger();
        QVERIFY(files.window.waitForSave());
        QCOMPARE(readTags(files.first.path()).v2[Field::Title], std::string("Same"));
        QVERIFY(files.second.isUnchanged());
        QVERIFY(files.window->isWindowModified());
        files.window.action("undo").trigger(); // of the saved file and the other one
        QVERIFY(files.window->session().isChanged(files.first.path()));
        QVERIFY(!files.window->session().isChanged(files.second.path()));
        files.window.action("redo").trigger();
        QVERIFY(!files.window->session().isChanged(files.first.path()));
        QVERIFY(files.window.select({1}));
        files.window.action("revert").trigger();
        QVERIFY(!files.window->isWindowModified());
        QVERIFY(files.second.isUnchanged());
    }

    void TracksAreNumberedInTheOrderOfTheList() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window->list().view().sortByColumn(FileTable::Title, Qt::DescendingOrder);
        QVERIFY(files.window.select({0, 1}));
        files.window.action("numberTracks").trigger();
        auto* dialog = files.window->findChild<NumberDialog*>();
        QVERIFY(dialog != nullptr);
        child<QSpinBox>(*dialog, "first").setValue(5);
        dialog->accept();
        QCOMPARE(files.window->session().wanted(files.second.path())->v2[Field::Track], std::string("5/2"));
        QCOMPARE(files.window->session().wanted(files.first.path())->v2[Field::Track], std::string("6/2"));
        QCOMPARE(files.window->session().undoStack().count(), 1);
        QVERIFY(files.first.isUnchanged());
    }

    void CaseIsConvertedAsTheDialogSays() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window.action("convertCase").trigger();
        auto* dialog = files.window->findChild<CaseDialog*>();
        QVERIFY(dialog != nullptr);
        QTest::mouseClick(dialog->findChildren<QRadioButton*>().at(2), Qt::LeftButton);
        dialog->accept();
        QCOMPARE(files.window.cell(0, FileTable::Title), QStringLiteral("ONE"));
        QCOMPARE(files.window.cell(1, FileTable::Title), QStringLiteral("TWO"));
        QVERIFY(files.first.isUnchanged());
    }

    void GenreIsFoundByTypingAndSetInAll() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window.action("chooseGenre").trigger();
        auto* dialog = files.window->findChild<GenreDialog*>();
        QVERIFY(dialog != nullptr);
        type(child<QLineEdit>(*dialog, "genreFilter"), "chamber");
        auto& list = child<QTreeWidget>(*dialog, "genres");
        const auto found = list.findItems("Chamber Music", Qt::MatchExactly);
        QCOMPARE(found.size(), 1);
        QVERIFY(!found.front()->isHidden());
        QVERIFY(list.findItems("Rock", Qt::MatchExactly).front()->isHidden());
        found.front()->setSelected(true);
        dialog->accept();
        QVERIFY(files.save());
        QCOMPARE(readTags(files.first.path()).v1[Field::Genre], std::string("104"));
        QCOMPARE(readTags(files.second.path()).v2[Field::Genre], std::string("(104)"));
    }

    void DialogThatIsCancelledChangesNothing() {
        TwoFiles files;
        QVERIFY(files.open());
        for (const char* name : {"convertCase", "chooseGenre", "numberTracks"}) {
            files.window.action(name).trigger();
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY2(dialog != nullptr, name);
            dialog->reject();
        }
        QVERIFY(!files.window->isWindowModified());
    }

    void Id3v1PageBeginsWithTheFirstFile() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window->findChild<ManyPages*>()->setCurrentIndex(1);
        auto& editor = *files.window->findChild<ManyPages*>()->findChild<corvane::controls::ID3v1*>();
        QCOMPARE(editor.TagCount(), 2);
        QVERIFY(!child<QToolButton>(editor, "cmdPrevious").isEnabled());
        QTest::mouseClick(&child<QToolButton>(editor, "cmdNext"), Qt::LeftButton);
        QVERIFY(!files.window->isWindowModified());
    }

    void ToolsAreOfferedForASelectionOnly() {
        TwoFiles files;
        QVERIFY(files.open());
        QVERIFY(files.window.action("copyToV1").isEnabled());
        files.window->list().view().clearSelection();
        QTRY_VERIFY(!files.window.action("copyToV1").isEnabled());
    }

    void RemovedTagsAreRemovedFromAll() {
        TwoFiles files;
        QVERIFY(files.open());
        files.window.action("removeV1").trigger();
        QVERIFY(files.save());
        QVERIFY(!readTags(files.first.path()).v1.present);
        QVERIFY(!readTags(files.second.path()).v1.present);
        QVERIFY(readTags(files.second.path()).v2.present);
    }
};

static const bool kIsRegisteredEditManyTest = corvane::test::registerTest<EditManyTest>("EditManyTest");
#include <EditManyTest.moc>
