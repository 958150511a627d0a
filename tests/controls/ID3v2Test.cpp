#include "corvane/controls/ID3v2.h"

#include "corvane/controls/FrameRows.h"

#include "tests/controls/ID3v2Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using enum EID3v2Apperance;

// What the editor shows of a tag.
class ID3v2Test : public ID3v2Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void beginsWithoutTag();
    void showsTheFieldsOfATag();
    void tellsVersionAndSize();
    void aTagThatCanBeSavedIsEditable();
    void nothingEmptiesAndDisables();
    void clearEmptiesEverythingAndKeepsTheTag();
    void genresAreShownByNumberOrName_data();
    void genresAreShownByNumberOrName();
    void framesAreListed();
    void framesOfOtherVersionsAreListed_data();
    void framesOfOtherVersionsAreListed();
    void binaryFramesTellTheirSize_data();
    void binaryFramesTellTheirSize();
    void aLargeBinaryFrameIsListedWithSeparators();
    void aRowIsOneLineHigh();
    void aHiddenListKeepsItsRows();
};

void ID3v2Test::beginsWithoutTag() {
    QVERIFY(!control_->HasTag() && !control_->saveTag() && !control_->removeTag());
    QVERIFY(!control_->Enabled() && control_->Locked());
    QVERIFY(control_->ID3V2Tag() == nullptr);
    QCOMPARE(control_->Mode(), v2aDefault);
    QVERIFY(control_->FrameListVisible());
    QCOMPARE(genres().count(), 149);
    QCOMPARE(tabs().currentIndex(), 0);
    QCOMPARE(list().headerItem()->text(0), "Frame");
    QCOMPARE(list().headerItem()->text(1), "Value");
    QCOMPARE(list().headerItem()->text(2), "Description");
    QCOMPARE(list().headerItem()->text(3), "Language");
}

