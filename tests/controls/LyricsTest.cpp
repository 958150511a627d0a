#include "corvane/controls/Lyrics.h"

#include "corvane/lyrics/LyricsTag.h"
#include "corvane/xml/XmlNode.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QtTest>

using namespace corvane::test;
using corvane::LyricsTag;
using corvane::XmlNode;
using corvane::controls::Lyrics;

namespace {

constexpr std::array kLines{"txtTitle", "txtArtist", "txtAlbum", "txtAuthor"};

std::shared_ptr<LyricsTag> lyricsTag() {
    auto tag = std::make_shared<LyricsTag>();
    const bool read = tag->CreateFromTag(XmlNode::fromText(
        "<LyricsTag><Properties><Property Name='Version' Value='2'/><Property Name='Album' Value='Álbum'/>"
        "<Property Name='Artist' Value='An artist'/><Property Name='Author' Value='An author'/>"
        "<Property Name='Title' Value='A title'/><Property Name='Lyrics' Value='[00:01]one&#10;[00:02]two'/>"
        "</Properties></LyricsTag>"));
    if (!read) qFatal("the tag of the test cannot be read");
    return tag;
}

} // namespace

class LyricsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { control_ = std::make_unique<Lyrics>(); }
    void cleanup() { control_.reset(); }

    void beginsAsWithoutTag();
    void aTagIsShownAndCannotBeChosen();
    void noTagLeavesTheBoxToTheUser();
    void anEmptyTagEmptiesTheFields();
    void clearEmptiesAllFields();
    void checkingUnlocksAndUncheckingLocks();
    void theGreyThirdStateDoesNothing();
    void aTagEndsTheGreyThirdState();
    void aTagDisablesUntilTheHostEnables();
    void fieldsAreEditableWhenEnabledAndNotLocked_data();
    void fieldsAreEditableWhenEnabledAndNotLocked();
    void aLockedFieldTakesNoKeysButGivesItsText();
    void coloursFollowADarkPalette();
    void theLyricsFillTheSpaceThatIsLeft();
    void tabsVisitTheFieldsInOrder();
    void everyFieldHasANameForScreenReaders();
    void mnemonicsLeadToTheFields();
    void aDisabledWindowAroundItChangesNoAnswer();
    void hostsAreToldWhenTheUserDecides();
    void propertiesAreKnownToForms();

private:
    QCheckBox& check() { return child<QCheckBox>(*control_, "chkLyrics"); }
    QLineEdit& line(const char* name) { return child<QLineEdit>(*control_, name); }
    QPlainTextEdit& lyrics() { return child<QPlainTextEdit>(*control_, "txtLyrics"); }
    QList<QWidget*> fields();

    std::unique_ptr<Lyrics> control_;
};

QList<QWidget*> LyricsTest::fields() {
    QList<QWidget*> found{&lyrics()};
    for (const char* name : kLines) found.push_back(&line(name));
    return found;
}

void LyricsTest::beginsAsWithoutTag() {
    QVERIFY(control_->removeTag());
    QVERIFY(!control_->HasTag());
    QVERIFY(control_->Locked());
    QVERIFY(control_->Enabled());
}

void LyricsTest::aTagIsShownAndCannotBeChosen() {
    control_->LyricsTag(lyricsTag());
    QVERIFY(check().isChecked());
    QVERIFY(!check().isEnabled());
    QVERIFY(!control_->removeTag());
    QVERIFY(control_->HasTag());
    QVERIFY(!control_->Enabled());
    QCOMPARE(line("txtTitle").text(), "A title");
    QCOMPARE(line("txtArtist").text(), "An artist");
    QCOMPARE(line("txtAlbum").text(), QString::fromUtf8("Álbum"));
    QCOMPARE(line("txtAuthor").text(), "An author");
    QCOMPARE(lyrics().toPlainText(), "[00:01]one\n[00:02]two");
}

void LyricsTest::aDisabledWindowAroundItChangesNoAnswer() {
    QWidget window;
    control_->setParent(&window);
    window.setEnabled(false);
    QVERIFY(control_->removeTag() && !control_->HasTag());
    control_->setParent(nullptr);
}

void LyricsTest::noTagLeavesTheBoxToTheUser() {
    control_->LyricsTag(lyricsTag());
    control_->Locked(false);
    control_->LyricsTag(nullptr);
    QVERIFY(!check().isChecked());
    QVERIFY(check().isEnabled());
    QVERIFY(control_->removeTag());
    QVERIFY(!control_->HasTag());
    QVERIFY(control_->Locked());
    QCOMPARE(line("txtTitle").text(), "");
    QCOMPARE(lyrics().toPlainText(), "");
}

void LyricsTest::anEmptyTagEmptiesTheFields() {
    control_->LyricsTag(lyricsTag());
    control_->LyricsTag(std::make_shared<LyricsTag>());
    for (const char* name : kLines) QCOMPARE(line(name).text(), "");
    QCOMPARE(lyrics().toPlainText(), "");
    QVERIFY(control_->HasTag());
}

void LyricsTest::clearEmptiesAllFields() {
    control_->LyricsTag(lyricsTag());
    control_->Clear();
    for (const char* name : kLines) QCOMPARE(line(name).text(), "");
    QCOMPARE(lyrics().toPlainText(), "");
    QVERIFY(control_->HasTag());
}

