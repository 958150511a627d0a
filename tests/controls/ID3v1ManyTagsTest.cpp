#include "corvane/controls/ID3v1.h"

#include "tests/controls/DarkPalette.h"
#include "tests/controls/ID3v1Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QStyle>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using enum ETagEditModeConstants;

namespace {

constexpr std::array kChangedProperties{"TitleChanged", "ArtistChanged", "AlbumChanged",  "YearChanged",
                                        "GenreChanged", "TrackChanged",  "CommentChanged"};

} // namespace

// The editor with several tags at once.
class ID3v1ManyTagsTest : public ID3v1Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { end(); }

    void tagsAreAdded();
    void anUntouchedFieldIsGreyAndUnchanged();
    void anUntouchedGenreIsSeenToBeGrey_data();
    void anUntouchedGenreIsSeenToBeGrey();
    void typingTurnsTheFieldWhiteAndChanged_data();
    void typingTurnsTheFieldWhiteAndChanged();
    void theGenreChangesByChoice();
    void choosingTheSameGenreAgainIsAnEdit();
    void pastingIsAnEdit();
    void aFormatIsAnEdit();
    void showingAndWritingAreNoEdits();
    void aDisabledControlNotesNoEdit_data();
    void aDisabledControlNotesNoEdit();
    void theModeIsReadFromTheTitlesBackground();
    void settingTheModeMakesEveryFieldUntouched();
    void nextAndPreviousStepThroughTheTags();
    void stepsEndAtTheFirstAndTheLastTag();
    void anEditedFieldKeepsItsTextWhileStepping();
    void eachTagShowsWhetherItIsThere();
    void nothingForgetsAllTagsAndEdits();
    void inSingleModeATagTakesThePlaceOfAll();

private:
    QColor grey() { return control().palette().color(QPalette::Active, QPalette::Button); }
    QColor white() { return control().palette().color(QPalette::Active, QPalette::Base); }
    QStringList changed();
};

void ID3v1ManyTagsTest::init() {
    begin();
    QPalette clear(QColor(200, 200, 200));
    clear.setColor(QPalette::Base, QColor(255, 255, 255));
    clear.setColor(QPalette::Button, QColor(190, 190, 190));
    control().setPalette(clear);
    control().VisibilityMode(temEditMany);
    QVERIFY(showWindow(control()));
}

QStringList ID3v1ManyTagsTest::changed() {
    QStringList found;
    for (const char* property : kChangedProperties) {
        if (control().property(property).toBool()) found.push_back(QLatin1String(property));
    }
    return found;
}

void ID3v1ManyTagsTest::tagsAreAdded() {
    QCOMPARE(control().TagCount(), 0);
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(tag("Two"));
    control().ID3v1xTag(tag("Three"));
    QCOMPARE(control().TagCount(), 3);
    QCOMPARE(control().Title(), std::string("Three"));
    QCOMPARE(child<QLabel>(control(), "lblPosition").text(), "3 of 3");
}

void ID3v1ManyTagsTest::anUntouchedFieldIsGreyAndUnchanged() {
    control().ID3v1xTag(tag("One"));
    for (const char* name : kTextFields) QCOMPARE(background(line(name)), grey());
    QCOMPARE(genres().palette().color(QPalette::Active, QPalette::Button), grey());
    QVERIFY(changed().isEmpty());
    QCOMPARE(control().VisibilityMode(), temEditMany);
}

