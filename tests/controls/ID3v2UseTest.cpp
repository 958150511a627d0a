#include "corvane/controls/ID3v2.h"

#include "tests/controls/ID3v2Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using enum EID3v2Apperance;

// The editor under the hands of users and of hosts.
class ID3v2UseTest : public ID3v2Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void theBoxLocksAndUnlocks();
    void aTagEndsTheGreyThirdState();
    void theHostIsAskedToSaveOrRemove_data();
    void theHostIsAskedToSaveOrRemove();
    void aDisabledWindowAroundItChangesNoAnswer();
    void aHostShowsAnotherPictureOfTheTag();
    void aGenreIsAnyTextWhereTheHostAllowsIt();
    void disablingReachesFieldsAndButtons();
    void lockingKeepsFieldsAndPicture();
    void editsAreTold();
    void hostsAreToldWhenTheUserDecides();
    void theTabsShowOneBoxAtTheSamePlace();
    void theTabStaysFromTagToTag();
    void theModeArrangesThePanels();
    void theListFollowsTheSizeOfTheControl();
    void thePropertyBagKeepsModeAndList();
    void anEmptyBagGivesTheDefaults();
    void formsKnowTheProperties();
    void tabsVisitTheFieldsInOrder();
    void everyBoxHasANameForScreenReaders();
    void mnemonicsAreDistinct();
    void aRightClickOffersTheEditMenu();
    void anotherTagClosesTheEditMenu();
};

void ID3v2UseTest::theBoxLocksAndUnlocks() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    check().setFocus();
    QTest::keyClick(&check(), Qt::Key_Space);
    QVERIFY(control_->Locked());
    QVERIFY(control_->removeTag() && !control_->saveTag() && !control_->HasTag());
    type(line("txtTitle"), "x");
    QCOMPARE(line("txtTitle").text(), "A title");
    check().setFocus();
    QTest::keyClick(&check(), Qt::Key_Space);
    QVERIFY(!control_->Locked());
}

void ID3v2UseTest::aTagEndsTheGreyThirdState() {
    check().setCheckState(Qt::PartiallyChecked);
    give(fullTag());
    QCOMPARE(check().checkState(), Qt::Checked);
    QVERIFY(control_->saveTag() && !control_->Locked());
}

void ID3v2UseTest::theHostIsAskedToSaveOrRemove_data() {
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("save");
    QTest::addColumn<bool>("remove");
    QTest::newRow("checked") << true << true << true << false;
    QTest::newRow("unchecked") << false << true << false << true;
    QTest::newRow("checked, disabled") << true << false << false << false;
    QTest::newRow("unchecked, disabled") << false << false << false << false;
}

void ID3v2UseTest::theHostIsAskedToSaveOrRemove() {
    QFETCH(bool, checked);
    QFETCH(bool, enabled);
    give(fullTag());
    check().setChecked(checked);
    check().setEnabled(enabled);
    QTEST(control_->saveTag(), "save");
    QTEST(control_->removeTag(), "remove");
    QTEST(control_->HasTag(), "checked");
}

void ID3v2UseTest::aDisabledWindowAroundItChangesNoAnswer() {
    give(fullTag());
    QWidget window;
    control_->setParent(&window);
    window.setEnabled(false);
    QVERIFY(control_->saveTag() && !control_->removeTag());
    check().setChecked(false);
    QVERIFY(!control_->saveTag() && control_->removeTag());
    control_->setParent(nullptr);
}

void ID3v2UseTest::aHostShowsAnotherPictureOfTheTag() {
    const auto given = give(fullTag());
    const auto own = given->Picture();
    QVERIFY(control_->ShownPicture() == own);
    const auto other = corvane::Picture::fromBytes(pngImage(9, 9));
    control_->ShownPicture(other);
    QVERIFY(control_->ShownPicture() == other);
    QVERIFY(label("lblPicture").text().startsWith(QString::fromUtf8("9 × 9")));
    line("txtTitle").setText("New");
    QCOMPARE(control_->ID3V2Tag()->Title(), std::string("New"));
    QVERIFY(given->Picture() == own);
    button("cmdClearPicture").click();
    QVERIFY(control_->ShownPicture() == nullptr);
    QVERIFY(control_->ID3V2Tag()->Picture() == own);
    control_->ID3V2Tag(given);
    QVERIFY(control_->ShownPicture() == own);
    button("cmdClearPicture").click();
    QVERIFY(control_->ID3V2Tag()->Picture() == nullptr);
}

