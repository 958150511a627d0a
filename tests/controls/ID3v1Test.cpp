#include "corvane/controls/ID3v1.h"

#include "corvane/controls/Id3v1Rules.h"

#include "tests/controls/ID3v1Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using corvane::EID3TagConstants;
using corvane::ID3V1Tag;

// The editor with one tag.
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

    void checkingMakesATagAndEnablesTheFields();
    void checkingKeepsTheTagThatIsThere();
    void uncheckingDisablesTheFields();
    void theGreyThirdStateDoesNothing();
    void theHostIsAskedToSaveOrRemove_data();
    void theHostIsAskedToSaveOrRemove();
    void aFileWithoutTagHasNothingToRemove();
    void hostsAreToldWhenTheUserDecides();

    void lockingKeepsTextsAndGenre();
    void aDisabledControlIsDisabledAsAWhole();
    void inSingleModeNothingCountsAsChanged();
    void editsAreTold();
    void choosingAGenreShowsItsNumber();
    void theWheelDoesNotChooseWithoutFocus();

    void aTextThatWillBeCutSaysSo_data();
    void aTextThatWillBeCutSaysSo();
    void aTrackShortensTheComment();
    void tabsVisitTheFieldsInOrder();
    void mnemonicsLeadToTheFields();
    void everyFieldHasANameForScreenReaders();
    void aRightClickOffersTheEditMenu();
    void formatsConvertATitle();
    void aMenuCanBeShownByName();
    void thePalettesRolesColourTheFields();
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

void ID3v1Test::checkingMakesATagAndEnablesTheFields() {
    QVERIFY(showWindow(control()));
    QTest::mouseClick(&check(), Qt::LeftButton, {}, QPoint(8, check().height() / 2));
    QCOMPARE(control().TagCount(), 1);
    QVERIFY(control().HasTag() && control().saveTag() && !control().removeTag());
    for (const char* name : kTextFields) QVERIFY(line(name).isEnabled());
    QVERIFY(genres().isEnabled());
    type(line("txtTitle"), "New");
    QCOMPARE(control().ID3v1xTag()->Title(), std::string("New"));
    QCOMPARE(control().ID3v1xTag()->TagType(), EID3TagConstants::ID3v1);
}

void ID3v1Test::checkingKeepsTheTagThatIsThere() {
    control().ID3v1xTag(std::make_shared<ID3V1Tag>());
    check().click();
    QCOMPARE(control().TagCount(), 1);
    QVERIFY(control().saveTag());
    QVERIFY(!control().removeTag());
}

void ID3v1Test::uncheckingDisablesTheFields() {
    control().ID3v1xTag(tag("One"));
    check().click();
    for (const char* name : kTextFields) QVERIFY(!line(name).isEnabled());
    QVERIFY(!genres().isEnabled());
    QCOMPARE(line("txtTitle").text(), "One");
    check().click();
    QVERIFY(line("txtTitle").isEnabled());
}

void ID3v1Test::theGreyThirdStateDoesNothing() {
    control().ID3v1xTag(tag("One"));
    const QSignalSpy told(&control(), &ID3v1::tagRequestChanged);
    check().setCheckState(Qt::PartiallyChecked);
    QVERIFY(line("txtTitle").isEnabled());
    QVERIFY(!control().HasTag() && !control().saveTag() && !control().removeTag());
    QCOMPARE(control().TagCount(), 1);
    control().ID3v1xTag(nullptr);
    check().setCheckState(Qt::PartiallyChecked);
    QVERIFY(!line("txtTitle").isEnabled());
    QCOMPARE(control().TagCount(), 0);
}

void ID3v1Test::theHostIsAskedToSaveOrRemove_data() {
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("save");
    QTest::addColumn<bool>("remove");
    QTest::addColumn<bool>("has");
    QTest::newRow("checked") << true << true << true << false << true;
    QTest::newRow("unchecked") << false << true << false << true << false;
    QTest::newRow("checked, disabled") << true << false << false << false << true;
    QTest::newRow("unchecked, disabled") << false << false << false << false << false;
}

void ID3v1Test::theHostIsAskedToSaveOrRemove() {
    QFETCH(bool, checked);
    QFETCH(bool, enabled);
    control().ID3v1xTag(tag("One"));
    check().setChecked(checked);
    check().setEnabled(enabled);
    QTEST(control().saveTag(), "save");
    QTEST(control().removeTag(), "remove");
    QTEST(control().HasTag(), "has");
    QTEST(control().property("saveTag").toBool(), "save");
    QTEST(control().property("removeTag").toBool(), "remove");
    QTEST(control().property("HasTag").toBool(), "has");
}

