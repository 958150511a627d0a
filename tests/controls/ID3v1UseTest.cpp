#include "corvane/controls/ID3v1.h"

#include "tests/controls/ID3v1Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using corvane::EID3TagConstants;
using corvane::ID3V1Tag;

// The editor of one tag under the hands of users and of hosts.
class ID3v1UseTest : public ID3v1Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void checkingMakesATagAndEnablesTheFields();
    void checkingKeepsTheTagThatIsThere();
    void uncheckingDisablesTheFields();
    void theGreyThirdStateDoesNothing();
    void aTagEndsTheGreyThirdState();
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
    void anotherTagClosesTheEditMenu();
    void formatsConvertATitle();
    void aMenuCanBeShownByName();
    void theFieldsFollowTheFont();
    void thePalettesRolesColourTheFields();
};

void ID3v1UseTest::checkingMakesATagAndEnablesTheFields() {
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

void ID3v1UseTest::checkingKeepsTheTagThatIsThere() {
    control().ID3v1xTag(std::make_shared<ID3V1Tag>());
    check().click();
    QCOMPARE(control().TagCount(), 1);
    QVERIFY(control().saveTag());
    QVERIFY(!control().removeTag());
}

void ID3v1UseTest::uncheckingDisablesTheFields() {
    control().ID3v1xTag(tag("One"));
    check().click();
    for (const char* name : kTextFields) QVERIFY(!line(name).isEnabled());
    QVERIFY(!genres().isEnabled());
    QCOMPARE(line("txtTitle").text(), "One");
    check().click();
    QVERIFY(line("txtTitle").isEnabled());
}

void ID3v1UseTest::theGreyThirdStateDoesNothing() {
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

void ID3v1UseTest::aTagEndsTheGreyThirdState() {
    check().setCheckState(Qt::PartiallyChecked);
    control().ID3v1xTag(tag("One"));
    QCOMPARE(check().checkState(), Qt::Checked);
    QVERIFY(control().HasTag() && line("txtTitle").isEnabled());
    check().setCheckState(Qt::PartiallyChecked);
    control().ID3v1xTag(nullptr);
    QCOMPARE(check().checkState(), Qt::Unchecked);
}

void ID3v1UseTest::theHostIsAskedToSaveOrRemove_data() {
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

void ID3v1UseTest::theHostIsAskedToSaveOrRemove() {
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

void ID3v1UseTest::aFileWithoutTagHasNothingToRemove() {
    control().ID3v1xTag(std::make_shared<ID3V1Tag>());
    QVERIFY(!check().isChecked());
    QVERIFY(!control().removeTag());
    check().click();
    check().click();
    QVERIFY(!control().removeTag());
}

void ID3v1UseTest::hostsAreToldWhenTheUserDecides() {
    control().ID3v1xTag(tag("One"));
    const QSignalSpy told(&control(), &ID3v1::tagRequestChanged);
    check().click();
    QCOMPARE(told.count(), 1);
    control().Enabled(false);
    QCOMPARE(told.count(), 2);
}

void ID3v1UseTest::lockingKeepsTextsAndGenre() {
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

void ID3v1UseTest::aDisabledControlIsDisabledAsAWhole() {
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
    QVERIFY(control().saveTag()); // a window that is disabled while it saves asks as well
    check().setChecked(false);
    QVERIFY(control().removeTag());
    control().setParent(nullptr);
}

void ID3v1UseTest::inSingleModeNothingCountsAsChanged() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    type(line("txtTitle"), "x");
    QVERIFY(!control().TitleChanged());
    QCOMPARE(background(line("txtTitle")), control().palette().color(QPalette::Active, QPalette::Base));
}

void ID3v1UseTest::editsAreTold() {
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

void ID3v1UseTest::choosingAGenreShowsItsNumber() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    genres().setFocus();
    QTest::keyClicks(&genres(), "Trip");
    QCOMPARE(genres().currentText(), "Trip -Hop");
    QCOMPARE(genreByte().text(), "27");
    QTest::keyClick(&genres(), Qt::Key_End);
    QCOMPARE(genreByte().text(), "255");
}

void ID3v1UseTest::theWheelDoesNotChooseWithoutFocus() {
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

void ID3v1UseTest::aTextThatWillBeCutSaysSo_data() {
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("limit");
    QTest::addColumn<int>("characters");
    QTest::newRow("title") << QByteArray("txtTitle") << QByteArray("lblLimitTitle") << 30;
    QTest::newRow("artist") << QByteArray("txtArtist") << QByteArray("lblLimitArtist") << 30;
    QTest::newRow("album") << QByteArray("txtAlbum") << QByteArray("lblLimitAlbum") << 30;
    QTest::newRow("year") << QByteArray("txtYear") << QByteArray("lblLimitYear") << 4;
    QTest::newRow("comment") << QByteArray("txtComment") << QByteArray("lblLimitComment") << 30;
}

void ID3v1UseTest::aTextThatWillBeCutSaysSo() {
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

void ID3v1UseTest::aTrackShortensTheComment() {
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

void ID3v1UseTest::tabsVisitTheFieldsInOrder() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    check().setFocus();
    for (const char* name :
         {"txtTitle", "txtArtist", "txtAlbum", "txtYear", "txtTrack", "cmbGenre", "txtComment", "chkID3v1"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), name);
    }
}

void ID3v1UseTest::mnemonicsLeadToTheFields() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    QTest::keyClick(&control(), Qt::Key_B, Qt::AltModifier);
    QVERIFY(line("txtAlbum").hasFocus());
    QTest::keyClick(&control(), Qt::Key_G, Qt::AltModifier);
    QVERIFY(genres().hasFocus());
    QTest::keyClick(&control(), Qt::Key_1, Qt::AltModifier);
    QTRY_VERIFY(!control().HasTag());
}

void ID3v1UseTest::everyFieldHasANameForScreenReaders() {
    for (const char* name : kTextFields) QVERIFY(!line(name).accessibleName().isEmpty());
    QVERIFY(!genres().accessibleName().isEmpty());
    for (const char* name : {"cmdNext", "cmdPrevious"}) QVERIFY(!button(name).accessibleName().isEmpty());
}

void ID3v1UseTest::aRightClickOffersTheEditMenu() {
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

void ID3v1UseTest::anotherTagClosesTheEditMenu() {
    control().ID3v1xTag(tag("One"));
    QVERIFY(showWindow(control()));
    rightClick(line("txtTitle"));
    QTest::keyClick(&child<QMenu>(control(), "mnuEdit"), Qt::Key_F); // opens "Format"
    QTRY_VERIFY(child<QMenu>(control(), "mnuFormat").isVisible());
    control().ID3v1xTag(nullptr); // a host may show another file at any time
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!line("txtTitle").isEnabled());
}

void ID3v1UseTest::formatsConvertATitle() {
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

void ID3v1UseTest::aMenuCanBeShownByName() {
    QMenu menu;
    menu.addAction("entry");
    QVERIFY(QMetaObject::invokeMethod(&control(), "PopupMenu", Q_ARG(QMenu*, &menu)));
    QVERIFY(menu.isVisible());
    control().PopupMenu(nullptr);
}

void ID3v1UseTest::theFieldsFollowTheFont() {
    QFont large = control().font();
    large.setPixelSize(60);
    control().setFont(large);
    for (const auto& [name, number] : {std::pair("txtYear", "2026"), std::pair("txtTrack", "255")}) {
        QVERIFY(line(name).width() > line(name).fontMetrics().horizontalAdvance(QLatin1String(number)));
    }
}

void ID3v1UseTest::thePalettesRolesColourTheFields() {
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

static const bool kIsRegisteredID3v1UseTest = registerTest<ID3v1UseTest>("ID3v1UseTest");

#include <ID3v1UseTest.moc>