void ID3v2UseTest::aGenreIsAnyTextWhereTheHostAllowsIt() {
    control_->AllowAnyGenre();
    give(fullTag());
    QVERIFY(showWindow(*control_));
    QLineEdit& genre = line("txtGenre");
    QCOMPARE(genre.text(), "Rock");
    QCOMPARE(control_->ID3V2Tag()->Genre(), std::string("(17)Rock"));
    genre.selectAll();
    type(genre, "Hurdy-Gurdy");
    QCOMPARE(control_->ID3V2Tag()->Genre(), std::string("Hurdy-Gurdy"));
    genre.selectAll();
    type(genre, "jazz");
    QCOMPARE(control_->ID3V2Tag()->Genre(), std::string("(8)Jazz"));
    const QColor white = background(genre);
    control_->Locked(true);
    type(genre, "x");
    QCOMPARE(genre.text(), "jazz");
    QVERIFY(background(genre) != white);
}

void ID3v2UseTest::disablingReachesFieldsAndButtons() {
    give(fullTag());
    control_->Enabled(false);
    for (const char* name : kBoxes) QVERIFY(!child<QWidget>(*control_, name).isEnabled());
    QVERIFY(!genres().isEnabled());
    QVERIFY(!button("cmdLoadPicture").isEnabled() && !button("cmdClearPicture").isEnabled());
    QVERIFY(check().isEnabled() && list().isEnabled());
    control_->Enabled(true);
    QVERIFY(line("txtTitle").isEnabled() && button("cmdLoadPicture").isEnabled());
}

void ID3v2UseTest::lockingKeepsFieldsAndPicture() {
    give(fullTag());
    control_->Locked(true);
    for (const char* name : kBoxes) QVERIFY(child<QWidget>(*control_, name).property("readOnly").toBool());
    QVERIFY(genres().isLocked());
    QVERIFY(!button("cmdLoadPicture").isEnabled() && !button("cmdClearPicture").isEnabled());
    control_->Locked(false);
    QVERIFY(!page("txtLyrics").isReadOnly() && button("cmdClearPicture").isEnabled());
}

void ID3v2UseTest::editsAreTold() {
    const QSignalSpy edits(control_.get(), &ID3v2::edited);
    give(fullTag());
    QCOMPARE(edits.count(), 0);
    line("txtTitle").setText("x");
    page("txtLyrics").setPlainText("y");
    genres().setCurrentIndex(3);
    QCOMPARE(edits.count(), 3);
}

void ID3v2UseTest::hostsAreToldWhenTheUserDecides() {
    give(fullTag());
    const QSignalSpy told(control_.get(), &ID3v2::tagRequestChanged);
    check().click();
    QCOMPARE(told.count(), 1);
}

void ID3v2UseTest::theTabsShowOneBoxAtTheSamePlace() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    QVERIFY(page("txtLyrics").isVisible() && !page("txtSyncedLyrics").isVisible());
    const QRect place(page("txtLyrics").mapTo(control_.get(), QPoint()), page("txtLyrics").size());
    QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(1).center());
    QVERIFY(!page("txtLyrics").isVisible() && page("txtSyncedLyrics").isVisible());
    QCOMPARE(QRect(page("txtSyncedLyrics").mapTo(control_.get(), QPoint()), page("txtSyncedLyrics").size()), place);
    tabs().setFocus();
    QTest::keyClick(&tabs(), Qt::Key_Left);
    QVERIFY(page("txtLyrics").isVisible());
}

// Whoever goes through files for their synchronised lyrics chooses them once.
void ID3v2UseTest::theTabStaysFromTagToTag() {
    give(fullTag());
    QCOMPARE(tabs().currentIndex(), 0);
    tabs().setCurrentIndex(1);
    give(fullTag());
    control_->Clear();
    QCOMPARE(tabs().currentIndex(), 1);
}

void ID3v2UseTest::theModeArrangesThePanels() {
    control_->resize(900, 800);
    QVERIFY(showWindow(*control_));
    const auto& top = child<QWidget>(*control_, "grpTop");
    const auto& bottom = child<QWidget>(*control_, "grpBottom");
    const auto& picture = child<QWidget>(*control_, "grpPicture");
    QVERIFY(bottom.y() > top.geometry().bottom());
    QVERIFY(picture.x() > top.geometry().right());
    QVERIFY(list().y() > bottom.geometry().bottom());
    control_->Mode(v2aWide);
    QCoreApplication::processEvents();
    QCOMPARE(control_->Mode(), v2aWide);
    QCOMPARE(bottom.y(), top.y());
    QVERIFY(bottom.x() > picture.geometry().right());
    QVERIFY(list().y() > bottom.geometry().bottom());
    control_->Mode(v2aDefault);
    QCoreApplication::processEvents();
    QVERIFY(bottom.y() > top.geometry().bottom());
}