void ID3v1Test::aFileWithoutTagHasNothingToRemove() {
    control().ID3v1xTag(std::make_shared<ID3V1Tag>());
    QVERIFY(!check().isChecked());
    QVERIFY(!control().removeTag());
    check().click();
    check().click();
    QVERIFY(!control().removeTag());
}

void ID3v1Test::hostsAreToldWhenTheUserDecides() {
    control().ID3v1xTag(tag("One"));
    const QSignalSpy told(&control(), &ID3v1::tagRequestChanged);
    check().click();
    QCOMPARE(told.count(), 1);
    control().Enabled(false);
    QCOMPARE(told.count(), 2);
}

void ID3v1Test::lockingKeepsTextsAndGenre() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    control().Locked(true);
    QVERIFY(control().Locked());
    for (const char* name : kTextFields) {
        const QString before = line(name).text();
        type(line(name), "1");
        QCOMPARE(line(name).text(), before);
    }
    genres().setFocus();
    QTest::keyClick(&genres(), Qt::Key_Down);
    QTest::mouseClick(&genres(), Qt::LeftButton);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(control().Genre(), std::uint8_t{17});
    QTest::keyClick(&genres(), Qt::Key_Tab);
    QVERIFY(line("txtComment").hasFocus());
    control().Locked(false);
    QVERIFY(!control().Locked());
    genres().setFocus();
    QTest::keyClick(&genres(), Qt::Key_Down);
    QCOMPARE(control().Genre(), std::uint8_t{18});
}

void ID3v1Test::aDisabledControlIsDisabledAsAWhole() {
    control().ID3v1xTag(tag("One"));
    control().Enabled(false);
    QVERIFY(!control().Enabled());
    QVERIFY(!line("txtTitle").isEnabled() && !check().isEnabled());
    QVERIFY(!control().saveTag() && !control().removeTag() && control().HasTag());
    control().Enabled(true);
    QVERIFY(line("txtTitle").isEnabled() && control().saveTag());
    QWidget parent;
    control().setParent(&parent);
    parent.setEnabled(false);
    QVERIFY(control().Enabled()); // its own state
    control().setParent(nullptr);
}

void ID3v1Test::inSingleModeNothingCountsAsChanged() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    type(line("txtTitle"), "x");
    QVERIFY(!control().TitleChanged());
    QCOMPARE(background(line("txtTitle")), control().palette().color(QPalette::Active, QPalette::Base));
}

void ID3v1Test::editsAreTold() {
    const QSignalSpy edits(&control(), &ID3v1::edited);
    control().ID3v1xTag(tag("One"));
    control().Title("Two");
    control().Clear();
    QCOMPARE(edits.count(), 0);
    QVERIFY(showWindow(control()));
    type(line("txtTitle"), "x");
    QCOMPARE(edits.count(), 1);
    genres().setFocus();
    QTest::keyClick(&genres(), Qt::Key_Down);
    QCOMPARE(edits.count(), 2);
}

void ID3v1Test::choosingAGenreShowsItsNumber() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    genres().setFocus();
    QTest::keyClicks(&genres(), "Trip");
    QCOMPARE(genres().currentText(), "Trip -Hop");
    QCOMPARE(genreByte().text(), "27");
    QTest::keyClick(&genres(), Qt::Key_End);
    QCOMPARE(genreByte().text(), "255");
}

void ID3v1Test::theWheelDoesNotChooseWithoutFocus() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    const auto turn = [this] {
        const QPointF middle = genres().rect().center();
        QWheelEvent wheel(middle, genres().mapToGlobal(middle), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&genres(), &wheel);
    };
    line("txtTitle").setFocus();
    turn();
    QCOMPARE(control().Genre(), std::uint8_t{17});
    genres().setFocus();
    turn();
    QCOMPARE(control().Genre(), std::uint8_t{18});
}

void ID3v1Test::aTextThatWillBeCutSaysSo_data() {
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("limit");
    QTest::addColumn<int>("characters");
    QTest::newRow("title") << QByteArray("txtTitle") << QByteArray("lblLimitTitle") << 30;
    QTest::newRow("artist") << QByteArray("txtArtist") << QByteArray("lblLimitArtist") << 30;
    QTest::newRow("album") << QByteArray("txtAlbum") << QByteArray("lblLimitAlbum") << 30;
    QTest::newRow("year") << QByteArray("txtYear") << QByteArray("lblLimitYear") << 4;
    QTest::newRow("comment") << QByteArray("txtComment") << QByteArray("lblLimitComment") << 30;
}

