#include "apps/editor/FileTable.h"

#include "apps/editor/FileFilter.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::editor;

namespace {

FileRow row(const char* path, const char* title, std::int32_t seconds = 0, const char* track = "") {
    FileRow made;
    made.path = path;
    made.summary.title = title;
    made.summary.durationSeconds = seconds;
    made.summary.track = track;
    return made;
}

QString cell(const QAbstractItemModel& model, int at, int column) { return model.index(at, column).data().toString(); }

} // namespace

class FileTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void BatchOfRowsIsInsertedAtOnce() {
        FileTable table;
        const QSignalSpy inserted(&table, &QAbstractItemModel::rowsInserted);
        table.add({row("/m/a.mp3", "A"), row("/m/b.mp3", "B"), row("/m/c.mp3", "C")});
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(table.rowCount(), 3);
        QCOMPARE(cell(table, 1, FileTable::Title), QStringLiteral("B"));
        QCOMPARE(cell(table, 1, FileTable::Folder), QStringLiteral("/m"));
    }

    void FileThatIsListedAlreadyIsShownAnew() {
        FileTable table;
        table.add({row("/m/a.mp3", "Old"), row("/m/a.mp3", "Twice")});
        table.add({row("/m/a.mp3", "New")});
        QCOMPARE(table.rowCount(), 1);
        QCOMPARE(cell(table, 0, FileTable::Title), QStringLiteral("New"));
    }

    void ToolTipShowsANameAsItIsWritten_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("toolTip");
        QTest::newRow("plain") << "/m/I <3 it.mp3"
                               << "/m/I <3 it.mp3";
        QTest::newRow("like a mark") << "/m/a <b>live</b> & loud.mp3"
                                     << "/m/a &lt;b&gt;live&lt;/b&gt; &amp; loud.mp3";
    }
    void ToolTipShowsANameAsItIsWritten() {
        QFETCH(QString, path);
        FileTable table;
        table.add({row(qPrintable(path), "A")});
        QTEST(table.index(0, 0).data(Qt::ToolTipRole).toString(), "toolTip");
    }

    void ChangeStandsOutUntilItIsDropped() {
        FileTable table;
        table.add({row("/m/a.mp3", "Old")});
        corvane::FileSummary pending;
        pending.title = "Wanted";
        table.showChanges({{"/m/a.mp3", pending}});
        QVERIFY(table.index(0, FileTable::Title).data(Qt::FontRole).value<QFont>().bold());
        QCOMPARE(cell(table, 0, FileTable::Title), QStringLiteral("Wanted"));
        QVERIFY(cell(table, 0, FileTable::Name).startsWith(QChar(0x2022)));
        table.showChanges({{"/m/a.mp3", std::nullopt}});
        QCOMPARE(cell(table, 0, FileTable::Title), QStringLiteral("Old"));
        QVERIFY(!table.index(0, FileTable::Title).data(Qt::FontRole).isValid());
    }

    void ChangesOfManyFilesAreToldOnce() {
        FileTable table;
        FileRows rows;
        std::vector<FileTable::Change> changes;
        for (int at = 0; at < 100; ++at) {
            rows.push_back(row(qPrintable(QStringLiteral("/m/%1.mp3").arg(at)), "T"));
            changes.push_back({rows.back().path, corvane::FileSummary()});
        }
        table.add(rows);
        const QSignalSpy told(&table, &QAbstractItemModel::dataChanged);
        table.showChanges(changes);
        QCOMPARE(told.count(), 1);
        QCOMPARE(told.front().at(1).toModelIndex().row(), 99);
    }

    void TimesAndTracksAreSortedAsNumbers() {
        FileTable table;
        FileFilter filter;
        filter.setSourceModel(&table);
        table.add({row("/m/a.mp3", "A", 3600, "10/12"), row("/m/b.mp3", "B", 59, "9"), row("/m/c.mp3", "C", 600, "2")});
        filter.sort(FileTable::Duration, Qt::AscendingOrder);
        QCOMPARE(cell(filter, 0, FileTable::Duration), QStringLiteral("0:59"));
        QCOMPARE(cell(filter, 2, FileTable::Duration), QStringLiteral("1:00:00"));
        filter.sort(FileTable::Track, Qt::DescendingOrder);
        QCOMPARE(cell(filter, 0, FileTable::Track), QStringLiteral("10/12"));
        QCOMPARE(cell(filter, 2, FileTable::Track), QStringLiteral("2"));
    }

    void NumbersInTextsAreSortedByTheirValue() {
        FileTable table;
        FileFilter filter;
        filter.setSourceModel(&table);
        table.add(
            {row("/m/Track 10.mp3", "Part 2"), row("/m/Track 9.mp3", "Part 11"), row("/n/Track 9.mp3", "Part 2")});
        filter.sort(FileTable::Name, Qt::AscendingOrder);
        QCOMPARE(cell(filter, 2, FileTable::Name), QStringLiteral("Track 10.mp3"));
        filter.sort(FileTable::Title, Qt::DescendingOrder);
        QCOMPARE(cell(filter, 0, FileTable::Title), QStringLiteral("Part 11"));
        QCOMPARE(cell(filter, 1, FileTable::Folder), QStringLiteral("/m"));
    }

    void EachWordOfTheFilterMayStandInAnotherColumn() {
        FileTable table;
        FileFilter filter;
        filter.setSourceModel(&table);
        table.add({row("/bach/a.mp3", "Air"), row("/bach/b.mp3", "Fugue"), row("/holst/c.mp3", "Air Suite")});
        filter.setWords(QStringLiteral("air"));
        QCOMPARE(filter.rowCount(), 2);
        filter.setWords(QStringLiteral("  AIR   bach "));
        QCOMPARE(filter.rowCount(), 1);
        QCOMPARE(cell(filter, 0, FileTable::Title), QStringLiteral("Air"));
        filter.setWords({});
        QCOMPARE(filter.rowCount(), 3);
    }

    void RowStaysWhereItIsWhileItsTextIsChanged() {
        FileTable table;
        FileFilter filter;
        filter.setSourceModel(&table);
        table.add({row("/m/a.mp3", "Air"), row("/m/b.mp3", "Air on a string")});
        filter.sort(FileTable::Title, Qt::AscendingOrder);
        filter.setWords(QStringLiteral("air"));
        corvane::FileSummary pending;
        pending.title = "Zephyr";
        table.showChanges({{"/m/a.mp3", pending}});
        QCOMPARE(filter.rowCount(), 2);
        QCOMPARE(cell(filter, 0, FileTable::Title), QStringLiteral("Zephyr"));
        filter.setWords(QStringLiteral("zephyr"));
        QCOMPARE(filter.rowCount(), 1);
    }

    void FileThatCannotBeReadSaysWhy() {
        FileTable table;
        FileRow broken = row("/m/a.mp3", "");
        broken.failure = "No such file";
        table.add({broken});
        QVERIFY(table.index(0, 0).data(Qt::ToolTipRole).toString().contains(QStringLiteral("No such file")));
        QVERIFY(!table.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
    }

    void RemovedFilesAreForgotten() {
        FileTable table;
        table.add({row("/m/a.mp3", "A"), row("/m/b.mp3", "B")});
        table.remove({"/m/a.mp3"});
        QCOMPARE(table.rowCount(), 1);
        QCOMPARE(table.rowOf("/m/b.mp3"), 0);
        QCOMPARE(table.rowOf("/m/a.mp3"), -1);
    }
};

static const bool kIsRegisteredFileTableTest = corvane::test::registerTest<FileTableTest>("FileTableTest");
#include <FileTableTest.moc>