void LyricsTest::checkingUnlocksAndUncheckingLocks() {
    QVERIFY(showWindow(*control_));
    QTest::mouseClick(&check(), Qt::LeftButton, {}, QPoint(8, check().height() / 2));
    QVERIFY(check().isChecked());
    QVERIFY(!control_->Locked());
    type(line("txtTitle"), "New");
    QCOMPARE(line("txtTitle").text(), "New");
    check().setFocus();
    QTest::keyClick(&check(), Qt::Key_Space);
    QVERIFY(control_->Locked());
    QCOMPARE(line("txtTitle").text(), "New");
}

void LyricsTest::theGreyThirdStateDoesNothing() {
    check().setCheckState(Qt::PartiallyChecked);
    QVERIFY(control_->Locked());
    QVERIFY(!control_->HasTag());
    QVERIFY(!control_->removeTag());
    check().setCheckState(Qt::Checked);
    check().setCheckState(Qt::PartiallyChecked);
    QVERIFY(!control_->Locked());
}

void LyricsTest::aTagEndsTheGreyThirdState() {
    check().setCheckState(Qt::PartiallyChecked);
    control_->LyricsTag(lyricsTag());
    QCOMPARE(check().checkState(), Qt::Checked);
    QVERIFY(control_->HasTag());
}

// Giving no tag locks the fields, which the user's check mark ends; that they are disabled stays.
void LyricsTest::aTagDisablesUntilTheHostEnables() {
    control_->LyricsTag(lyricsTag());
    control_->LyricsTag(nullptr);
    QVERIFY(!control_->Enabled());
    check().click();
    QVERIFY(!control_->Locked());
    QVERIFY(line("txtTitle").isReadOnly());
    control_->Enabled(true);
    QVERIFY(!line("txtTitle").isReadOnly());
}

void LyricsTest::fieldsAreEditableWhenEnabledAndNotLocked_data() {
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("editable");
    QTest::newRow("enabled") << true << false << true;
    QTest::newRow("enabled and locked") << true << true << false;
    QTest::newRow("disabled") << false << false << false;
    QTest::newRow("disabled and locked") << false << true << false;
}

void LyricsTest::fieldsAreEditableWhenEnabledAndNotLocked() {
    QFETCH(bool, enabled);
    QFETCH(bool, locked);
    QFETCH(bool, editable);
    control_->Enabled(enabled);
    control_->Locked(locked);
    QCOMPARE(control_->Enabled(), enabled);
    QCOMPARE(control_->Locked(), locked);
    const QPalette palette = control_->palette();
    for (QWidget* field : fields()) {
        QCOMPARE(field->property("readOnly").toBool(), !editable);
        QCOMPARE(background(*field), palette.color(QPalette::Active, editable ? QPalette::Base : QPalette::Button));
    }
    QVERIFY(check().isEnabled());
}

void LyricsTest::aLockedFieldTakesNoKeysButGivesItsText() {
    control_->LyricsTag(lyricsTag());
    QVERIFY(showWindow(*control_));
    type(line("txtTitle"), "x");
    QCOMPARE(line("txtTitle").text(), "A title");
    QTest::keyClick(&line("txtTitle"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&line("txtTitle"), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(clipboardText(), "A title");
}

void LyricsTest::coloursFollowADarkPalette() {
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(10, 10, 10));
    dark.setColor(QPalette::Button, QColor(60, 60, 60));
    control_->setPalette(dark);
    for (QWidget* field : fields()) QCOMPARE(background(*field), QColor(60, 60, 60));
    control_->Locked(false);
    for (QWidget* field : fields()) QCOMPARE(background(*field), QColor(10, 10, 10));
}

void LyricsTest::theLyricsFillTheSpaceThatIsLeft() {
    control_->resize(400, 400);
    QVERIFY(showWindow(*control_));
    const QSize before = lyrics().size();
    const QSize lineBefore = line("txtTitle").size();
    control_->resize(500, 600);
    QCoreApplication::processEvents();
    QCOMPARE(lyrics().size(), before + QSize(100, 200));
    QCOMPARE(line("txtTitle").size(), lineBefore + QSize(100, 0));
    QVERIFY(control_->height() - lyrics().geometry().bottom() < 20);
    QVERIFY(control_->width() - lyrics().geometry().right() < 20);
}

void LyricsTest::tabsVisitTheFieldsInOrder() {
    QVERIFY(showWindow(*control_));
    check().setFocus();
    for (const char* name : {"txtTitle", "txtArtist", "txtAlbum", "txtAuthor", "txtLyrics", "chkLyrics"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget()->objectName(), name);
    }
}

void LyricsTest::everyFieldHasANameForScreenReaders() {
    for (QWidget* field : fields()) QVERIFY(!field->accessibleName().isEmpty());
}

void LyricsTest::mnemonicsLeadToTheFields() {
    QVERIFY(showWindow(*control_));
    check().setFocus();
    QTest::keyClick(control_.get(), Qt::Key_B, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget(), &line("txtAlbum"));
    QTest::keyClick(control_.get(), Qt::Key_Y, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget(), &lyrics());
}

void LyricsTest::hostsAreToldWhenTheUserDecides() {
    const QSignalSpy told(control_.get(), &Lyrics::tagRequestChanged);
    check().click();
    QCOMPARE(told.count(), 1);
    control_->LyricsTag(lyricsTag());
    QCOMPARE(told.count(), 2);
}

void LyricsTest::propertiesAreKnownToForms() {
    QVERIFY(control_->setProperty("Enabled", false));
    QVERIFY(control_->setProperty("Locked", false));
    QVERIFY(!control_->Enabled() && !control_->Locked());
    QCOMPARE(control_->property("removeTag").toBool(), true);
    QCOMPARE(control_->property("HasTag").toBool(), false);
}

static const bool kIsRegisteredLyricsTest = registerTest<LyricsTest>("LyricsTest");

#include <LyricsTest.moc>
