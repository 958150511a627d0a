#include "corvane/controls/ID3v2.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include "tests/controls/ID3v2Fixture.h"
#include "tests/controls/Registry.h"

#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using corvane::RuntimeFailure;
using corvane::XmlNode;

// What the editor gives back, and what it refuses.
class ID3v2SavingTest : public ID3v2Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void whatTheUserChangedIsWrittenAndSaved();
    void whatTheUserDidNotTouchStays();
    void anEditKeepsTheRestOfAnUnusualText_data();
    void anEditKeepsTheRestOfAnUnusualText();
    void aTextLongerThanALineIsKeptWhole();
    void anEmptiedFieldIsRemoved();
    void aYearThatIsNoNumberIsRefused();
    void aNewPictureIsWritten();
    void clearingThePictureRemovesIt();
    void lyricsOfBothKindsAreWritten();
    void aTagThatCannotBeSavedSaysSoAndIsLocked_data();
    void aTagThatCannotBeSavedSaysSoAndIsLocked();
    void anXmlTagIsShownButNotGivenBack();
    void anotherKindOfTagIsRefused();
};

void ID3v2SavingTest::whatTheUserChangedIsWrittenAndSaved() {
    const auto given = give(fullTag());
    QVERIFY(showWindow(*control_));
    line("txtTitle").selectAll();
    type(line("txtTitle"), "Another title");
    line("txtYear").selectAll();
    type(line("txtYear"), "2001x");
    genres().setFocus();
    QTest::keyClick(&genres(), Qt::Key_Home);
    const auto back = control_->ID3V2Tag();
    QVERIFY(back == given);
    QVERIFY(back->saveTag());
    const auto again = reopened();
    QCOMPARE(again->ID3V2Tag()->Title(), std::string("Another title"));
    QCOMPARE(again->ID3V2Tag()->Year(), std::string("2001"));
    QCOMPARE(again->ID3V2Tag()->Artist(), std::string("An artist"));
    std::int16_t number = -1;
    std::string name;
    again->ID3V2Tag()->splittedGenre(number, name);
    QCOMPARE(number, std::int16_t{0});
    QCOMPARE(name, std::string("Blues"));
    QVERIFY(file_->audioIsUntouched());
}

// A genre of two names, a quote, CR LF in lyrics: what a field cannot hold exactly is not written back.
void ID3v2SavingTest::whatTheUserDidNotTouchStays() {
    const auto given = give(Id3v2Builder()
                                .text("TIT2", "Title")
                                .text("TCON", "(17)(8)Both of them")
                                .frame("USLT", commentFrame("", "one\r\ntwo"))
                                .frame("APIC", pictureFrame(pngImage(8, 8), "image/png", "a description"))
                                .padding(50));
    QVERIFY(showWindow(*control_));
    type(line("txtAlbum"), "New");
    QVERIFY(control_->ID3V2Tag()->saveTag());
    const auto again = reopened();
    QCOMPARE(again->ID3V2Tag()->Album(), std::string("New"));
    QCOMPARE(again->ID3V2Tag()->ID3V23Tag()->GetText("TCON"), std::string("(17)(8)Both of them"));
    QCOMPARE(again->ID3V2Tag()->LyricsUnsynced(), std::string("one\r\ntwo"));
    QVERIFY(again->ID3V2Tag()->ID3V23Tag()->FrameList().find("APIC") != std::string::npos);
    QVERIFY(again->ID3V2Tag()->ID3V23Tag()->FrameList().find("TYER") == std::string::npos);
}

void ID3v2SavingTest::anEditKeepsTheRestOfAnUnusualText_data() {
    QTest::addColumn<QByteArray>("box");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("text");
    QTest::newRow("a comment of two lines") << QByteArray("txtComment") << "COMM"
                                            << "one\ntwo";
    QTest::newRow("a blank that does not break")
        << QByteArray("txtLyrics") << "USLT" << QString::fromUtf8("one\u00A0two\nthree");
}

void ID3v2SavingTest::anEditKeepsTheRestOfAnUnusualText() {
    QFETCH(QByteArray, box);
    QFETCH(QString, frame);
    QFETCH(QString, text);
    const auto given = give(Id3v2Builder().frame(frame.toStdString(), commentFrame("", text.toStdString())));
    QVERIFY(showWindow(*control_));
    type(child<QWidget>(*control_, box), "x");
    control_->ID3V2Tag();
    const std::string written = frame == "COMM" ? given->Comment() : given->LyricsUnsynced();
    QCOMPARE(QString::fromStdString(written), 'x' + text);
}

// The box would lose the end with the first key.
void ID3v2SavingTest::aTextLongerThanALineIsKeptWhole() {
    const std::string text(40000, 'c');
    const auto given = give(Id3v2Builder().frame("COMM", commentFrame("", text)).padding(50));
    QVERIFY(showWindow(*control_));
    control_->Locked(false); // changes nothing about it
    type(line("txtComment"), "x");
    type(line("txtTitle"), "x");
    QVERIFY(!line("txtComment").toolTip().isEmpty());
    QCOMPARE(line("txtComment").accessibleDescription(), line("txtComment").toolTip());
    control_->ID3V2Tag();
    QCOMPARE(given->Title(), std::string("x"));
    QVERIFY(given->Comment() == text);
    give(fullTag());
    type(line("txtComment"), "x");
    QCOMPARE(line("txtComment").text(), "xA comment");
    QVERIFY(line("txtComment").toolTip().isEmpty());
}

