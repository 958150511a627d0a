#include "apps/editor/Loader.h"

#include "tests/controls/Registry.h"
#include "tests/editor/EditorFiles.h"
#include "tests/support/ImageBuilder.h"

#include <QSignalSpy>
#include <QThread>
#include <QtTest>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

constexpr int kWait = 30000; // milliseconds

} // namespace

class LoaderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void FilesBelowAFolderAreRead() {
        const ScratchFolder folder;
        taggedFile(folder, "a.mp3", "First");
        taggedFile(folder, "B.MP3", "Second");
        folder.write("c.txt", {});
        Loader loader;
        FileRows rows;
        connect(&loader, &Loader::loaded, this, [&rows](const FileRows& batch) { rows += batch; });
        QSignalSpy finished(&loader, &Loader::finished);
        loader.load({folder.path()});
        QVERIFY(finished.wait(kWait));
        QCOMPARE(finished.front().front().toBool(), true);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows[0].summary.title, std::string("Second"));
        QCOMPARE(rows[1].summary.title, std::string("First"));
    }

    void FilesComeInTheOrderInWhichPeopleCount() {
        const ScratchFolder folder;
        for (const char* name : {"1.mp3", "10.mp3", "2.mp3"}) taggedFile(folder, name, name);
        Loader loader;
        QSignalSpy loaded(&loader, &Loader::loaded);
        loader.load({folder.path()});
        QVERIFY(loaded.wait(kWait));
        const auto rows = loaded.front().front().value<FileRows>();
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows[1].summary.title, std::string("2.mp3"));
        QCOMPARE(rows[2].summary.title, std::string("10.mp3"));
    }

    void FilesAreReadOnAThreadOfTheirOwn() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "First");
        Loader loader;
        bool isOther = false;
        connect(
            &loader, &Loader::progressed, &loader, [&] { isOther = QThread::currentThread() != loader.thread(); },
            Qt::DirectConnection);
        QSignalSpy finished(&loader, &Loader::finished);
        loader.load({file.path()});
        QVERIFY(finished.wait(kWait));
        QVERIFY(isOther);
    }

    void FileThatCannotBeReadIsARowWithItsReason() {
        Loader loader;
        QSignalSpy loaded(&loader, &Loader::loaded);
        loader.load({"/nowhere/at/all.mp3"});
        QVERIFY(loaded.wait(kWait));
        const auto rows = loaded.front().front().value<FileRows>();
        QCOMPARE(rows.size(), 1);
        QVERIFY(!rows.front().failure.empty());
    }

    void FileOfAnotherNameIsTakenWhenItIsMpegAudio() {
        const ScratchFolder folder;
        const std::string cover = folder.write("cover.jpg", jpegImage(64, 48));
        const Mp3File audio = plainFile(folder, "recording.audio");
        const std::string empty = folder.write("empty.mp3", {}), missing = folder.path("missing.jpg");
        Loader loader;
        FileRows rows;
        connect(&loader, &Loader::loaded, this, [&rows](const FileRows& batch) { rows += batch; });
        QSignalSpy ignored(&loader, &Loader::ignored), finished(&loader, &Loader::finished);
        loader.load({cover, audio.path(), empty, missing});
        QVERIFY(finished.wait(kWait));
        QStringList paths;
        for (const FileRow& row : rows) paths << QString::fromStdString(row.path);
        const QStringList expected{QString::fromStdString(empty), QString::fromStdString(missing),
                                   QString::fromStdString(audio.path())}; // in the order of their names
        QCOMPARE(paths, expected);
        QCOMPARE(ignored.count(), 1);
        QCOMPARE(ignored.front().at(0).toString(), QString::fromStdString(cover));
        QCOMPARE(ignored.front().at(1).toString(), QStringLiteral("This is a JPEG image, not an MPEG audio file"));
    }

    void FirstRowsComeLongBeforeTheLast() {
        const ScratchFolder folder;
        for (int at = 0; at < 400; ++at) plainFile(folder, std::to_string(at) + ".mp3");
        Loader loader;
        QSignalSpy loaded(&loader, &Loader::loaded), finished(&loader, &Loader::finished);
        loader.load({folder.path()});
        QVERIFY(finished.wait(kWait));
        QVERIFY(loaded.count() > 1);
        QCOMPARE(loaded.front().front().value<FileRows>().size(), 100);
    }

    void CancelledLoadEndsEarly() {
        const ScratchFolder folder;
        for (int at = 0; at < 2000; ++at) plainFile(folder, std::to_string(at) + ".mp3");
        Loader loader;
        qsizetype count = 0;
        connect(&loader, &Loader::loaded, this, [&](const FileRows& batch) {
            count += batch.size();
            loader.cancel();
        });
        QSignalSpy finished(&loader, &Loader::finished);
        loader.load({folder.path(), folder.path(), folder.path(), folder.path(), folder.path(), folder.path()});
        QVERIFY(finished.wait(kWait));
        QCOMPARE(finished.front().front().toBool(), false);
        QVERIFY(count < 12000);
        QVERIFY(!loader.isRunning());
    }

    void AbandonedLoadTellsNoMoreRowsAndTheNextOneDoes() {
        const ScratchFolder folder;
        for (int at = 0; at < 300; ++at) plainFile(folder, std::to_string(at) + ".mp3");
        const Mp3File other = taggedFile(folder, "other.MP3", "Other");
        Loader loader;
        QSignalSpy loaded(&loader, &Loader::loaded), finished(&loader, &Loader::finished);
        loader.load({folder.path()});
        QTest::qSleep(30); // rows are on their way now
        loader.abandon();
        loader.load({other.path()});
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, kWait);
        QCOMPARE(loaded.count(), 1);
        QCOMPARE(loaded.front().front().value<FileRows>().front().path, other.path());
    }

    void LoadThatIsAskedForBehindACancelledOneIsDone() {
        const ScratchFolder folder;
        for (int at = 0; at < 300; ++at) plainFile(folder, std::to_string(at) + ".mp3");
        const Mp3File other = taggedFile(folder, "other.MP3", "Other");
        Loader loader;
        QSignalSpy finished(&loader, &Loader::finished);
        loader.load({folder.path()});
        loader.load({folder.path()});
        loader.cancel();
        loader.load({other.path()});
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, kWait);
        QCOMPARE(finished.at(0).front().toBool(), false);
        QCOMPARE(finished.at(1).front().toBool(), true);
    }

    void SecondLoadWaitsForTheFirst() {
        const ScratchFolder folder;
        const Mp3File first = taggedFile(folder, "a.mp3", "First"), second = taggedFile(folder, "b.mp3", "Second");
        Loader loader;
        QSignalSpy finished(&loader, &Loader::finished);
        FileRows rows;
        connect(&loader, &Loader::loaded, this, [&rows](const FileRows& batch) { rows += batch; });
        loader.load({first.path()});
        loader.load({second.path()});
        QTRY_COMPARE_WITH_TIMEOUT(finished.count(), 2, kWait);
        QCOMPARE(rows.size(), 2);
    }

    void LoaderThatDiesWhileItWorksIsWaitedFor() {
        const ScratchFolder folder;
        for (int at = 0; at < 300; ++at) plainFile(folder, std::to_string(at) + ".mp3");
        for (int round = 0; round < 5; ++round) {
            Loader loader;
            loader.load({folder.path()});
        }
        QCOMPARE(namesIn(folder.path()).size(), std::size_t{300});
    }
};

static const bool kIsRegisteredLoaderTest = corvane::test::registerTest<LoaderTest>("LoaderTest");
#include <LoaderTest.moc>
