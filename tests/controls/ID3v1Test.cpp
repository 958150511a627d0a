#include "corvane/controls/ID3v1.h"

#include "tests/controls/ID3v1Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using corvane::EID3TagConstants;
using corvane::ID3V1Tag;

// The values of one tag.
class ID3v1Test : public ID3v1Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void beginsWithoutTag();
    void theGenreListIsTheTableInItsOrder();
    void showsTheFieldsOfATag();
    void aTagTakesThePlaceOfTheOneBefore();
    void nothingForgetsTheTag();
    void theBoxIsCheckedWhenTheTagHoldsData_data();
    void theBoxIsCheckedWhenTheTagHoldsData();
    void aGenreWithoutNameKeepsItsNumber();
    void clearEmptiesFieldsAndSelection();
    void aTagIsMadeOfTheFields();
    void theTagTypeKeepsWhatTheFieldsHold_data();
    void theTagTypeKeepsWhatTheFieldsHold();
    void whatIsShownComesBackUnchanged();
    void textPropertiesWriteAndRead_data();
    void textPropertiesWriteAndRead();
    void whatAHostWritesWithoutTagStays();
    void numbersWriteAndRead();
    void numbersOutOfRangeAreRefused();
    void theTrackIsANumberOfTheRecord_data();
    void theTrackIsANumberOfTheRecord();
};

void ID3v1Test::beginsWithoutTag() {
    QCOMPARE(control().TagCount(), 0);
    QVERIFY(!control().HasTag() && !control().saveTag());
    QVERIFY(control().removeTag()); // the box alone decides
    QVERIFY(control().Enabled() && !control().Locked());
    QCOMPARE(control().VisibilityMode(), ETagEditModeConstants::temEditSingle);
    QCOMPARE(control().Genre(), std::uint8_t{255});
    QCOMPARE(control().Track(), std::int16_t{0});
    QVERIFY(!line("txtTitle").isEnabled());
    QCOMPARE(control().ID3v1xTag()->TagType(), EID3TagConstants::ID3Unknown);
}

void ID3v1Test::theGenreListIsTheTableInItsOrder() {
    QCOMPARE(genres().count(), 149);
    QCOMPARE(genres().itemText(0), "Blues");
    QCOMPARE(genres().itemText(67), "Psychadelic");
    QCOMPARE(genres().itemData(67).toInt(), 67);
    QCOMPARE(genres().itemText(148), "<Undefined>");
    QCOMPARE(genres().itemData(148).toInt(), 255);
    QCOMPARE(genres().currentIndex(), -1);
    QCOMPARE(genres().currentText(), "");
}

void ID3v1Test::showsTheFieldsOfATag() {
    control().ID3v1xTag(tag("Ein Titel in Größe", 7));
    QCOMPARE(line("txtTitle").text(), QString::fromUtf8("Ein Titel in Größe"));
    QCOMPARE(line("txtArtist").text(), "Artist of it");
    QCOMPARE(line("txtAlbum").text(), "Album of it");
    QCOMPARE(line("txtYear").text(), "1999");
    QCOMPARE(line("txtTrack").text(), "7");
    QCOMPARE(line("txtComment").text(), "Comment on it");
    QCOMPARE(genres().currentText(), "Rock");
    QCOMPARE(genreByte().text(), "17");
    QVERIFY(line("txtTitle").isEnabled() && genres().isEnabled());
}

void ID3v1Test::aTagTakesThePlaceOfTheOneBefore() {
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(tag("Two"));
    QCOMPARE(control().TagCount(), 1);
    QCOMPARE(line("txtTitle").text(), "Two");
    QVERIFY(button("cmdNext").isHidden());
}

void ID3v1Test::nothingForgetsTheTag() {
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(nullptr);
    QCOMPARE(control().TagCount(), 0);
    for (const char* name : kTextFields) QCOMPARE(line(name).text(), "");
    QCOMPARE(genres().currentIndex(), -1);
    QCOMPARE(control().Genre(), std::uint8_t{255});
    QVERIFY(!control().HasTag());
}

