#include "apps/editor/SaveJob.h"

#include "apps/editor/ChangeDialog.h"
#include "apps/editor/ChangePlan.h"
#include "apps/editor/ChangeTree.h"
#include "apps/editor/OpenedFile.h"
#include "apps/editor/Tools.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorFiles.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Process.h"

#include <QSignalSpy>
#include <QThread>
#include <QtTest>
#include <set>
#include <stdexcept>
#include <tuple>

using namespace corvane::editor;
using namespace corvane::test;
using Mode = SaveJob::Mode;

using ToolOfTest = std::function<FileTags(FileTags)>;
Q_DECLARE_METATYPE(ToolOfTest)

namespace {

FileToSave toSave(const std::string& path, const std::function<FileTags(FileTags)>& tool) {
    const FileTags tags = readTags(path);
    return {path, std::make_shared<const FileTags>(tags), std::make_shared<const FileTags>(tool(tags))};
}

FileToSave titled(const std::string& path, const std::string& title) {
    return toSave(path, [&](FileTags tags) { return withText(std::move(tags), Field::Title, title); });
}

} // namespace

class SaveJobTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PreviewTellsWhatChangesAndWritesNothing() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const SaveResult result = saveFile(titled(file.path(), "New"), Mode::Preview);
        QVERIFY(result.failure.empty());
        QCOMPARE(result.plan.tags.size(), std::size_t{2});
        QCOMPARE(result.plan.tags[0].changes.front().before, std::string("Old"));
        QCOMPARE(result.plan.tags[0].changes.front().after, std::string("New"));
        QVERIFY(file.isUnchanged());
        QVERIFY(!result.newRow.has_value());
    }

    void OnlyTouchedFieldsAreWritten() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const FileTags before = readTags(file.path());
        const SaveResult result = saveFile(titled(file.path(), "New"), Mode::Save);
        QCOMPARE(result.failure, std::string());
        FileTags expected = before;
        expected.v1[Field::Title] = expected.v2[Field::Title] = "New";
        QCOMPARE(readTags(file.path()), expected);
        QCOMPARE(result.newRow->summary.title, std::string("New"));
        QVERIFY(audioIsUntouchedIn(file));
    }

    void AudioStaysAsItIs() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const auto save = toSave(file.path(), [](FileTags tags) {
            tags.v2[Field::Title] = std::string(5000, 'x');
            tags.v2[Field::Lyrics] = "one\ntwo";
            tags.v2[Field::SyncedLyrics] = "[00:01.0] one\n[00:02.0] two";
            return tags;
        });
        QCOMPARE(saveFile(save, Mode::Save).failure, std::string());
        QVERIFY(file.audioIsUntouched());
        QCOMPARE(readTags(file.path()).v2, save.wanted->v2);
    }

    void FileWithoutTagsGetsBoth() {
        const ScratchFolder folder;
        const Mp3File file = plainFile(folder, "a.mp3");
        QCOMPARE(saveFile(titled(file.path(), "New"), Mode::Save).failure, std::string());
        const FileTags tags = readTags(file.path());
        QCOMPARE(tags.v1[Field::Title], std::string("New"));
        QCOMPARE(tags.v2[Field::Title], std::string("New"));
        QVERIFY(audioIsUntouchedIn(file, Mp3File::audio()));
    }

    void PictureComesOutAsItWentIn() {
        const ScratchFolder folder;
        const Mp3File file = plainFile(folder, "a.mp3");
        const auto picture = corvane::Picture::fromBytes(jpegImage(64, 48));
        const auto save = toSave(file.path(), [&](FileTags tags) { return withPicture(std::move(tags), picture); });
        QCOMPARE(saveFile(save, Mode::Save).failure, std::string());
        OpenedFile opened(file.path());
        const auto stored = opened.id3v2Tag(opened.tags().v2)->Picture();
        QVERIFY(stored != nullptr);
        QVERIFY(std::ranges::equal(stored->bytes(), picture->bytes()));
        const auto removal = toSave(file.path(), [](FileTags tags) { return withPicture(std::move(tags), nullptr); });
        QCOMPARE(saveFile(removal, Mode::Save).failure, std::string());
        QCOMPARE(file.content(), file.original());
    }

    void RemovedTagsAreGoneAndTheRestIsKept() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const auto save = toSave(file.path(), [](FileTags tags) { return withoutV1(withoutV2(std::move(tags))); });
        const SaveResult result = saveFile(save, Mode::Save);
        QCOMPARE(result.failure, std::string());
        QCOMPARE(countsOf({result}).changed, 1);
        corvane::ByteArray expected = Mp3File::usualRest();
        expected.resize(expected.size() - 128);
        QCOMPARE(file.content(), expected);
    }

    void FileOfNothingButTagsLosesBoth() {
        const ScratchFolder folder;
        Id3v2Builder tag;
        tag.text("TIT2", "T");
        const Mp3File file(folder, tag.done(), Id3v1Builder().title("T").done(), "a.mp3");
        const auto save = toSave(file.path(), [](FileTags tags) { return withoutV1(withoutV2(std::move(tags))); });
        QCOMPARE(saveFile(save, Mode::Save).failure, std::string());
        QVERIFY(file.content().empty());
    }

    void TagOfAnotherVersionIsRefusedAndNothingIsWritten() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old", 4);
        const SaveResult result = saveFile(titled(file.path(), "New"), Mode::Save);
        QVERIFY(result.failure.find("2.4") != std::string::npos);
        QVERIFY(file.isUnchanged());
    }

    void FirstTagOfAFileThatIsNoMpegAudioIsRefusedInPreviewAndSave() {
        const ScratchFolder folder;
        const auto jpeg = jpegImage(64, 48);
        const std::vector<std::tuple<std::string, corvane::ByteArray, std::string>> files{
            {"cover.jpg", jpeg, "This is a JPEG image, not an MPEG audio file"},
            {"note.txt", {'n', 'o', 't', 'e', '\n'}, "This is a text file, not an MPEG audio file"},
            {"song.flac", {'f', 'L', 'a', 'C', 0, 0, 0, 34}, "This is a FLAC file, not an MPEG audio file"},
            {"zeros.mp3", corvane::ByteArray(3000), "The file holds no MPEG audio frame"}};
        const auto picture = corvane::Picture::fromBytes(jpeg);
        for (const auto& [name, content, reason] : files) {
            const std::string path = folder.write(name, content);
            const auto covered = [&](FileTags tags) { return withPicture(std::move(tags), picture); };
            for (const FileToSave& save : {titled(path, "New"), toSave(path, covered)}) {
                for (const Mode mode : {Mode::Preview, Mode::Save}) {
                    QCOMPARE(saveFile(save, mode).failure, reason);
                    QCOMPARE(contentOf(path), content);
                }
            }
        }
    }

    void TagThatIsThereIsChangedWhateverTheRestIs() {
        const ScratchFolder folder;
        const Mp3File file(folder, {}, Id3v1Builder().title("Old").done(), "record.mp3");
        const auto jpeg = jpegImage(64, 48);
        corvane::ByteArray content = jpeg;
        content.insert(content.end(), file.original().begin(), file.original().end());
        const std::string path = folder.write("cover.jpg", content);
        QCOMPARE(saveFile(titled(path, "New"), Mode::Save).failure, std::string());
        QCOMPARE(readTags(path).v1[Field::Title], std::string("New"));
    }

    void FailureAfterAWrittenTagSaysWhatHasBecomeOfEachTag() {
        using Fate = corvane::cli::ChangedTag::Fate;
        const auto planOf = [](Fate first, Fate second) {
            corvane::cli::ChangeReport plan;
            plan.tags.push_back({"v1", "ID3v1.1", first, {}, [] {}});
            plan.tags.push_back({"v2", "ID3v2.3.0", second, {}, [] { throw std::runtime_error("No space"); }});
            return plan;
        };
        const auto failureOf = [](const corvane::cli::ChangeReport& plan) {
            try {
                carryOut(plan);
            } catch (const std::exception& failure) {
                return std::string(failure.what());
            }
            return std::string();
        };
        QCOMPARE(failureOf(planOf(Fate::Removed, Fate::Removed)),
                 std::string("The ID3v1.1 tag is removed, but the ID3v2.3.0 tag is not removed: No space"));
        QCOMPARE(failureOf(planOf(Fate::Added, Fate::Kept)),
                 std::string("The ID3v1.1 tag is added, but the ID3v2.3.0 tag is not changed: No space"));
        QCOMPARE(failureOf(planOf(Fate::Kept, Fate::Added)),
                 std::string("The ID3v1.1 tag is changed, but the ID3v2.3.0 tag is not added: No space"));
    }

    void TrackNumberThatARecordCannotHoldIsRefused() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const auto save = toSave(file.path(), [](FileTags tags) {
            tags.v1[Field::Track] = "300";
            return tags;
        });
        const SaveResult result = saveFile(save, Mode::Save);
        QCOMPARE(result.failure, std::string("ID3v1 has no track number 300"));
        QVERIFY(file.isUnchanged());
    }

    void TextThatIsCutInTheRecordIsAWarning() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const SaveResult result = saveFile(titled(file.path(), std::string(40, 'x')), Mode::Preview);
        QCOMPARE(result.plan.warnings.size(), std::size_t{1});
        QCOMPARE(summaryOf({result}, Mode::Preview), QStringLiteral("Files that will change: 1, with warnings: 1."));
    }

    void ValueThatSomebodyElseHasChangedSinceIsNotOverwrittenUnseen_data() {
        QTest::addColumn<ToolOfTest>("mine");
        QTest::addColumn<ToolOfTest>("theirs");
        QTest::addColumn<QString>("names"); // in the failure; "" for a save that succeeds
        const auto v2 = [](Field field, const char* text) {
            return [=](FileTags tags) {
                tags.v2[field] = text;
                return tags;
            };
        };
        const auto v1 = [](const char* text) {
            return [=](FileTags tags) {
                tags.v1[Field::Title] = text;
                return tags;
            };
        };
        const auto title = [&](const char* text) { return v2(Field::Title, text); };
        QTest::newRow("same field") << ToolOfTest(title("Mine")) << ToolOfTest(title("Theirs")) << "ID3v2 title";
        QTest::newRow("same value") << ToolOfTest(title("Same")) << ToolOfTest(title("Same")) << "";
        QTest::newRow("other field") << ToolOfTest(title("Mine")) << ToolOfTest(v2(Field::Album, "Theirs")) << "";
        QTest::newRow("other tag") << ToolOfTest(title("Mine")) << ToolOfTest(v1("Theirs")) << "";
        QTest::newRow("record") << ToolOfTest(v1("Mine")) << ToolOfTest(v1("Theirs")) << "ID3v1 title";
        QTest::newRow("removal") << ToolOfTest(withoutV2) << ToolOfTest(title("Theirs")) << "ID3v2 tag";
        QTest::newRow("both remove") << ToolOfTest(withoutV2) << ToolOfTest(withoutV2) << "";
        QTest::newRow("removed by them") << ToolOfTest(title("Mine")) << ToolOfTest(withoutV2) << "ID3v2 title";
    }
    void ValueThatSomebodyElseHasChangedSinceIsNotOverwrittenUnseen() {
        QFETCH(ToolOfTest, mine);
        QFETCH(ToolOfTest, theirs);
        QFETCH(QString, names);
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        const FileToSave save = toSave(file.path(), mine);
        QCOMPARE(saveFile(toSave(file.path(), theirs), Mode::Save).failure, std::string());
        const auto before = file.content();
        const SaveResult result = saveFile(save, Mode::Save);
        if (names.isEmpty()) {
            QCOMPARE(result.failure, std::string());
            FileTags expected = theirs(*save.wanted);
            if (!expected.v2.present) expected.v2 = {};
            QCOMPARE(readTags(file.path()), expected);
            return;
        }
        QVERIFY2(result.failure.find(" read: " + names.toStdString() + ". ") != std::string::npos,
                 result.failure.c_str());
        QCOMPARE(file.content(), before);
        QCOMPARE(result.outcome->now, readTags(file.path()));
    }

    void RecordThatSomebodyElseHasAddedSinceIsNotEmptied() {
        const ScratchFolder folder;
        const Mp3File file = plainFile(folder, "a.mp3");
        const auto record = [](Field field) {
            return [field](FileTags tags) {
                tags.v1.present = true;
                tags.v1[field] = "Text";
                return tags;
            };
        };
        const FileToSave save = toSave(file.path(), record(Field::Title));
        QCOMPARE(saveFile(toSave(file.path(), record(Field::Artist)), Mode::Save).failure, std::string());
        QVERIFY(saveFile(save, Mode::Save).failure.find("ID3v1 artist") != std::string::npos);
        QCOMPARE(readTags(file.path()).v1[Field::Artist], std::string("Text"));
    }

    void WhatCannotBeWrittenIsFoundOutBeforehand_data() {
        QTest::addColumn<int>("fileMode");
        QTest::addColumn<int>("folderMode");
        QTest::addColumn<ToolOfTest>("change");
        QTest::addColumn<QString>("failure"); // "" for a save that succeeds
        const ToolOfTest title = [](FileTags tags) {
            tags.v2[Field::Title] = "New";
            return tags;
        };
        const ToolOfTest record = [](FileTags tags) {
            tags.v1[Field::Title] = "New";
            return tags;
        };
        const ToolOfTest titleWithoutRecord = [title](FileTags tags) { return title(withoutV1(std::move(tags))); };
        const QString ofFile = "Permission denied", ofFolder = "The folder of the file cannot be written: " + ofFile;
        QTest::newRow("tag, both writable") << 0644 << 0755 << title << "";
        QTest::newRow("tag, file") << 0444 << 0755 << title << ofFile;
        QTest::newRow("record, file") << 0444 << 0755 << record << ofFile;
        QTest::newRow("removals, file") << 0444 << 0755 << ToolOfTest(withoutV2) << ofFile;
        QTest::newRow("tag, folder") << 0644 << 0555 << title << ofFolder;
        QTest::newRow("record, folder, which it does not need") << 0644 << 0555 << record << "";
        QTest::newRow("removed tag, folder") << 0644 << 0555 << ToolOfTest(withoutV2) << ofFolder;
        QTest::newRow("removed record, folder") << 0644 << 0555 << ToolOfTest(withoutV1) << ofFolder;
        QTest::newRow("record and tag, folder") << 0644 << 0555 << titleWithoutRecord << ofFolder;
        QTest::newRow("nothing to write, file")
            << 0444 << 0555 << ToolOfTest([](const FileTags& tags) { return tags; }) << "";
    }
    void WhatCannotBeWrittenIsFoundOutBeforehand() {
        QFETCH(int, fileMode);
        QFETCH(int, folderMode);
        QFETCH(ToolOfTest, change);
        QFETCH(QString, failure);
        if (!isRoot()) QSKIP("needs another user");
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        QVERIFY(::chown(file.path().c_str(), kNobody, kNobody) == 0);
        QVERIFY(::chown(folder.path().c_str(), kNobody, kNobody) == 0);
        QVERIFY(::chmod(file.path().c_str(), static_cast<mode_t>(fileMode)) == 0);
        QVERIFY(::chmod(folder.path().c_str(), static_cast<mode_t>(folderMode)) == 0);
        const FileToSave save = toSave(file.path(), change);
        const auto isFailureOf = [&](Mode mode) {
            const std::string found = saveFile(save, mode).failure;
            if (found != failure.toStdString()) std::fprintf(stderr, "found: %s\n", found.c_str());
            return found == failure.toStdString();
        };
        QCOMPARE(asNobody([&] { return isFailureOf(Mode::Preview) ? 0 : 1; }), 0);
        QVERIFY(file.isUnchanged());
        QCOMPARE(asNobody([&] { return isFailureOf(Mode::Save) ? 0 : 1; }), 0);
        if (!failure.isEmpty()) QVERIFY(file.isUnchanged());
        QCOMPARE(folder.names(), std::vector<std::string>{"a.mp3"});
        QVERIFY(audioIsUntouchedIn(file));
    }

    void FileThatFailsIsNamedAndTheOthersAreSaved() {
        const ScratchFolder folder;
        const Mp3File first = taggedFile(folder, "a.mp3", "Old"), second = taggedFile(folder, "b.mp3", "Old"),
                      third = taggedFile(folder, "c.mp3", "Old");
        std::vector<FileToSave> files{titled(first.path(), "New"), titled(second.path(), "New"),
                                      titled(third.path(), "New")};
        ::unlink(second.path().c_str());
        SaveJob job;
        QSignalSpy finished(&job, &SaveJob::finished);
        job.run(files, Mode::Save);
        QVERIFY(finished.wait(30000));
        QCOMPARE(job.results().size(), 3);
        QCOMPARE(readTags(first.path()).v2[Field::Title], std::string("New"));
        QCOMPARE(readTags(third.path()).v2[Field::Title], std::string("New"));
        const QString report = textOf(job.results());
        QVERIFY(report.contains(QString::fromStdString(second.path()) + "\n  failed: "));
        ChangeTree tree;
        tree.show(job.results());
        QCOMPARE(tree.topLevelItem(0)->text(0), QString::fromStdString(second.path()));
        QVERIFY(!tree.topLevelItem(0)->child(0)->text(0).isEmpty());
    }

    void FilesAreSavedOnAThreadOfTheirOwnWhichTellsHowFarItIs() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "Old");
        SaveJob job;
        std::set<QThread*> threads;
        qsizetype total = 0;
        const auto note = [&](qsizetype, qsizetype files) {
            threads.insert(QThread::currentThread());
            total = files;
        };
        connect(&job, &SaveJob::progressed, &job, note, Qt::DirectConnection);
        QSignalSpy finished(&job, &SaveJob::finished);
        job.run({titled(file.path(), "New")}, Mode::Save);
        QVERIFY(finished.wait(30000));
        QCOMPARE(total, 1);
        QVERIFY(!threads.contains(QThread::currentThread()));
    }

    void CancelledSaveStopsBetweenTwoFiles() {
        const ScratchFolder folder;
        std::vector<FileToSave> files;
        for (int at = 0; at < 200; ++at) {
            files.push_back(titled(taggedFile(folder, std::to_string(at) + ".mp3", "Old").path(), "New"));
        }
        SaveJob job;
        QSignalSpy finished(&job, &SaveJob::finished);
        job.run(files, Mode::Save);
        job.cancel();
        QVERIFY(finished.wait(30000));
        QCOMPARE(finished.front().front().toBool(), false);
        QVERIFY(job.results().size() < 200);
        for (const FileToSave& file : files) {
            const bool isDone = std::any_of(job.results().begin(), job.results().end(),
                                            [&](const SaveResult& result) { return result.path == file.path; });
            QCOMPARE(readTags(file.path).v2[Field::Title], std::string(isDone ? "New" : "Old"));
        }
    }
};

static const bool kIsRegisteredSaveJobTest = corvane::test::registerTest<SaveJobTest>("SaveJobTest");
#include <SaveJobTest.moc>