void ID3v2Test::showsTheFieldsOfATag() {
    give(fullTag());
    for (const Shown& shown : kShown) QCOMPARE(line(shown.box).text(), QLatin1String(shown.text));
    QCOMPARE(line("txtComment").text(), "A comment");
    QCOMPARE(line("txtURL").text(), "https://example.org/");
    QCOMPARE(page("txtLyrics").toPlainText(), "one\ntwo");
    QCOMPARE(genres().currentText(), "Rock");
    QCOMPARE(label("lblGenreByte").text(), "17");
    QVERIFY(!label("picMain").pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(label("lblPicture").text().contains("300"));
}

void ID3v2Test::tellsVersionAndSize() {
    const auto given = give(fullTag());
    QCOMPARE(label("lblVersion").text(), "ID3v2.3.0 Tag");
    QCOMPARE(label("lblSize").text(), QString("%1 Bytes").arg(std::get<std::int32_t>(given->Size())));
}

void ID3v2Test::aTagThatCanBeSavedIsEditable() {
    give(fullTag());
    QVERIFY(control_->HasTag() && control_->saveTag() && !control_->removeTag());
    QVERIFY(control_->Enabled() && !control_->Locked());
    QVERIFY(label("lblNotice").isHidden());
    QVERIFY(showWindow(*control_));
    type(line("txtTitle"), "x");
    QCOMPARE(line("txtTitle").text(), "xA title");
}

void ID3v2Test::nothingEmptiesAndDisables() {
    give(fullTag());
    control_->ID3V2Tag(nullptr);
    QVERIFY(!check().isChecked() && !check().isEnabled());
    QVERIFY(!control_->Enabled());
    for (const char* name : kBoxes) QVERIFY(child<QWidget>(*control_, name).property("plainText").toString().isEmpty());
    QCOMPARE(list().topLevelItemCount(), 0);
    QCOMPARE(label("lblVersion").text(), "");
    QVERIFY(control_->ID3V2Tag() == nullptr);
    control_->ID3V2Tag(std::shared_ptr<corvane::ID3V2Tag>());
    QVERIFY(control_->ID3V2Tag() == nullptr);
}

void ID3v2Test::clearEmptiesEverythingAndKeepsTheTag() {
    const auto given = give(fullTag());
    control_->Clear();
    for (const Shown& shown : kShown) QCOMPARE(line(shown.box).text(), "");
    QCOMPARE(page("txtLyrics").toPlainText(), "");
    QCOMPARE(page("txtSyncedLyrics").toPlainText(), "");
    QCOMPARE(genres().currentIndex(), -1);
    QCOMPARE(label("lblVersion").text(), "");
    QCOMPARE(label("lblSize").text(), "");
    QVERIFY(label("picMain").pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(list().topLevelItemCount(), 0);
    QVERIFY(control_->HasTag());
}

void ID3v2Test::genresAreShownByNumberOrName_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("byte");
    QTest::addColumn<QString>("placeholder");
    const auto row = [](const char* name, const char* text, const char* item, const char* byte,
                        const char* placeholder) {
        QTest::newRow(name) << QString(text) << QString(item) << QString(byte) << QString(placeholder);
    };
    row("number and name", "(17)Rock", "Rock", "17", " ");
    row("number", "(8)", "Jazz", "8", " ");
    row("name", "Jazz", "Jazz", "8", " ");
    row("a name of the user's own", "Hurdy-Gurdy", "", "", "Hurdy-Gurdy");
    row("a number without name", "(200)", "", "", "(200)");
    row("none", "", "", "", " ");
}

void ID3v2Test::genresAreShownByNumberOrName() {
    QFETCH(QString, text);
    give(Id3v2Builder().text("TIT2", "Title").text("TCON", text.toStdString()));
    QTEST(genres().currentText(), "item");
    QTEST(label("lblGenreByte").text(), "byte");
    QTEST(genres().placeholderText(), "placeholder");
}

void ID3v2Test::framesAreListed() {
    give(fullTag());
    QCOMPARE(row(0), (QStringList{"TIT2", "A title", "", ""}));
    const auto found = list().findItems("COMM", Qt::MatchExactly, 0);
    QCOMPARE(found.size(), 2);
    QCOMPARE(found.at(0)->text(1), "A comment");
    QCOMPARE(found.at(0)->text(3), "eng");
    QCOMPARE(found.at(1)->text(2), "MusicMatch_Mood");
    QCOMPARE(list().findItems("PRIV", Qt::MatchExactly, 0).value(0)->text(1), "Binary (2,345 Bytes)");
    QCOMPARE(list().topLevelItemCount(), handler_->ID3V2Tag()->ID3V23Tag()->FrameCount());
}

void ID3v2Test::framesOfOtherVersionsAreListed_data() {
    QTest::addColumn<unsigned>("version");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("binary");
    QTest::newRow("2.2") << 2U << "TT2"
                         << "UFI";
    QTest::newRow("2.4") << 4U << "TIT2"
                         << "PRIV";
}

void ID3v2Test::framesOfOtherVersionsAreListed() {
    QFETCH(unsigned, version);
    QFETCH(QString, title);
    QFETCH(QString, binary);
    give(Id3v2Builder(version)
             .text(title.toStdString(), "A title")
             .frame(binary.toStdString(), corvane::ByteArray(999, 7)));
    QCOMPARE(row(0), (QStringList{title, "A title", "", ""}));
    QCOMPARE(row(1), (QStringList{binary, "Binary (999 Bytes)", "", ""}));
    QCOMPARE(label("lblVersion").text(), QString("ID3v2.%1.0 Tag").arg(version));
}

void ID3v2Test::binaryFramesTellTheirSize_data() {
    QTest::addColumn<qulonglong>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << 1ULL << "Binary (1 Bytes)";
    QTest::newRow("999") << 999ULL << "Binary (999 Bytes)";
    QTest::newRow("1000") << 1000ULL << "Binary (1,000 Bytes)";
    QTest::newRow("1234567") << 1234567ULL << "Binary (1,234,567 Bytes)";
    QTest::newRow("100000000") << 100000000ULL << "Binary (100,000,000 Bytes)";
}

void ID3v2Test::binaryFramesTellTheirSize() {
    QFETCH(qulonglong, bytes);
    QTEST(QString::fromStdString(binaryValue(bytes)), "text");
}

void ID3v2Test::aLargeBinaryFrameIsListedWithSeparators() {
    give(Id3v2Builder().text("TIT2", "Title").frame("PRIV", corvane::ByteArray(1234567, 1)).padding(20));
    QCOMPARE(row(1).at(1), "Binary (1,234,567 Bytes)");
}

void ID3v2Test::aRowIsOneLineHigh() {
    give(fullTag());
    const auto* lyrics = list().findItems("USLT", Qt::MatchExactly, 0).value(0);
    QVERIFY(lyrics->text(1).contains('\n')); // kept whole
    const auto* delegate = qobject_cast<QStyledItemDelegate*>(list().itemDelegate());
    QCOMPARE(delegate->displayText(lyrics->text(1), QLocale::c()), "one two");
    QCOMPARE(delegate->displayText(QString("\u0003text\u0007"), QLocale::c()), "text");
    QCOMPARE(list().visualItemRect(lyrics).height(), list().visualItemRect(list().topLevelItem(0)).height());
}

void ID3v2Test::aHiddenListKeepsItsRows() {
    give(fullTag());
    const int rows = list().topLevelItemCount();
    QVERIFY(rows > 10);
    QVERIFY(showWindow(*control_));
    QVERIFY(list().isVisible());
    control_->FrameListVisible(false);
    QVERIFY(!list().isVisible() && !control_->FrameListVisible());
    QCOMPARE(list().topLevelItemCount(), rows);
    control_->FrameListVisible(true);
    QVERIFY(list().isVisible());
}

static const bool kIsRegisteredID3v2Test = registerTest<ID3v2Test>("ID3v2Test");

#include <ID3v2Test.moc>
