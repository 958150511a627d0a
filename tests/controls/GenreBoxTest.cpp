#include "corvane/controls/GenreBox.h"

#include "corvane/id3v1/Genres.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using corvane::Genres;

class GenreBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { window_.reset(); }

    void beginsWithNothingSelected();
    void showingIsNoChoice();
    void aChoiceIsToldOnce();
    void choosingTheSameAgainIsTold();
    void choosingWhatWasShownMeanwhileIsTold();
    void namesComeFromTheGivenList();
    void aTextOfItsOwnIsSeenUntilAnItemIsChosen();
    void aLockedListIgnoresKeysAndClicks();
    void anyTextIsTypedWhereItIsAllowed_data();
    void anyTextIsTypedWhereItIsAllowed();
    void aListThatTakesAnyTextIsLockedToo();
    void aListOfGenresAloneHasNoTextOfItsOwn();

private:
    GenreBox& box() { return *box_; }
    void chooseWhatIsSelected();

    std::unique_ptr<QWidget> window_;
    GenreBox* box_ = nullptr;
};

void GenreBoxTest::init() {
    window_ = std::make_unique<QWidget>();
    box_ = new GenreBox(window_.get());
    QVERIFY(showWindow(*window_));
    box_->setFocus();
}

void GenreBoxTest::chooseWhatIsSelected() {
    box().showPopup();
    QTRY_VERIFY(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
}

void GenreBoxTest::beginsWithNothingSelected() {
    QCOMPARE(box().currentIndex(), -1);
    QCOMPARE(box().byteLabel().text(), "");
    QCOMPARE(box().genre(), std::uint8_t{255});
}

void GenreBoxTest::showingIsNoChoice() {
    const QSignalSpy chosen(&box(), &GenreBox::genreChosen);
    box().showGenre(17, Genres());
    QCOMPARE(box().currentText(), "Rock");
    box().showGenre(200, Genres());
    QCOMPARE(box().currentIndex(), -1);
    QCOMPARE(box().genre(), std::uint8_t{200});
    box().clearGenre();
    QCOMPARE(box().currentIndex(), -1);
    QCOMPARE(chosen.count(), 0);
}

void GenreBoxTest::aChoiceIsToldOnce() {
    const QSignalSpy chosen(&box(), &GenreBox::genreChosen);
    QTest::keyClick(&box(), Qt::Key_Down);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(box().genre(), std::uint8_t{0});
    box().setCurrentIndex(148);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(box().genre(), std::uint8_t{255});
}

void GenreBoxTest::choosingTheSameAgainIsTold() {
    box().showGenre(17, Genres());
    const QSignalSpy chosen(&box(), &GenreBox::genreChosen);
    chooseWhatIsSelected();
    QTRY_COMPARE(chosen.count(), 1);
    QCOMPARE(box().genre(), std::uint8_t{17});
}

// A program that selects an item tells a change only, which has to be forgotten with the genre that it was.
void GenreBoxTest::choosingWhatWasShownMeanwhileIsTold() {
    box().setCurrentIndex(17);
    box().showGenre(17, Genres());
    const QSignalSpy chosen(&box(), &GenreBox::genreChosen);
    chooseWhatIsSelected();
    QTRY_COMPARE(chosen.count(), 1);
}

void GenreBoxTest::namesComeFromTheGivenList() {
    Genres names;
    names.getGenreByID("17")->Num(18); // is found under its old number all the same
    box().showGenre(17, names);
    QCOMPARE(box().currentText(), "Rock");
    QCOMPARE(box().byteLabel().text(), "17");
}

void GenreBoxTest::aTextOfItsOwnIsSeenUntilAnItemIsChosen() {
    box().clearGenre("Hurdy-Gurdy");
    QCOMPARE(box().placeholderText(), "Hurdy-Gurdy");
    QCOMPARE(box().currentIndex(), -1);
    box().showGenre(3, Genres());
    box().clearGenre();
    QCOMPARE(box().placeholderText(), " ");
    QCOMPARE(box().currentIndex(), -1);
}

void GenreBoxTest::aLockedListIgnoresKeysAndClicks() {
    box().showGenre(17, Genres());
    box().setLocked(true);
    QTest::keyClick(&box(), Qt::Key_Down);
    QTest::keyClicks(&box(), "Jazz");
    QTest::mouseClick(&box(), Qt::LeftButton);
    QVERIFY(box().isLocked() && !QApplication::activePopupWidget());
    QCOMPARE(box().genre(), std::uint8_t{17});
    QVERIFY(box().isEnabled());
}

void GenreBoxTest::anyTextIsTypedWhereItIsAllowed_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("genre");
    QTest::addColumn<QString>("ownText");
    QTest::newRow("a text of the user's own") << "Hurdy-Gurdy" << 255 << "Hurdy-Gurdy";
    QTest::newRow("a name in small letters") << "rock" << 17 << "";
    QTest::newRow("a name and more") << "Rock & more" << 255 << "Rock & more";
}

void GenreBoxTest::anyTextIsTypedWhereItIsAllowed() {
    QFETCH(QString, typed);
    box().allowAnyText();
    box().clearGenre("Mine");
    QCOMPARE(box().ownText(), "Mine");
    const QSignalSpy chosen(&box(), &GenreBox::genreChosen);
    box().lineEdit()->selectAll();
    QTest::keyClicks(box().lineEdit(), typed);
    QCOMPARE(chosen.count(), typed.size());
    QCOMPARE(box().lineEdit()->text(), typed);
    QTEST(int{box().genre()}, "genre");
    QTEST(box().ownText(), "ownText");
    box().showGenre(17, Genres());
    QCOMPARE(box().lineEdit()->text(), "Rock");
    QCOMPARE(box().ownText(), "");
}

void GenreBoxTest::aListThatTakesAnyTextIsLockedToo() {
    box().setLocked(true);
    box().allowAnyText();
    box().showGenre(17, Genres());
    QTest::keyClicks(box().lineEdit(), "x");
    QCOMPARE(box().lineEdit()->text(), "Rock");
    box().setLocked(false);
    QTest::keyClicks(box().lineEdit(), "x");
    QCOMPARE(box().lineEdit()->text(), "Rockx");
    QCOMPARE(box().ownText(), "Rockx");
}

void GenreBoxTest::aListOfGenresAloneHasNoTextOfItsOwn() {
    box().clearGenre("Mine");
    QCOMPARE(box().ownText(), "");
    QVERIFY(box().lineEdit() == nullptr);
}

static const bool kIsRegisteredGenreBoxTest = registerTest<GenreBoxTest>("GenreBoxTest");

#include <GenreBoxTest.moc>