void ID3v2SavingTest::anEmptiedFieldIsRemoved() {
    give(fullTag());
    line("txtComposer").clear();
    genres().setCurrentIndex(148); // <Undefined>
    QVERIFY(control_->ID3V2Tag()->saveTag());
    const std::string frames = reopened()->ID3V2Tag()->ID3V23Tag()->FrameList();
    QVERIFY(frames.find("TCOM") == std::string::npos);
    QVERIFY(frames.find("TCON") == std::string::npos);
    QVERIFY(frames.find("TIT2") != std::string::npos);
}

void ID3v2SavingTest::aYearThatIsNoNumberIsRefused() {
    const auto given = give(fullTag());
    line("txtTitle").setText("Another title");
    line("txtYear").setText("last year"); // only a program can
    QVERIFY_EXCEPTION_THROWN(control_->ID3V2Tag(), RuntimeFailure);
    QCOMPARE(given->Title(), std::string("A title"));
}

void ID3v2SavingTest::aNewPictureIsWritten() {
    give(Id3v2Builder().text("TIT2", "Title").padding(20));
    const corvane::ByteArray image = pngImage(33, 44);
    const QString path = QString::fromStdString(folder_->write("cover.png", image));
    auto& panel = child<PicturePanel>(*control_, "grpPicture");
    const QSignalSpy edits(control_.get(), &ID3v2::edited);
    QVERIFY(panel.load(path));
    QCOMPARE(edits.count(), 1);
    QVERIFY(control_->ID3V2Tag()->saveTag());
    const auto picture = reopened()->ID3V2Tag()->Picture();
    QVERIFY(picture != nullptr);
    QVERIFY(corvane::ByteArray(picture->bytes().begin(), picture->bytes().end()) == image);
}

void ID3v2SavingTest::clearingThePictureRemovesIt() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    QTest::mouseClick(&button("cmdClearPicture"), Qt::LeftButton);
    QVERIFY(label("picMain").pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(!button("cmdClearPicture").isEnabled());
    QVERIFY(control_->ID3V2Tag()->saveTag());
    QVERIFY(reopened()->ID3V2Tag()->ID3V23Tag()->FrameList().find("APIC") == std::string::npos);
}

void ID3v2SavingTest::lyricsOfBothKindsAreWritten() {
    const auto given = give(fullTag());
    QVERIFY(showWindow(*control_));
    page("txtLyrics").selectAll();
    type(page("txtLyrics"), "three");
    control_->ID3V2Tag();
    QCOMPARE(given->LyricsUnsynced(), std::string("three"));
    tabs().setCurrentIndex(1);
    type(page("txtSyncedLyrics"), "[00:01.0]four");
    control_->ID3V2Tag();
    QVERIFY(given->LyricsSynced().find("four") != std::string::npos);
}

void ID3v2SavingTest::aTagThatCannotBeSavedSaysSoAndIsLocked_data() {
    QTest::addColumn<unsigned>("version");
    QTest::addColumn<QString>("frame");
    QTest::newRow("2.2") << 2U << "TT2";
    QTest::newRow("2.4") << 4U << "TIT2";
}

void ID3v2SavingTest::aTagThatCannotBeSavedSaysSoAndIsLocked() {
    QFETCH(unsigned, version);
    QFETCH(QString, frame);
    const auto given = give(Id3v2Builder(version).text(frame.toStdString(), "A title"));
    QVERIFY(showWindow(*control_));
    QVERIFY(label("lblNotice").isVisible());
    QCOMPARE(label("lblNotice").text(), "This tag cannot be saved: Saving is not supported.");
    QVERIFY(control_->Locked());
    QCOMPARE(line("txtTitle").text(), "A title");
    type(line("txtTitle"), "x");
    QCOMPARE(line("txtTitle").text(), "A title");
    QVERIFY(!button("cmdLoadPicture").isEnabled());
    QVERIFY(control_->HasTag() && !control_->saveTag() && !control_->removeTag());
    QVERIFY(control_->ID3V2Tag() == given);
    give(fullTag());
    QVERIFY(label("lblNotice").isHidden());
}

void ID3v2SavingTest::anXmlTagIsShownButNotGivenBack() {
    const auto given = give(fullTag());
    XmlNode document;
    given->xml(&document);
    control_->ID3V2Tag(document);
    QCOMPARE(line("txtTitle").text(), "A title");
    QCOMPARE(line("txtComposer").text(), "A composer");
    QCOMPARE(genres().currentText(), "Rock");
    QVERIFY(control_->Locked() && control_->HasTag() && !control_->saveTag());
    try {
        control_->ID3V2Tag();
        QFAIL("no failure");
    } catch (const RuntimeFailure& failure) {
        QCOMPARE(failure.source(), std::string("ucID3v2xTag::ID3V2Tag()"));
        QCOMPARE(failure.description(), std::string("Copy to XML-based tag not yet supported."));
    }
}

void ID3v2SavingTest::anotherKindOfTagIsRefused() {
    give(fullTag());
    try {
        control_->ID3V2Tag(std::string("no tag"));
        QFAIL("no failure");
    } catch (const RuntimeFailure& failure) {
        QCOMPARE(failure.source(), std::string("ucID3v2xTag::ID3V2Tag"));
        QCOMPARE(failure.description(), std::string("Invalid type of tag passed."));
    }
    QCOMPARE(line("txtTitle").text(), "");
    QVERIFY(!control_->saveTag());
    try {
        control_->ID3V2Tag();
        QFAIL("no failure");
    } catch (const RuntimeFailure& failure) {
        QCOMPARE(failure.source(), std::string("ucID3v2xTag::ID3V2Tag()"));
        QCOMPARE(failure.description(), std::string("Invalid type of tag passed."));
    }
}

static const bool kIsRegisteredID3v2SavingTest = registerTest<ID3v2SavingTest>("ID3v2SavingTest");

#include <ID3v2SavingTest.moc>