void ID3v1Test::aTextThatWillBeCutSaysSo() {
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, limit);
    QFETCH(int, characters);
    const QString wide = QString::fromUtf8("𝄞"); // one character, two units
    line(field).setText(wide.repeated(characters));
    QCOMPARE(child<QLabel>(control(), limit).text(), "");
    QCOMPARE(line(field).toolTip(), "");
    line(field).setText(wide.repeated(characters + 1));
    QCOMPARE(child<QLabel>(control(), limit).text(), QString("%1/%2").arg(characters + 1).arg(characters));
    QVERIFY(line(field).toolTip().contains(QString::number(characters)));
    QVERIFY(!line(field).accessibleDescription().isEmpty());
    QCOMPARE(line(field).text().size(), (characters + 1) * 2); // nothing is lost in the field
}

void ID3v1Test::aTrackShortensTheComment() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    line("txtComment").setText(QString(29, 'c'));
    QCOMPARE(child<QLabel>(control(), "lblLimitComment").text(), "");
    line("txtTrack").clear();
    type(line("txtTrack"), "1");
    QCOMPARE(child<QLabel>(control(), "lblLimitComment").text(), "29/28");
    line("txtTrack").setText("0");
    QCOMPARE(child<QLabel>(control(), "lblLimitComment").text(), "");
}

void ID3v1Test::tabsVisitTheFieldsInOrder() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    check().setFocus();
    for (const char* name :
         {"txtTitle", "txtArtist", "txtAlbum", "txtYear", "txtTrack", "cmbGenre", "txtComment", "chkID3v1"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), name);
    }
}

void ID3v1Test::mnemonicsLeadToTheFields() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    QTest::keyClick(&control(), Qt::Key_B, Qt::AltModifier);
    QVERIFY(line("txtAlbum").hasFocus());
    QTest::keyClick(&control(), Qt::Key_G, Qt::AltModifier);
    QVERIFY(genres().hasFocus());
    QTest::keyClick(&control(), Qt::Key_V, Qt::AltModifier);
    QTRY_VERIFY(!control().HasTag());
}

void ID3v1Test::everyFieldHasANameForScreenReaders() {
    for (const char* name : kTextFields) QVERIFY(!line(name).accessibleName().isEmpty());
    QVERIFY(!genres().accessibleName().isEmpty());
    for (const char* name : {"cmdNext", "cmdPrevious"}) QVERIFY(!button(name).accessibleName().isEmpty());
}

void ID3v1Test::aRightClickOffersTheEditMenu() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    auto& menu = child<QMenu>(control(), "mnuEdit");
    for (const char* name : kTextFields) {
        rightClick(line(name));
        QVERIFY(menu.isVisible());
        QVERIFY(!line(name).isEnabled());
        QTest::keyClick(&menu, Qt::Key_Escape);
        QVERIFY(line(name).isEnabled() && line(name).hasFocus());
    }
}

void ID3v1Test::formatsConvertATitle() {
    control().ID3v1xTag(tag("a SONG"));
    QVERIFY(showWindow(control()));
    auto& menu = child<QMenu>(control(), "mnuEdit");
    rightClick(line("txtTitle"));
    QTest::keyClick(&menu, Qt::Key_F); // opens "Format"
    auto& formats = child<QMenu>(control(), "mnuFormat");
    QTRY_VERIFY(formats.isVisible());
    QTest::keyClick(&formats, Qt::Key_F);
    QCOMPARE(control().Title(), std::string("A Song"));
    QVERIFY(!menu.isVisible());
}

void ID3v1Test::aMenuCanBeShownByName() {
    QMenu menu;
    menu.addAction("entry");
    QVERIFY(QMetaObject::invokeMethod(&control(), "PopupMenu", Q_ARG(QMenu*, &menu)));
    QVERIFY(menu.isVisible());
    control().PopupMenu(nullptr);
}

void ID3v1Test::thePalettesRolesColourTheFields() {
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(10, 10, 10));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    dark.setColor(QPalette::Button, QColor(60, 60, 60));
    control().setPalette(dark);
    QCOMPARE(background(line("txtTitle")), QColor(10, 10, 10));
    control().VisibilityMode(ETagEditModeConstants::temEditMany);
    QCOMPARE(background(line("txtTitle")), QColor(60, 60, 60));
    QCOMPARE(genres().palette().color(QPalette::Active, QPalette::Button), QColor(60, 60, 60));
    dark.setColor(QPalette::Button, QColor(70, 70, 70));
    control().setPalette(dark);
    QCOMPARE(background(line("txtTitle")), QColor(70, 70, 70));
    QVERIFY(control().VisibilityMode() == ETagEditModeConstants::temEditMany);
}

static const bool kRegistered = registerTest<ID3v1Test>("ID3v1Test");

#include <ID3v1Test.moc>
