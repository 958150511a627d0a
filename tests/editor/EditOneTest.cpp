// One file in the window: shown, edited, undone, saved, reverted.
#include "corvane/controls/PicturePanel.h"
#include "corvane/id3v2/ReadableGenre.h"

#include "apps/editor/Tools.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"
#include "tests/support/ImageBuilder.h"

#include <QCheckBox>
#include <QTreeWidget>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

constexpr int kFirstWidth = 8; // pixels; each further picture is one wider

// A tag with pictures of these types, each with a description of its own.
Id3v2Builder describedPictures(const QByteArray& types) {
    Id3v2Builder tag;
    tag.text("TIT2", "T");
    for (int at = 0; at < types.size(); ++at) {
        const auto width = static_cast<unsigned>(kFirstWidth + at);
        corvane::ByteArray frame = pictureFrame(pngImage(width, 5), "image/png", "Picture " + std::to_string(at));
        frame[1 + sizeof "image/png"] = static_cast<std::uint8_t>(types.at(at)); // follows encoding and MIME type
        tag.frame("APIC", frame);
    }
    return tag;
}

struct StoredPicture {
    int width;
    std::string description;
};

std::vector<StoredPicture> picturesIn(const Mp3File& file) {
    corvane::FileHandler handler;
    if (!handler.Create(file.path())) qFatal("cannot be read");
    const auto reader = handler.ID3V2Tag()->ID3V23Tag();
    std::vector<StoredPicture> found;
    for (std::int32_t at = 1; at <= reader->FrameCount(); ++at) {
        const auto frame = reader->GetFrameByIndex(at);
        if (frame->IsPicture()) found.push_back({frame->createPicture()->width(), frame->Description()});
    }
    return found;
}

corvane::controls::PicturePanel& panelOf(EditorWindow& window) {
    return *window->findChild<FilePages*>()->findChild<corvane::controls::PicturePanel*>();
}

} // namespace

class EditOneTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void SelectedFileIsShownOnAllPages() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "A title");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("A title"));
        auto& pages = *window->findChild<FilePages*>();
        pages.setCurrentIndex(3);
        const auto rows =
            child<QTreeWidget>(*window, "technical").findItems("MPEG", Qt::MatchContains | Qt::MatchRecursive, 1);
        QCOMPARE(rows.size(), 1);
        pages.setCurrentIndex(4);
        QVERIFY(child<QPlainTextEdit>(*window, "xmlText").toPlainText().contains("A title"));
    }

    void TypingChangesTheListAndNoByteOfTheFile() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        window.field("txtTitle").selectAll();
        type(window.field("txtTitle"), "New");
        QCOMPARE(window.cell(0, FileTable::Title), QStringLiteral("New"));
        QVERIFY(window->isWindowModified());
        QVERIFY(window.action("save").isEnabled());
        QVERIFY(file.isUnchanged());
    }

    void UndoTakesTheWholeWordBackAlsoInsideTheTextBox() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "er");
        QTest::keyClick(&window.field("txtTitle"), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("Old"));
        QVERIFY(!window->isWindowModified());
        window.action("redo").trigger();
        QVERIFY(window.field("txtTitle").text() != QStringLiteral("Old"));
        QVERIFY(window->isWindowModified());
    }

    void UndoInAFileThatSomebodyElseHasChangedShowsTheirs() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old"),
                      other = taggedFile(window.folder(), "b.mp3", "Theirs");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        window.action("copyToV1").trigger();
        type(window.field("txtTitle"), "er");
        QVERIFY(::rename(other.path().c_str(), file.path().c_str()) == 0);
        window.action("undo").trigger();
        window.action("undo").trigger();
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("Theirs"));
        QVERIFY(!window->isWindowModified());
        window.action("redo").trigger();
        window.action("redo").trigger(); // of the typing, which leaves their title alone
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("Theirs"));
        QCOMPARE(window->session().wanted(file.path())->v1[Field::Title], std::string("Old"));
    }

    void SavedFileHasTheNewValuesAndItsAudio() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        window.field("txtTitle").selectAll();
        type(window.field("txtTitle"), "New");
        window->findChild<FilePages*>()->setCurrentIndex(1);
        window.field("txtComment").selectAll();
        type(window.field("txtComment"), "Of ID3v1");
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        const FileTags tags = readTags(file.path());
        QCOMPARE(tags.v2[Field::Title], std::string("New"));
        QCOMPARE(tags.v2[Field::Artist], std::string("An artist"));
        QCOMPARE(tags.v1[Field::Comment], std::string("Of ID3v1"));
        QVERIFY(audioIsUntouchedIn(file));
        QVERIFY(!window->isWindowModified());
        QVERIFY(!window.cell(0, FileTable::Name).startsWith(QChar(0x2022)));
    }

    void RevertedFileShowsWhatItHas() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "er");
        window.action("revert").trigger();
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("Old"));
        QVERIFY(!window->isWindowModified());
        window.action("undo").trigger();
        QVERIFY(window->isWindowModified());
    }

    void ChangesWaitWhileOtherFilesAreLookedAt() {
        EditorWindow window;
        const Mp3File first = taggedFile(window.folder(), "a.mp3", "Old"),
                      second = taggedFile(window.folder(), "b.mp3", "Other");
        QVERIFY(window.open({first.path(), second.path()}));
        QVERIFY(window.select({0}));
        window.field("txtTitle").selectAll();
        type(window.field("txtTitle"), "New");
        QVERIFY(window.select({1}));
        QTRY_COMPARE(window.field("txtTitle").text(), QStringLiteral("Other"));
        QVERIFY(window.select({0}));
        QTRY_COMPARE(window.field("txtTitle").text(), QStringLiteral("New"));
        QVERIFY(first.isUnchanged() && second.isUnchanged());
    }

    void FileWithoutTagsGetsOneWhenTheBoxIsChecked() {
        EditorWindow window;
        const Mp3File file = plainFile(window.folder(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        auto& box = child<QCheckBox>(*window, "chkID3v2");
        QVERIFY(!box.isChecked());
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
        type(window.field("txtTitle"), "Fresh");
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        const FileTags tags = readTags(file.path());
        QCOMPARE(tags.v2[Field::Title], std::string("Fresh"));
        QVERIFY(file.audioIsUntouched());
        QVERIFY(!tags.v1.present);
    }

    void TypingIntoAFileWithoutATagGivesItTheTagAsOneStep() {
        EditorWindow window;
        const Mp3File file = plainFile(window.folder(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        const auto& box = child<QCheckBox>(*window, "chkID3v2");
        QLineEdit& title = window.field("txtTitle");
        type(title, "Fresh");
        QCOMPARE(title.text(), QStringLiteral("Fresh"));
        QVERIFY(box.isChecked());
        QVERIFY(window.cell(0, FileTable::Tags).contains("ID3v2"));
        QCOMPARE(window->session().undoStack().count(), 1);
        QTest::keyClick(&title, Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!box.isChecked());
        QCOMPARE(title.text(), QString());
        QVERIFY(!window->isWindowModified());
        QTest::keyClick(&title, Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(box.isChecked());
        QVERIFY(file.isUnchanged());
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        const FileTags tags = readTags(file.path());
        QCOMPARE(tags.v2[Field::Title], std::string("Fresh"));
        QVERIFY(!tags.v1.present);
        QVERIFY(file.audioIsUntouched());
    }

    void TextThatIsTypedAndErasedGivesNoTag() {
        EditorWindow window;
        const Mp3File file = plainFile(window.folder(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "X");
        QTest::keyClick(&window.field("txtTitle"), Qt::Key_Backspace);
        QVERIFY(!child<QCheckBox>(*window, "chkID3v2").isChecked());
        QVERIFY(!window->isWindowModified());
        QCOMPARE(window->session().undoStack().count(), 0);
        type(window.field("txtTitle"), "Y");
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("Y"));
        QVERIFY(window->isWindowModified());
    }

    void LyricsAndPasteGiveAFileTheTagToo() {
        EditorWindow window;
        const Mp3File first = plainFile(window.folder(), "a.mp3"), second = plainFile(window.folder(), "b.mp3");
        QVERIFY(window.open({first.path(), second.path()}));
        QVERIFY(window.select({0}));
        type(child<QPlainTextEdit>(*window->findChild<corvane::controls::ID3v2*>(), "txtLyrics"), "la la");
        QVERIFY(window.select({1}));
        putOnClipboard("Pasted");
        window.field("txtArtist").setFocus();
        QTest::keyClick(&window.field("txtArtist"), Qt::Key_V, Qt::ControlModifier);
        const auto wanted = [&](const Mp3File& file) { return window->session().wanted(file.path())->v2; };
        QVERIFY(wanted(first).present && wanted(second).present);
        QCOMPARE(wanted(first)[Field::Lyrics], std::string("la la"));
        QCOMPARE(wanted(second)[Field::Artist], std::string("Pasted"));
    }

    void FieldsThatCannotBeEditedLookLikeIt_data() {
        QTest::addColumn<unsigned>("version");
        QTest::addColumn<bool>("isUnchecked");
        QTest::addColumn<bool>("isEditable");
        QTest::newRow("tag") << 3U << false << true;
        QTest::newRow("tag that cannot be saved") << 4U << false << false;
        QTest::newRow("tag that is to be removed") << 3U << true << false;
    }
    void FieldsThatCannotBeEditedLookLikeIt() {
        QFETCH(unsigned, version);
        QFETCH(bool, isUnchecked);
        QFETCH(bool, isEditable);
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old", version);
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        auto& box = child<QCheckBox>(*window, "chkID3v2");
        if (isUnchecked) QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
        const auto& editor = *window->findChild<corvane::controls::ID3v2*>();
        QLineEdit& title = window.field("txtTitle");
        const auto& lyrics = child<QPlainTextEdit>(editor, "txtLyrics");
        const auto active = [](const QWidget& widget, QPalette::ColorRole role) {
            return widget.palette().color(QPalette::Active, role);
        };
        const QColor white = QApplication::palette().color(QPalette::Active, QPalette::Base);
        QCOMPARE(active(title, QPalette::Base) == white, isEditable);
        QCOMPARE(active(lyrics, QPalette::Base) == white, isEditable);
        type(title, "X");
        QCOMPARE(title.text() != QStringLiteral("Old"), isEditable);
        if (!isEditable) QCOMPARE(title.text(), QStringLiteral("Old")); // which can still be copied
    }

    void UncheckedBoxRemovesTheTag() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        auto& box = child<QCheckBox>(*window, "chkID3v2");
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
        QVERIFY(!window.cell(0, FileTable::Tags).contains("ID3v2"));
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        QVERIFY(!readTags(file.path()).v2.present);
        QVERIFY(file.audioIsUntouched());
    }

    void EditOfATextLeavesThePicturesAlone() {
        EditorWindow window;
        Id3v2Builder tag;
        tag.text("TIT2", "Old").frame("APIC", pictureFrame(pngImage(9, 9)));
        const Mp3File file(window.folder(), tag.done(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "er");
        const auto wanted = window->session().wanted(file.path());
        QVERIFY(!wanted->v2.picture.has_value() && !wanted->v2.cover.has_value());
    }

    void PictureThatIsShownIsTheFrontCoverElseTheFirst_data() {
        QTest::addColumn<QByteArray>("types"); // of pictures, whose descriptions are all different
        QTest::addColumn<int>("shown");
        QTest::newRow("a front cover") << QByteArray("\3", 1) << 0;
        QTest::newRow("a front cover after others") << QByteArray("\0\4\3", 3) << 2;
        QTest::newRow("a back cover alone") << QByteArray("\4", 1) << 0;
        QTest::newRow("no front cover") << QByteArray("\4\2", 2) << 0;
    }
    void PictureThatIsShownIsTheFrontCoverElseTheFirst() {
        QFETCH(QByteArray, types);
        QFETCH(int, shown);
        EditorWindow window;
        const Mp3File file(window.folder(), describedPictures(types).done(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QVERIFY(panelOf(window).picture() != nullptr);
        QCOMPARE(panelOf(window).picture()->width(), kFirstWidth + shown);
    }

    void LoadedPictureReplacesTheOneThatIsShown_data() { PictureThatIsShownIsTheFrontCoverElseTheFirst_data(); }
    void LoadedPictureReplacesTheOneThatIsShown() {
        QFETCH(QByteArray, types);
        QFETCH(int, shown);
        EditorWindow window;
        const Mp3File file(window.folder(), describedPictures(types).done(), "a.mp3");
        const std::string cover = window.folder().write("cover.png", pngImage(30, 20));
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QVERIFY(panelOf(window).load(QString::fromStdString(cover)));
        type(window.field("txtTitle"), "er");
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        QVERIFY(file.audioIsUntouched());
        const auto pictures = picturesIn(file);
        QCOMPARE(pictures.size(), static_cast<std::size_t>(types.size()));
        for (int at = 0; at < types.size(); ++at) {
            const auto& picture = pictures[static_cast<std::size_t>(at)];
            QCOMPARE(picture.width, at == shown ? 30 : kFirstWidth + at);
            QCOMPARE(picture.description, "Picture " + std::to_string(at));
        }
        QTRY_VERIFY(panelOf(window).picture() && panelOf(window).picture()->width() == 30);
    }

    void ClearedPictureIsTheOneThatIsShown() {
        EditorWindow window;
        const Mp3File file(window.folder(), describedPictures(QByteArray("\4\3", 2)).done(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QTest::mouseClick(panelOf(window).clearButton(), Qt::LeftButton);
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        QVERIFY(file.audioIsUntouched());
        const auto pictures = picturesIn(file);
        QCOMPARE(pictures.size(), std::size_t{1});
        QCOMPARE(pictures.front().width, kFirstWidth);
    }

    void UndoneLoadShowsThePictureOfTheFileAgain() {
        EditorWindow window;
        const Mp3File file(window.folder(), describedPictures(QByteArray("\3", 1)).done(), "a.mp3");
        const std::string cover = window.folder().write("cover.png", pngImage(30, 20));
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QVERIFY(panelOf(window).load(QString::fromStdString(cover)));
        QVERIFY(window->isWindowModified());
        window.action("undo").trigger();
        QCOMPARE(panelOf(window).picture()->width(), kFirstWidth);
        QVERIFY(!window->isWindowModified());
        window.action("redo").trigger();
        QCOMPARE(panelOf(window).picture()->width(), 30);
    }

    void CoverThatAToolSetsIsShown() {
        EditorWindow window;
        const Mp3File file(window.folder(), describedPictures(QByteArray("\4\3", 2)).done(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        const auto picture = corvane::Picture::fromBytes(pngImage(30, 20));
        window->editing().apply([&](FileTags tags) { return withPicture(std::move(tags), picture); }, "picture");
        QCOMPARE(panelOf(window).picture()->width(), 30);
        window->editing().apply([](FileTags tags) { return withPicture(std::move(tags), nullptr); }, "picture");
        QCOMPARE(panelOf(window).picture()->width(), kFirstWidth); // the back cover is the only one now
    }

    void GenreTakesAnyTextAndTheNamesOfTheListInAnyCase_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("number"); // beside the genre
        QTest::newRow("a text of the user's own") << "Hurdy-Gurdy"
                                                  << "";
        QTest::newRow("a name of the list") << "jazz"
                                            << "8";
        QTest::newRow("nothing") << ""
                                 << "";
    }
    void GenreTakesAnyTextAndTheNamesOfTheListInAnyCase() {
        QFETCH(QString, typed);
        EditorWindow window;
        const Mp3File file(window.folder(), Id3v2Builder().text("TIT2", "T").text("TCON", "My own").done(), "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QLineEdit& box = window.field("txtGenre");
        QCOMPARE(box.text(), QStringLiteral("My own"));
        box.setFocus();
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, typed);
        QTEST(child<QLabel>(*window->findChild<corvane::controls::ID3v2*>(), "lblGenreByte").text(), "number");
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        QVERIFY(file.audioIsUntouched());
        const TagValues stored = readTags(file.path()).v2;
        const std::string genre = corvane::readableGenre(stored[Field::Genre]);
        QCOMPARE(genre, typed == "jazz" ? std::string("Jazz") : typed.toStdString());
        QCOMPARE(stored[Field::Title], std::string("T"));
    }

    void GenreThatIsNotTouchedStaysAsItIs() {
        EditorWindow window;
        const Mp3File file(window.folder(), Id3v2Builder().text("TIT2", "T").text("TCON", "(4)Eurodisco").done(),
                           "a.mp3");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        type(window.field("txtTitle"), "er");
        QCOMPARE(window->session().wanted(file.path())->v2[Field::Genre], std::string("(4)Eurodisco"));
    }

    void FileWhoseNameIsNoTextIsEditedAsAnyOther() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "caf\xe9.mp3", "Old");
        QVERIFY(window.open({window.folder().path()}));
        QVERIFY(window.select({0}));
        QVERIFY(window.cell(0, FileTable::Name).startsWith("caf"));
        window.field("txtTitle").selectAll();
        type(window.field("txtTitle"), "New");
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        QCOMPARE(readTags(file.path()).v2[Field::Title], std::string("New"));
        QVERIFY(file.audioIsUntouched());
    }

    void TechnicalDataNeedNoNameThatIsText() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "caf\xe9.mp3", "Old");
        QVERIFY(window.open({window.folder().path()}));
        QVERIFY(window.select({0}));
        const auto& tree = child<QTreeWidget>(*window, "technical");
        const QString size = QLocale().toString(static_cast<qint64>(file.original().size()));
        QCOMPARE(tree.findItems(size, Qt::MatchStartsWith | Qt::MatchRecursive, 1).size(), 1);
        const QString year = QString::number(QDate::currentDate().year());
        QCOMPARE(tree.findItems(year, Qt::MatchContains | Qt::MatchRecursive, 1).size(), 1);
    }

    void FileThatCannotBeReadSaysWhy() {
        EditorWindow window;
        QVERIFY(window.open({window.folder().path("missing.mp3")}));
        window->list().view().selectRow(0);
        QTRY_VERIFY(child<QLabel>(*window, "hint").text().contains("cannot be read"));
    }
};

static const bool kIsRegisteredEditOneTest = corvane::test::registerTest<EditOneTest>("EditOneTest");
#include <EditOneTest.moc>