void ID3v1Test::theBoxIsCheckedWhenTheTagHoldsData_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("genre");
    QTest::addColumn<bool>("checked");
    QTest::newRow("a file without tag") << 0 << "" << 255 << false;
    QTest::newRow("a record of blanks") << 1 << "" << 255 << true;
    QTest::newRow("ID3v1.1") << 2 << "Title" << 255 << true;
    QTest::newRow("filled by the host") << 0 << "Title" << 255 << true;
    QTest::newRow("a genre only") << 0 << "" << 0 << true;
}

void ID3v1Test::theBoxIsCheckedWhenTheTagHoldsData() {
    QFETCH(int, type);
    QFETCH(QString, title);
    QFETCH(int, genre);
    auto given = std::make_shared<ID3V1Tag>();
    given->TagType(static_cast<EID3TagConstants>(type));
    given->Title(title.toStdString());
    given->Genre(static_cast<std::uint8_t>(genre));
    control().ID3v1xTag(given);
    QTEST(check().isChecked(), "checked");
    QTEST(control().HasTag(), "checked");
    QTEST(line("txtTitle").isEnabled(), "checked");
}

void ID3v1Test::aGenreWithoutNameKeepsItsNumber() {
    auto given = tag("One");
    given->Genre(200);
    control().ID3v1xTag(given);
    QCOMPARE(genres().currentIndex(), -1);
    QCOMPARE(genreByte().text(), "200");
    QCOMPARE(control().Genre(), std::uint8_t{200});
    QCOMPARE(control().ID3v1xTag()->Genre(), std::uint8_t{200});
}

void ID3v1Test::clearEmptiesFieldsAndSelection() {
    control().ID3v1xTag(tag("One", 3));
    control().Clear();
    for (const char* name : kTextFields) QCOMPARE(line(name).text(), "");
    QCOMPARE(genres().currentIndex(), -1);
    QCOMPARE(control().Genre(), std::uint8_t{255});
    QCOMPARE(control().TagCount(), 1);
    QVERIFY(control().HasTag());
}

void ID3v1Test::aTagIsMadeOfTheFields() {
    const auto given = tag("One");
    control().ID3v1xTag(given);
    QVERIFY(showWindow(control()));
    type(line("txtArtist"), "x");
    line("txtTrack").clear();
    type(line("txtTrack"), "12");
    const auto made = control().ID3v1xTag();
    QVERIFY(made != given);
    QCOMPARE(made->Title(), std::string("One"));
    QCOMPARE(made->Artist(), std::string("xArtist of it"));
    QCOMPARE(made->Album(), std::string("Album of it"));
    QCOMPARE(made->Year(), std::string("1999"));
    QCOMPARE(made->Comment(), std::string("Comment on it"));
    QCOMPARE(made->Track(), std::int16_t{12});
    QCOMPARE(made->Genre(), std::uint8_t{17});
    QCOMPARE(given->Artist(), std::string("Artist of it"));
}

void ID3v1Test::theTagTypeKeepsWhatTheFieldsHold_data() {
    QTest::addColumn<int>("track");
    QTest::addColumn<bool>("wanted");
    QTest::addColumn<int>("type");
    QTest::newRow("no track") << 0 << true << 1;
    QTest::newRow("a track") << 9 << true << 2;
    QTest::newRow("a track that writing refuses") << 999 << true << 2;
    QTest::newRow("no tag wanted") << 9 << false << 0;
}

void ID3v1Test::theTagTypeKeepsWhatTheFieldsHold() {
    QFETCH(int, track);
    QFETCH(bool, wanted);
    QFETCH(int, type);
    control().ID3v1xTag(tag("One", 5));
    control().Track(static_cast<std::int16_t>(track));
    check().setChecked(wanted);
    QCOMPARE(static_cast<int>(control().ID3v1xTag()->TagType()), type);
}

