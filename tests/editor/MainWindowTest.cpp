// The window around the editors: opening, preview, report, closing.
#include "apps/editor/ChangeTree.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"
#include "tests/support/ImageBuilder.h"

#include <QHeaderView>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

// A window with one file whose title has been changed and not saved.
struct ChangedFile {
    EditorWindow window;
    Mp3File file = taggedFile(window.folder(), "a.mp3", "Old");

    bool open() {
        if (!window.open({file.path()}) || !window.select({0})) return false;
        window.field("txtTitle").selectAll();
        type(window.field("txtTitle"), "New");
        return window->isWindowModified();
    }
    std::string title() const { return readTags(file.path()).v2[Field::Title]; }
};

// What becomes of a drag over a widget that ends there. Shift proposes a move.
Qt::DropAction dropActionOf(QWidget& widget, const QMimeData& data, Qt::KeyboardModifiers keys = {}) {
    const Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter({9, 9}, possible, &data, Qt::LeftButton, keys);
    QApplication::sendEvent(&widget, &enter);
    QDropEvent drop({9, 9}, possible, &data, Qt::LeftButton, keys);
    QApplication::sendEvent(&widget, &drop);
    return enter.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

bool drop(QWidget& widget, const QMimeData& data) { return dropActionOf(widget, data) == Qt::CopyAction; }

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void DroppedFolderIsOpened() {
        EditorWindow window;
        taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({}));
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(window.folder().path()))});
        QVERIFY(drop(*window, data));
        QTRY_COMPARE(window->table().rowCount(), 1);
    }

    void DropIsNeverAMoveThatWouldDeleteTheFile() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({}));
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.path()))});
        QCOMPARE(dropActionOf(*window, data, Qt::ShiftModifier), Qt::CopyAction);
        QTRY_COMPARE(window->table().rowCount(), 1);
    }

    void FileThatIsDroppedOnATextBoxIsOpenedAndNotWrittenIntoIt() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One"),
                      other = taggedFile(window.folder(), "b.mp3", "Two");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(other.path()))});
        data.setText(QString::fromStdString(other.path())); // as file managers give it along
        QVERIFY(drop(window.field("txtTitle"), data));
        QVERIFY(drop(*child<QPlainTextEdit>(*window, "txtLyrics").viewport(), data));
        QVERIFY(drop(window->list().words(), data));
        QCOMPARE(window.field("txtTitle").text(), QStringLiteral("One"));
        QVERIFY(window->list().words().text().isEmpty());
        QVERIFY(!window->isWindowModified());
        QTRY_COMPARE(window->table().rowCount(), 2);
        QMimeData words;
        words.setText("words");
        QVERIFY(drop(window.field("txtTitle"), words));
        QVERIFY(window.field("txtTitle").text().contains("words"));
    }

    void DroppedFileThatIsNoMpegAudioIsNotTakenIntoTheList() {
        EditorWindow window;
        const Mp3File song = taggedFile(window.folder(), "a.mp3", "One");
        const std::string cover = window.folder().write("cover.jpg", jpegImage(64, 48));
        QVERIFY(window.open({song.path()}));
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(cover))});
        QVERIFY(drop(*window, data));
        QTRY_COMPARE(window->statusBar()->currentMessage(),
                     QStringLiteral("%1 is not opened: This is a JPEG image, not an MPEG audio file")
                         .arg(QString::fromStdString(cover)));
        QVERIFY(!window->loader().isRunning());
        QCOMPARE(window->table().rowCount(), 1);
        QCOMPARE(RecentPaths(window.settings()).paths(), QStringList(QString::fromStdString(song.path())));
    }

    void OddThingsThatAreDroppedAreLeftAlone() {
        EditorWindow window;
        QVERIFY(window.open({}));
        QMimeData nothing, remote, missing;
        remote.setUrls({QUrl("https://example.org/a.mp3"), QUrl()});
        missing.setUrls({QUrl::fromLocalFile("/nowhere/at/all.mp3")});
        QVERIFY(!drop(*window, nothing));
        QVERIFY(!drop(*window, remote));
        window->open({std::string()});
        QVERIFY(!window->loader().isRunning());
        QVERIFY(drop(*window, missing));
        QTRY_COMPARE(window->table().rowCount(), 1);
        QVERIFY(!window->table().find("/nowhere/at/all.mp3")->failure.empty());
    }

    void DroppedFileIsFoundWhateverItsNameIsMadeOf() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "caf\xe9 100%.mp3", "One");
        QVERIFY(window.open({}));
        QMimeData data;
        const QByteArray folder = QByteArray::fromStdString(window.folder().path());
        data.setUrls({QUrl::fromEncoded("file://" + folder + "/caf%E9%20100%25.mp3")});
        QVERIFY(drop(*window, data));
        QTRY_COMPARE(window->table().rowCount(), 1);
        QCOMPARE(window->table().path(0), file.path());
        QVERIFY(window->table().find(file.path())->failure.empty());
        QVERIFY(RecentPaths(window.settings()).paths().isEmpty()); // no text leads back to it
    }

    void OpenedPathsAreRemembered() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({file.path()}));
        auto& recent = child<QMenu>(*window, "recent");
        Q_EMIT recent.aboutToShow();
        QCOMPARE(recent.actions().front()->text(), QString::fromStdString(file.path()));
        const Mp3File other = taggedFile(window.folder(), "b.mp3", "Two");
        for (int at = 0; at < 12; ++at) RecentPaths(window.settings()).add(QString::number(at));
        QCOMPARE(RecentPaths(window.settings()).paths().size(), RecentPaths::kLimit);
        QCOMPARE(RecentPaths(window.settings()).paths().front(), QStringLiteral("11"));
    }

    void RecentPathIsOpenedAgain() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a & b.mp3", "One");
        QVERIFY(window.open({file.path()}));
        window.action("closeFiles").trigger();
        QCOMPARE(window->table().rowCount(), 0);
        auto& recent = child<QMenu>(*window, "recent");
        Q_EMIT recent.aboutToShow();
        recent.actions().front()->trigger();
        QTRY_COMPARE(window->table().rowCount(), 1);
        recent.actions().back()->trigger();
        QVERIFY(RecentPaths(window.settings()).paths().isEmpty());
    }

    void ToolBarOffersWhatIsUsedMost() {
        ChangedFile changed;
        QVERIFY(changed.open());
        auto& bar = child<QToolBar>(*changed.window, "toolBar");
        for (const char* name : {"openFiles", "openFolder", "save", "preview", "undo", "redo", "revert", "loadPicture",
                                 "chooseGenre", "numberTracks"}) {
            QAction& action = changed.window.action(name);
            auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
            QVERIFY2(button && !button->toolTip().isEmpty(), name);
            const QImage icon = action.icon().pixmap(24, 24).toImage();
            QVERIFY2(!icon.isNull() && icon != QImage(icon.size(), icon.format()), name);
        }
        QTest::mouseClick(bar.widgetForAction(&changed.window.action("save")), Qt::LeftButton);
        QVERIFY(changed.window.waitForSave());
        QCOMPARE(changed.title(), std::string("New"));
        QVERIFY(changed.file.audioIsUntouched());
    }

    void HiddenToolBarStaysHidden() {
        EditorWindow window;
        QVERIFY(window.open({}));
        auto& bar = child<QToolBar>(*window, "toolBar");
        QVERIFY(bar.isVisible());
        bar.toggleViewAction()->trigger();
        QVERIFY(!bar.isVisible());
        window->close();
        const MainWindow next(window.settings());
        QVERIFY(child<QToolBar>(next, "toolBar").isHidden());
    }

    void MenuOfTheHeaderHidesAndShowsColumns() {
        EditorWindow window;
        QVERIFY(window.open({}));
        QHeaderView* header = window->list().view().horizontalHeader();
        const auto choose = [&](int column) {
            Q_EMIT header->customContextMenuRequested(QPoint(5, 5));
            auto& menu = child<QMenu>(*window, "columns");
            QAction* entry = menu.actions().at(column - FileTable::Title);
            const bool isShown = entry->isChecked();
            entry->trigger();
            menu.close();
            QTest::qWait(1); // it goes when it is closed
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return isShown;
        };
        QVERIFY(choose(FileTable::Genre));
        QVERIFY(header->isSectionHidden(FileTable::Genre));
        QVERIFY(!choose(FileTable::Genre));
        QVERIFY(!header->isSectionHidden(FileTable::Genre));
    }

    void FilterShowsFewerFilesAndSaysSo() {
        EditorWindow window;
        taggedFile(window.folder(), "a.mp3", "Air");
        taggedFile(window.folder(), "b.mp3", "Fugue");
        QVERIFY(window.open({window.folder().path()}));
        type(window->list().words(), "fug");
        QCOMPARE(window->list().shownCount(), 1);
        QCOMPARE(child<QLabel>(*window, "count").text(), QStringLiteral("Files: 1 of 2"));
    }

    void CancelButtonEndsALoad() {
        EditorWindow window;
        for (int at = 0; at < 3000; ++at) plainFile(window.folder(), std::to_string(at) + ".mp3");
        auto& cancel = child<QToolButton>(*window, "jobCancel");
        QVERIFY(showWindow(*window));
        window->open({window.folder().path(), window.folder().path(), window.folder().path()});
        QTRY_VERIFY(cancel.isVisible());
        QTest::mouseClick(&cancel, Qt::LeftButton);
        QTRY_VERIFY(!window->loader().isRunning());
        QTRY_VERIFY(!cancel.isVisible());
        QVERIFY(window->table().rowCount() <= 3000);
    }

    void PreviewShowsWhatSavingWouldDoAndSavesWhenAccepted() {
        ChangedFile changed;
        QVERIFY(changed.open());
        changed.window.action("preview").trigger();
        QDialog* preview = changed.window.waitForDialog("preview");
        QVERIFY(preview != nullptr);
        QCOMPARE(child<QLabel>(*preview, "summary").text(), QStringLiteral("Files that will change: 1."));
        const auto rows = preview->findChild<ChangeTree*>()->findItems("New", Qt::MatchExactly | Qt::MatchRecursive, 2);
        QCOMPARE(rows.size(), 1);
        QCOMPARE(rows.front()->text(1), QStringLiteral("Old"));
        QVERIFY(changed.file.isUnchanged());
        preview->accept();
        QVERIFY(changed.window.waitForSave());
        QCOMPARE(changed.title(), std::string("New"));
    }

    void ReportNamesTheFileThatFailedAndItsChangesAreKept() {
        ChangedFile changed;
        QVERIFY(changed.open());
        const std::string path = changed.file.path();
        QVERIFY(::rename(path.c_str(), (path + ".moved").c_str()) == 0);
        changed.window.action("save").trigger();
        QDialog* report = changed.window.waitForDialog("report");
        QVERIFY(report != nullptr);
        QCOMPARE(child<QLabel>(*report, "summary").text(), QStringLiteral("Files saved: 0, failed: 1."));
        auto* tree = report->findChild<ChangeTree*>();
        QCOMPARE(tree->topLevelItem(0)->text(0), QString::fromStdString(path));
        QVERIFY(tree->topLevelItem(0)->child(0)->text(0).contains("No such file"));
        QVERIFY(changed.window->isWindowModified());
        QVERIFY(::rename((path + ".moved").c_str(), path.c_str()) == 0);
        changed.window.action("save").trigger();
        QVERIFY(changed.window.waitForSave());
        QCOMPARE(changed.title(), std::string("New"));
        QVERIFY(changed.file.audioIsUntouched());
        QVERIFY(!changed.window->isWindowModified());
    }

    void SaveThatFailedTakesNothingOfSomebodyElsesBackLater() {
        ChangedFile changed;
        QVERIFY(changed.open());
        const auto save = [&](Field field, const char* text) {
            const FileTags tags = readTags(changed.file.path());
            FileTags wanted = tags;
            wanted.v2[field] = text;
            const auto shared = [](const FileTags& values) { return std::make_shared<const FileTags>(values); };
            return saveFile({changed.file.path(), shared(tags), shared(wanted)}, SaveJob::Mode::Save).failure;
        };
        QCOMPARE(save(Field::Title, "Theirs"), std::string());
        QCOMPARE(save(Field::Artist, "Theirs"), std::string());
        changed.window.action("save").trigger();
        QVERIFY(changed.window.waitForDialog("report") != nullptr);
        QCOMPARE(changed.title(), std::string("Theirs"));
        QVERIFY(changed.window->isWindowModified());
        QCOMPARE(changed.window.cell(0, FileTable::Title), QStringLiteral("New"));
        QCOMPARE(changed.window.cell(0, FileTable::Artist), QStringLiteral("Theirs"));
        QCOMPARE(changed.window.field("txtArtist").text(), QStringLiteral("Theirs"));
        changed.window.action("save").trigger();
        QVERIFY(changed.window.waitForSave());
        QCOMPARE(changed.title(), std::string("New"));
        QCOMPARE(readTags(changed.file.path()).v2[Field::Artist], std::string("Theirs"));
        QVERIFY(!changed.window->isWindowModified());
        QVERIFY(changed.file.audioIsUntouched());
    }

    void ClosingWithChangesAsksAndCanBeCancelled() {
        ChangedFile changed;
        QVERIFY(changed.open());
        answer(QMessageBox::Cancel);
        QVERIFY(!changed.window->close());
        QVERIFY(changed.window->isVisible());
        QVERIFY(changed.file.isUnchanged());
        QVERIFY(changed.window->isWindowModified());
    }

    void ClosingWithChangesCanThrowThemAway() {
        ChangedFile changed;
        QVERIFY(changed.open());
        answer(QMessageBox::Discard);
        changed.window->close();
        QTRY_VERIFY(!changed.window->isVisible());
        QVERIFY(changed.file.isUnchanged());
    }

    void ClosingWithChangesCanSaveThem() {
        ChangedFile changed;
        QVERIFY(changed.open());
        answer(QMessageBox::Save);
        changed.window->close();
        QTRY_VERIFY(!changed.window->isVisible());
        QCOMPARE(changed.title(), std::string("New"));
    }

    void ClosingDuringASaveWaitsForItsEnd() {
        ChangedFile changed;
        QVERIFY(changed.open());
        changed.window.action("save").trigger();
        QVERIFY(changed.window->saving().isRunning());
        QVERIFY(!changed.window->close());
        QVERIFY(!changed.window->close());
        QTRY_VERIFY(!changed.window->isVisible());
        QCOMPARE(changed.title(), std::string("New"));
        QVERIFY(changed.file.audioIsUntouched());
    }

    void ClosingDuringASaveThatFailsKeepsTheWindow() {
        ChangedFile changed;
        QVERIFY(changed.open());
        QVERIFY(::unlink(changed.file.path().c_str()) == 0);
        changed.window.action("save").trigger();
        QVERIFY(!changed.window->close());
        QVERIFY(changed.window.waitForDialog("report") != nullptr);
        QTest::qWait(50);
        QVERIFY(changed.window->isVisible());
    }

    void ClosingDuringAPreviewAsksInsteadOfShowingIt() {
        ChangedFile changed;
        QVERIFY(changed.open());
        changed.window.action("preview").trigger();
        QVERIFY(changed.window->saving().isRunning());
        answer(QMessageBox::Discard);
        QVERIFY(!changed.window->close());
        QTRY_VERIFY(!changed.window->isVisible());
        QVERIFY(changed.window->findChild<QDialog*>("preview") == nullptr);
        QVERIFY(changed.file.isUnchanged());
    }

    void ChangesOfAFileThatIsGoneCanBeReverted() {
        ChangedFile changed;
        QVERIFY(changed.open());
        QVERIFY(::unlink(changed.file.path().c_str()) == 0);
        changed.window->list().view().clearSelection();
        QTRY_VERIFY(changed.window->editing().selected().empty());
        changed.window->list().view().selectRow(0);
        QTRY_VERIFY(changed.window.action("revert").isEnabled());
        QVERIFY(changed.window->editing().editable().empty());
        changed.window.action("revert").trigger();
        QVERIFY(!changed.window->isWindowModified());
    }

    void WindowStaysOpenWhenThatSaveFails() {
        ChangedFile changed;
        QVERIFY(changed.open());
        QVERIFY(::unlink(changed.file.path().c_str()) == 0);
        answer(QMessageBox::Save);
        changed.window->close();
        QVERIFY(changed.window.waitForDialog("report") != nullptr);
        QVERIFY(changed.window->isVisible());
    }

    void ClosingAllFilesEndsTheirLoadAndNoRowComesLater() {
        EditorWindow window;
        for (int at = 0; at < 300; ++at) plainFile(window.folder(), std::to_string(at) + ".mp3");
        QVERIFY(showWindow(*window));
        window->open({window.folder().path()});
        QTest::qSleep(30); // rows are on their way now
        window.action("closeFiles").trigger();
        QTRY_VERIFY(!window->loader().isRunning());
        QCOMPARE(window->table().rowCount(), 0);
    }

    void ClosingAllFilesEmptiesTheList() {
        EditorWindow window;
        taggedFile(window.folder(), "a.mp3", "Air");
        QVERIFY(window.open({window.folder().path()}));
        window.action("closeFiles").trigger();
        QCOMPARE(window->table().rowCount(), 0);
        QVERIFY(showWindow(*window));
    }

    void LookingAtFilesWritesNothing() {
        EditorWindow window;
        const Mp3File first = taggedFile(window.folder(), "a.mp3", "One"),
                      second = taggedFile(window.folder(), "b.mp3", "Two", 4),
                      third = plainFile(window.folder(), "c.mp3");
        QVERIFY(window.open({first.path(), second.path(), third.path()}));
        for (const int row : {0, 1, 2}) {
            QVERIFY(window.select({row}));
            QTest::qWait(50);
        }
        QVERIFY(window.select({0, 1, 2}));
        QVERIFY(!window->isWindowModified());
        QVERIFY(!window.action("save").isEnabled());
        window->close();
        QVERIFY(first.isUnchanged() && second.isUnchanged() && third.isUnchanged());
    }

    void AboutBoxIsTheContainerControl() {
        EditorWindow window;
        QVERIFY(window.open({}));
        window.action("about").trigger();
        QDialog* about = window.waitForDialog("about");
        QVERIFY(about != nullptr);
        const auto* control = about->findChild<corvane::controls::Corvane*>();
        QVERIFY(control && control->isVisible() && !control->size().isEmpty());
        about->reject();
    }

    void EntriesOfTheViewGoWhereTheySay() {
        ChangedFile changed;
        QVERIFY(changed.open());
        MainWindow& window = *changed.window;
        changed.window.action("goToFilter").trigger();
        QCOMPARE(window.focusWidget(), &window.list().words());
        changed.window.action("goToFiles").trigger();
        QCOMPARE(window.focusWidget(), &window.list().view());
        changed.window.action("goToFields").trigger();
        QCOMPARE(window.focusWidget(), &changed.window.field("txtTitle"));
        changed.window.action("selectAll").trigger();
        QCOMPARE(window.list().selectedPaths().size(), std::size_t{1});
    }

    void ListOfFramesIsShownAndRemembered() {
        ChangedFile changed;
        QVERIFY(changed.open());
        const auto& editor = *changed.window->findChild<corvane::controls::ID3v2*>();
        QVERIFY(!editor.FrameListVisible());
        changed.window.action("frames").trigger();
        QVERIFY(editor.FrameListVisible());
        changed.window.action("undo").trigger();
        changed.window->close();
        const MainWindow next(changed.window.settings());
        QVERIFY(next.findChild<corvane::controls::ID3v2*>()->FrameListVisible());
    }

    void WindowComesBackAsItWas() {
        EditorWindow window;
        QVERIFY(window.open({}));
        window->list().view().setColumnWidth(FileTable::Title, 333);
        window->close();
        MainWindow next(window.settings());
        QCOMPARE(next.list().view().columnWidth(FileTable::Title), 333);
    }
};

static const bool kIsRegisteredMainWindowTest = corvane::test::registerTest<MainWindowTest>("MainWindowTest");
#include <MainWindowTest.moc>