void ID3v1ManyTagsTest::anUntouchedGenreIsSeenToBeGrey_data() {
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

// What the style paints, whatever it makes of the palette.
void ID3v1ManyTagsTest::anUntouchedGenreIsSeenToBeGrey() {
    QFETCH(bool, dark);
    control().setPalette(dark ? darkPalette() : QApplication::style()->standardPalette());
    control().ID3v1xTag(tag("One"));
    const auto painted = [](QWidget& field) {
        const QImage picture = field.grab().toImage();
        return picture.pixelColor(picture.width() * 2 / 3, picture.height() / 2);
    };
    QCOMPARE(painted(genres()), painted(line("txtArtist")));
    line("txtTitle").setText("changed");
    genres().setCurrentIndex(3);
    QCOMPARE(painted(genres()), painted(line("txtTitle")));
    QVERIFY(painted(genres()) != painted(line("txtArtist")));
}

void ID3v1ManyTagsTest::typingTurnsTheFieldWhiteAndChanged_data() {
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QString>("property");
    QTest::newRow("title") << QByteArray("txtTitle") << "TitleChanged";
    QTest::newRow("artist") << QByteArray("txtArtist") << "ArtistChanged";
    QTest::newRow("album") << QByteArray("txtAlbum") << "AlbumChanged";
    QTest::newRow("year") << QByteArray("txtYear") << "YearChanged";
    QTest::newRow("track") << QByteArray("txtTrack") << "TrackChanged";
    QTest::newRow("comment") << QByteArray("txtComment") << "CommentChanged";
}

void ID3v1ManyTagsTest::typingTurnsTheFieldWhiteAndChanged() {
    QFETCH(QByteArray, field);
    QFETCH(QString, property);
    control().ID3v1xTag(tag("One"));
    type(line(field), "1");
    QCOMPARE(changed(), QStringList{property});
    for (const char* name : kTextFields) QCOMPARE(background(line(name)), name == field ? white() : grey());
}

void ID3v1ManyTagsTest::theGenreChangesByChoice() {
    control().ID3v1xTag(tag("One"));
    genres().setFocus();
    QTest::keyClick(&genres(), Qt::Key_Home);
    QCOMPARE(changed(), QStringList{"GenreChanged"});
    QCOMPARE(genres().palette().color(QPalette::Active, QPalette::Button), white());
    QCOMPARE(control().Genre(), std::uint8_t{0});
}

void ID3v1ManyTagsTest::choosingTheSameGenreAgainIsAnEdit() {
    control().ID3v1xTag(tag("One"));
    genres().setFocus();
    genres().showPopup();
    QTRY_VERIFY(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(control().GenreChanged());
    QCOMPARE(control().Genre(), std::uint8_t{17});
}

void ID3v1ManyTagsTest::pastingIsAnEdit() {
    control().ID3v1xTag(tag("One"));
    putOnClipboard("pasted ");
    auto& menu = child<QMenu>(control(), "mnuEdit");
    rightClick(line("txtTitle"));
    QTest::keyClick(&menu, Qt::Key_P);
    QCOMPARE(control().Title(), std::string("pasted One"));
    QCOMPARE(changed(), QStringList{"TitleChanged"});
}

void ID3v1ManyTagsTest::aFormatIsAnEdit() {
    control().ID3v1xTag(tag("One"));
    auto& menu = child<QMenu>(control(), "mnuEdit");
    rightClick(line("txtTitle"));
    QVERIFY(changed().isEmpty());
    menu.close();
    child<QAction>(control(), "mnuFormatUpperCase").trigger();
    QCOMPARE(control().Title(), std::string("ONE"));
    QCOMPARE(changed(), QStringList{"TitleChanged"});
}

void ID3v1ManyTagsTest::showingAndWritingAreNoEdits() {
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(tag("Two", 4));
    control().Title("Three");
    control().Genre(3);
    control().Track(9);
    control().Clear();
    QVERIFY(changed().isEmpty());
    for (const char* name : kTextFields) QCOMPARE(background(line(name)), grey());
}

void ID3v1ManyTagsTest::aDisabledControlNotesNoEdit_data() {
    QTest::addColumn<bool>("enabled");
    QTest::newRow("disabled") << false;
    QTest::newRow("enabled") << true;
}

void ID3v1ManyTagsTest::aDisabledControlNotesNoEdit() {
    QFETCH(bool, enabled);
    control().ID3v1xTag(tag("One"));
    control().Enabled(enabled);
    QTest::keyClicks(&line("txtTitle"), "x");
    line("txtArtist").setText("by a program");
    genres().setCurrentIndex(3);
    const QStringList edited{"TitleChanged", "ArtistChanged", "GenreChanged"};
    QCOMPARE(changed(), enabled ? edited : QStringList{});
    QCOMPARE(background(line("txtTitle")), enabled ? white() : grey());
    QCOMPARE(control().Title(), std::string(enabled ? "xOne" : "One"));
}

void ID3v1ManyTagsTest::theModeIsReadFromTheTitlesBackground() {
    control().ID3v1xTag(tag("One"));
    type(line("txtArtist"), "x");
    QCOMPARE(control().VisibilityMode(), temEditMany);
    type(line("txtTitle"), "x");
    QCOMPARE(control().VisibilityMode(), temEditSingle);
    control().ID3v1xTag(tag("Two")); // many tags are edited all the same
    QCOMPARE(control().TagCount(), 2);
}

void ID3v1ManyTagsTest::settingTheModeMakesEveryFieldUntouched() {
    control().ID3v1xTag(tag("One"));
    type(line("txtTitle"), "x");
    type(line("txtYear"), "2");
    QVERIFY(control().setProperty("VisibilityMode", QVariant::fromValue(temEditMany)));
    QVERIFY(changed().isEmpty());
    QCOMPARE(background(line("txtTitle")), grey());
    QCOMPARE(control().Title(), std::string("One")); // the tag is shown anew
    control().VisibilityMode(temEditSingle);
    QCOMPARE(background(line("txtTitle")), white());
    QVERIFY(changed().isEmpty());
}

void ID3v1ManyTagsTest::nextAndPreviousStepThroughTheTags() {
    control().ID3v1xTag(tag("One", 1));
    control().ID3v1xTag(tag("Two", 2));
    QTest::mouseClick(&button("cmdPrevious"), Qt::LeftButton);
    QCOMPARE(control().Title(), std::string("One"));
    QCOMPARE(control().Track(), std::int16_t{1});
    QCOMPARE(child<QLabel>(control(), "lblPosition").text(), "1 of 2");
    button("cmdNext").setFocus();
    QTest::keyClick(&button("cmdNext"), Qt::Key_Space);
    QCOMPARE(control().Title(), std::string("Two"));
    QVERIFY(changed().isEmpty());
    QCOMPARE(background(line("txtTitle")), grey());
}

void ID3v1ManyTagsTest::stepsEndAtTheFirstAndTheLastTag() {
    QVERIFY(!button("cmdNext").isEnabled() && !button("cmdPrevious").isEnabled());
    control().ID3v1xTag(tag("One"));
    QVERIFY(!button("cmdNext").isEnabled() && !button("cmdPrevious").isEnabled());
    control().ID3v1xTag(tag("Two"));
    QVERIFY(!button("cmdNext").isEnabled() && button("cmdPrevious").isEnabled());
    button("cmdPrevious").click();
    QVERIFY(button("cmdNext").isEnabled() && !button("cmdPrevious").isEnabled());
    button("cmdPrevious").click();
    QCOMPARE(control().Title(), std::string("One"));
}

// Else the next tag's value would pass for what the user wants in all of them.
void ID3v1ManyTagsTest::anEditedFieldKeepsItsTextWhileStepping() {
    control().ID3v1xTag(tag("One", 1));
    control().ID3v1xTag(tag("Two", 2));
    line("txtAlbum").selectAll();
    type(line("txtAlbum"), "For all");
    genres().setCurrentIndex(8);
    button("cmdPrevious").click();
    QCOMPARE(control().Album(), std::string("For all"));
    QCOMPARE(control().Genre(), std::uint8_t{8});
    QCOMPARE(control().Title(), std::string("One"));
    QCOMPARE(changed(), (QStringList{"AlbumChanged", "GenreChanged"}));
}

void ID3v1ManyTagsTest::eachTagShowsWhetherItIsThere() {
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(std::make_shared<corvane::ID3V1Tag>());
    QVERIFY(!control().HasTag() && !control().removeTag());
    button("cmdPrevious").click();
    QVERIFY(control().HasTag() && control().saveTag());
}

void ID3v1ManyTagsTest::nothingForgetsAllTagsAndEdits() {
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(tag("Two"));
    type(line("txtTitle"), "x");
    control().ID3v1xTag(nullptr);
    QCOMPARE(control().TagCount(), 0);
    QCOMPARE(child<QLabel>(control(), "lblPosition").text(), "no tag");
    QVERIFY(changed().isEmpty());
    QCOMPARE(background(line("txtTitle")), grey());
    QCOMPARE(control().VisibilityMode(), temEditMany);
}

void ID3v1ManyTagsTest::inSingleModeATagTakesThePlaceOfAll() {
    control().ID3v1xTag(tag("One"));
    control().ID3v1xTag(tag("Two"));
    control().VisibilityMode(temEditSingle);
    QCOMPARE(control().TagCount(), 2);
    QVERIFY(button("cmdNext").isHidden());
    control().ID3v1xTag(tag("Three"));
    QCOMPARE(control().TagCount(), 1);
}

static const bool kIsRegisteredID3v1ManyTagsTest = registerTest<ID3v1ManyTagsTest>("ID3v1ManyTagsTest");

#include <ID3v1ManyTagsTest.moc>