void ID3v2UseTest::theListFollowsTheSizeOfTheControl() {
    control_->resize(700, 700);
    QVERIFY(showWindow(*control_));
    const QSize before = list().size();
    const QSize lyrics = page("txtLyrics").size();
    control_->resize(900, 900);
    QCoreApplication::processEvents();
    QCOMPARE(list().width(), before.width() + 200);
    QVERIFY(list().height() > before.height());
    QCOMPARE(page("txtLyrics").width(), lyrics.width() + 200);
    QVERIFY(page("txtLyrics").height() > lyrics.height());
}

void ID3v2UseTest::thePropertyBagKeepsModeAndList() {
    control_->Mode(v2aWide);
    control_->FrameListVisible(false);
    PropertyBag bag;
    control_->WriteProperties(bag);
    QCOMPARE(bag.contents(), (QVariantMap{{"V2A", 1}, {"FRL", false}}));
    ID3v2 other;
    other.ReadProperties(PropertyBag(bag.contents()));
    QCOMPARE(other.Mode(), v2aWide);
    QVERIFY(!other.FrameListVisible());
}

void ID3v2UseTest::anEmptyBagGivesTheDefaults() {
    control_->Mode(v2aWide);
    control_->FrameListVisible(false);
    control_->ReadProperties({});
    QCOMPARE(control_->Mode(), v2aDefault);
    QVERIFY(control_->FrameListVisible());
    control_->ReadProperties(PropertyBag({{"V2A", 7}, {"FRL", "false"}}));
    QCOMPARE(control_->Mode(), v2aDefault);
    QVERIFY(!control_->FrameListVisible());
}

void ID3v2UseTest::formsKnowTheProperties() {
    QVERIFY(control_->setProperty("Mode", 1));
    QVERIFY(control_->setProperty("FrameListVisible", false));
    QCOMPARE(control_->Mode(), v2aWide);
    QVERIFY(!control_->FrameListVisible());
    QCOMPARE(control_->property("HasTag").toBool(), false);
    QVERIFY(control_->setProperty("Locked", false));
    QVERIFY(!control_->Locked());
}

void ID3v2UseTest::tabsVisitTheFieldsInOrder() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    check().setFocus();
    for (const char* name : {"txtTitle", "txtArtist", "txtAlbum", "txtYear", "txtTrack", "cmbGenre", "txtComment",
                             "txtComposer", "txtOriginalArtist", "txtCopyright", "txtURL", "txtEncodedBy",
                             "cmdLoadPicture", "cmdClearPicture", "sstLyrics", "txtLyrics", "lvwFrames", "chkID3v2"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), name);
    }
}

void ID3v2UseTest::everyBoxHasANameForScreenReaders() {
    for (const char* name : kBoxes) QVERIFY2(!child<QWidget>(*control_, name).accessibleName().isEmpty(), name);
}

void ID3v2UseTest::mnemonicsAreDistinct() {
    QStringList letters;
    const auto add = [&letters](const QString& text) {
        const auto at = text.indexOf('&');
        if (at < 0) return;
        const QString letter = text.mid(at + 1, 1).toUpper();
        QVERIFY2(!letters.contains(letter), qPrintable(text));
        letters.push_back(letter);
    };
    for (const QLabel* some : control_->findChildren<QLabel*>()) add(some->text());
    for (const QAbstractButton* some : control_->findChildren<QAbstractButton*>()) add(some->text());
    for (int at = 0; at < tabs().count(); ++at) add(tabs().tabText(at));
    QCOMPARE(letters.size(), 17);
}

void ID3v2UseTest::aRightClickOffersTheEditMenu() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    auto& menu = child<QMenu>(*control_, "mnuEdit");
    for (const char* name : {"txtTitle", "txtLyrics"}) {
        auto& box = child<QWidget>(*control_, name);
        rightClick(box);
        QVERIFY(menu.isVisible() && !box.isEnabled());
        QTest::keyClick(&menu, Qt::Key_Escape);
        QVERIFY(box.isEnabled() && box.hasFocus());
    }
}

void ID3v2UseTest::anotherTagClosesTheEditMenu() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    rightClick(line("txtTitle"));
    control_->ID3V2Tag(nullptr); // a host may show another file at any time
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(!line("txtTitle").isEnabled());
}

static const bool kIsRegisteredID3v2UseTest = registerTest<ID3v2UseTest>("ID3v2UseTest");

#include <ID3v2UseTest.moc>