void ID3v1Test::whatIsShownComesBackUnchanged() {
    const auto given = tag("  Títle with\ttab & <marks> 日本 ", 255);
    given->Comment("A comment that is longer than the thirty characters of a record");
    control().ID3v1xTag(given);
    QCOMPARE(control().ID3v1xTag()->xml(), given->xml());
}

void ID3v1Test::textPropertiesWriteAndRead_data() {
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QByteArray>("field");
    QTest::newRow("Title") << QByteArray("Title") << QByteArray("txtTitle");
    QTest::newRow("Artist") << QByteArray("Artist") << QByteArray("txtArtist");
    QTest::newRow("Album") << QByteArray("Album") << QByteArray("txtAlbum");
    QTest::newRow("Year") << QByteArray("Year") << QByteArray("txtYear");
    QTest::newRow("Comment") << QByteArray("Comment") << QByteArray("txtComment");
}

void ID3v1Test::textPropertiesWriteAndRead() {
    QFETCH(QByteArray, property);
    QFETCH(QByteArray, field);
    const QString text = QString::fromUtf8("Ça va – 日本");
    QVERIFY(control().setProperty(property, text));
    QCOMPARE(line(field).text(), text);
    line(field).setText("typed");
    QCOMPARE(control().property(property).toString(), "typed");
    control().ID3v1xTag(nullptr);
    QCOMPARE(control().property(property).toString(), "");
}

// A form file may set the mode after the texts.
void ID3v1Test::whatAHostWritesWithoutTagStays() {
    control().Title("Written");
    control().VisibilityMode(ETagEditModeConstants::temEditMany);
    QCOMPARE(control().Title(), std::string("Written"));
}

void ID3v1Test::numbersWriteAndRead() {
    control().Genre(99);
    QCOMPARE(genres().currentText(), "Accoustic");
    QCOMPARE(control().property("Genre").toInt(), 99);
    control().Track(-5);
    QCOMPARE(line("txtTrack").text(), "-5");
    QCOMPARE(control().Track(), std::int16_t{-5});
    QVERIFY(control().setProperty("Track", 12));
    QVERIFY(control().setProperty("Genre", 0));
    QCOMPARE(control().Track(), std::int16_t{12});
    QCOMPARE(genres().currentText(), "Blues");
    control().Title("Größe");
    QCOMPARE(control().Title(), std::string("Größe"));
}

void ID3v1Test::numbersOutOfRangeAreRefused() {
    control().Genre(17);
    control().Track(4);
    control().setProperty("Genre", 256);
    control().setProperty("Genre", -1);
    control().setProperty("Track", 40000);
    QCOMPARE(control().Genre(), std::uint8_t{17});
    QCOMPARE(control().Track(), std::int16_t{4});
}

void ID3v1Test::theTrackIsANumberOfTheRecord_data() {
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("track");
    QTest::newRow("nothing") << ""
                             << "" << 0;
    QTest::newRow("a number") << "12"
                              << "12" << 12;
    QTest::newRow("the largest") << "255"
                                 << "255" << 255;
    QTest::newRow("letters are refused") << "1a2"
                                         << "12" << 12;
    QTest::newRow("a larger one is refused") << "256"
                                             << "25" << 25;
    QTest::newRow("a sign is refused") << "-3"
                                       << "3" << 3;
}

void ID3v1Test::theTrackIsANumberOfTheRecord() {
    QFETCH(QString, keys);
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    line("txtTrack").clear();
    type(line("txtTrack"), qPrintable(keys));
    QTEST(line("txtTrack").text(), "text");
    QTEST(int{control().Track()}, "track");
}

static const bool kIsRegisteredID3v1Test = registerTest<ID3v1Test>("ID3v1Test");

#include <ID3v1Test.moc>
