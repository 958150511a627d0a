#include "corvane/controls/ID3v2.h"

#include "corvane/controls/FrameRows.h"
#include "corvane/controls/GenreBox.h"
#include "corvane/controls/PicturePanel.h"
#include "corvane/core/FileHandler.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"
#include "tests/support/Id3v2Builder.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/Mp3File.h"
#include "tests/support/ScratchFolder.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTreeWidget>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;
using corvane::FileHandler;
using corvane::RuntimeFailure;
using corvane::XmlNode;
using enum EID3v2Apperance;

namespace {

struct Shown {
    const char* box;
    const char* frame; // of ID3v2.3
    const char* text;
};

constexpr std::array kShown{Shown{"txtTitle", "TIT2", "A title"},        Shown{"txtArtist", "TPE1", "An artist"},
                            Shown{"txtAlbum", "TALB", "An album"},       Shown{"txtYear", "TYER", "1999"},
                            Shown{"txtTrack", "TRCK", "3/12"},           Shown{"txtComposer", "TCOM", "A composer"},
                            Shown{"txtOriginalArtist", "TOPE", "Other"}, Shown{"txtCopyright", "TCOP", "2026 Somebody"},
                            Shown{"txtEncodedBy", "TENC", "An encoder"}};

constexpr std::array kBoxes{"txtTitle",     "txtArtist",   "txtAlbum",          "txtYear",      "txtTrack",
                            "txtComment",   "txtComposer", "txtOriginalArtist", "txtCopyright", "txtURL",
                            "txtEncodedBy", "txtLyrics",   "txtSyncedLyrics"};

Id3v2Builder fullTag() {
    Id3v2Builder builder;
    for (const Shown& shown : kShown) builder.text(shown.frame, shown.text);
    builder.text("TCON", "(17)Rock");
    builder.frame("COMM", commentFrame("", "A comment"));
    builder.frame("COMM", commentFrame("MusicMatch_Mood", "Good"));
    builder.frame("WXXX", userUrlFrame("", "https://example.org/"));
    builder.frame("USLT", commentFrame("", "one\ntwo"));
    builder.frame("APIC", pictureFrame(jpegImage(300, 200), "image/jpeg"));
    builder.frame("PRIV", corvane::ByteArray(2345, 7));
    builder.padding(64);
    return builder;
}

} // namespace

class ID3v2Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

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
    void aHiddenListKeepsItsRows();

    void whatTheUserChangedIsWrittenAndSaved();
    void whatTheUserDidNotTouchStays();
    void anEmptiedFieldIsRemoved();
    void aYearThatIsNoNumberIsRefused();
    void aNewPictureIsWritten();
    void clearingThePictureRemovesIt();
    void lyricsOfBothKindsAreWritten();

    void aTagThatCannotBeSavedSaysSoAndIsLocked_data();
    void aTagThatCannotBeSavedSaysSoAndIsLocked();
    void anXmlTagIsShownButNotGivenBack();
    void anotherKindOfTagIsRefused();

    void theBoxLocksAndUnlocks();
    void theHostIsAskedToSaveOrRemove_data();
    void theHostIsAskedToSaveOrRemove();
    void disablingReachesFieldsAndButtons();
    void lockingKeepsFieldsAndPicture();
    void editsAreTold();
    void hostsAreToldWhenTheUserDecides();

    void theTabsShowOneBoxAtTheSamePlace();
    void theModeArrangesThePanels();
    void theListFollowsTheSizeOfTheControl();
    void thePropertyBagKeepsModeAndList();
    void anEmptyBagGivesTheDefaults();
    void formsKnowTheProperties();
    void tabsVisitTheFieldsInOrder();
    void everyBoxHasANameForScreenReaders();
    void mnemonicsAreDistinct();
    void aRightClickOffersTheEditMenu();

private:
    // Opens a file with this tag and gives the tag to the editor.
    std::shared_ptr<corvane::ID3V2Tag> give(const Id3v2Builder& builder);
    std::unique_ptr<FileHandler> reopened() const;

    QCheckBox& check() { return child<QCheckBox>(*control_, "chkID3v2"); }
    QLineEdit& line(const char* name) { return child<QLineEdit>(*control_, name); }
    QPlainTextEdit& page(const char* name) { return child<QPlainTextEdit>(*control_, name); }
    GenreBox& genres() { return child<GenreBox>(*control_, "cmbGenre"); }
    QLabel& label(const char* name) { return child<QLabel>(*control_, name); }
    QTreeWidget& list() { return child<QTreeWidget>(*control_, "lvwFrames"); }
    QTabBar& tabs() { return child<QTabBar>(*control_, "sstLyrics"); }
    QPushButton& button(const char* name) { return child<QPushButton>(*control_, name); }
    QStringList row(int at);

    std::unique_ptr<ScratchFolder> folder_;
    std::unique_ptr<Mp3File> file_;
    std::unique_ptr<FileHandler> handler_;
    std::unique_ptr<ID3v2> control_;
};

void ID3v2Test::init() {
    folder_ = std::make_unique<ScratchFolder>();
    control_ = std::make_unique<ID3v2>();
}

void ID3v2Test::cleanup() {
    control_.reset();
    handler_.reset();
    file_.reset();
    folder_.reset();
}

std::shared_ptr<corvane::ID3V2Tag> ID3v2Test::give(const Id3v2Builder& builder) {
    file_ = std::make_unique<Mp3File>(*folder_, builder.done());
    handler_ = std::make_unique<FileHandler>();
    if (!handler_->Create(file_->path())) qFatal("%s", handler_->LastError()->Stream().c_str());
    control_->ID3V2Tag(handler_->ID3V2Tag());
    return handler_->ID3V2Tag();
}

std::unique_ptr<FileHandler> ID3v2Test::reopened() const {
    auto handler = std::make_unique<FileHandler>();
    if (!handler->Create(file_->path())) qFatal("%s", handler->LastError()->Stream().c_str());
    return handler;
}

QStringList ID3v2Test::row(int at) {
    QStringList texts;
    for (int column = 0; column < list().columnCount(); ++column)
        texts.push_back(list().topLevelItem(at)->text(column));
    return texts;
}

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

void ID3v2Test::whatTheUserChangedIsWrittenAndSaved() {
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
void ID3v2Test::whatTheUserDidNotTouchStays() {
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

void ID3v2Test::anEmptiedFieldIsRemoved() {
    give(fullTag());
    line("txtComposer").clear();
    genres().setCurrentIndex(148); // <Undefined>
    QVERIFY(control_->ID3V2Tag()->saveTag());
    const std::string frames = reopened()->ID3V2Tag()->ID3V23Tag()->FrameList();
    QVERIFY(frames.find("TCOM") == std::string::npos);
    QVERIFY(frames.find("TCON") == std::string::npos);
    QVERIFY(frames.find("TIT2") != std::string::npos);
}

void ID3v2Test::aYearThatIsNoNumberIsRefused() {
    const auto given = give(fullTag());
    line("txtTitle").setText("Another title");
    line("txtYear").setText("last year"); // only a program can
    QVERIFY_EXCEPTION_THROWN(control_->ID3V2Tag(), RuntimeFailure);
    QCOMPARE(given->Title(), std::string("A title"));
}

void ID3v2Test::aNewPictureIsWritten() {
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

void ID3v2Test::clearingThePictureRemovesIt() {
    give(fullTag());
    QVERIFY(showWindow(*control_));
    QTest::mouseClick(&button("cmdClearPicture"), Qt::LeftButton);
    QVERIFY(label("picMain").pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(!button("cmdClearPicture").isEnabled());
    QVERIFY(control_->ID3V2Tag()->saveTag());
    QVERIFY(reopened()->ID3V2Tag()->ID3V23Tag()->FrameList().find("APIC") == std::string::npos);
}

void ID3v2Test::lyricsOfBothKindsAreWritten() {
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

void ID3v2Test::aTagThatCannotBeSavedSaysSoAndIsLocked_data() {
    QTest::addColumn<unsigned>("version");
    QTest::addColumn<QString>("frame");
    QTest::newRow("2.2") << 2U << "TT2";
    QTest::newRow("2.4") << 4U << "TIT2";
}

void ID3v2Test::aTagThatCannotBeSavedSaysSoAndIsLocked() {
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

void ID3v2Test::anXmlTagIsShownButNotGivenBack() {
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

void ID3v2Test::anotherKindOfTagIsRefused() {
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

void ID3v2Test::theBoxLocksAndUnlocks() {
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

void ID3v2Test::theHostIsAskedToSaveOrRemove_data() {
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("save");
    QTest::addColumn<bool>("remove");
    QTest::newRow("checked") << true << true << true << false;
    QTest::newRow("unchecked") << false << true << false << true;
    QTest::newRow("checked, disabled") << true << false << false << false;
    QTest::newRow("unchecked, disabled") << false << false << false << false;
}

void ID3v2Test::theHostIsAskedToSaveOrRemove() {
    QFETCH(bool, checked);
    QFETCH(bool, enabled);
    give(fullTag());
    check().setChecked(checked);
    check().setEnabled(enabled);
    QTEST(control_->saveTag(), "save");
    QTEST(control_->removeTag(), "remove");
    QTEST(control_->HasTag(), "checked");
}

void ID3v2Test::disablingReachesFieldsAndButtons() {
    give(fullTag());
    control_->Enabled(false);
    for (const char* name : kBoxes) QVERIFY(!child<QWidget>(*control_, name).isEnabled());
    QVERIFY(!genres().isEnabled());
    QVERIFY(!button("cmdLoadPicture").isEnabled() && !button("cmdClearPicture").isEnabled());
    QVERIFY(check().isEnabled() && list().isEnabled());
    control_->Enabled(true);
    QVERIFY(line("txtTitle").isEnabled() && button("cmdLoadPicture").isEnabled());
}

void ID3v2Test::lockingKeepsFieldsAndPicture() {
    give(fullTag());
    control_->Locked(true);
    for (const char* name : kBoxes) QVERIFY(child<QWidget>(*control_, name).property("readOnly").toBool());
    QVERIFY(genres().isLocked());
    QVERIFY(!button("cmdLoadPicture").isEnabled() && !button("cmdClearPicture").isEnabled());
    control_->Locked(false);
    QVERIFY(!page("txtLyrics").isReadOnly() && button("cmdClearPicture").isEnabled());
}

void ID3v2Test::editsAreTold() {
    const QSignalSpy edits(control_.get(), &ID3v2::edited);
    give(fullTag());
    QCOMPARE(edits.count(), 0);
    line("txtTitle").setText("x");
    page("txtLyrics").setPlainText("y");
    genres().setCurrentIndex(3);
    QCOMPARE(edits.count(), 3);
}

void ID3v2Test::hostsAreToldWhenTheUserDecides() {
    give(fullTag());
    const QSignalSpy told(control_.get(), &ID3v2::tagRequestChanged);
    check().click();
    QCOMPARE(told.count(), 1);
}

void ID3v2Test::theTabsShowOneBoxAtTheSamePlace() {
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

void ID3v2Test::theModeArrangesThePanels() {
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

void ID3v2Test::theListFollowsTheSizeOfTheControl() {
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

void ID3v2Test::thePropertyBagKeepsModeAndList() {
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

void ID3v2Test::anEmptyBagGivesTheDefaults() {
    control_->Mode(v2aWide);
    control_->FrameListVisible(false);
    control_->ReadProperties({});
    QCOMPARE(control_->Mode(), v2aDefault);
    QVERIFY(control_->FrameListVisible());
    control_->ReadProperties(PropertyBag({{"V2A", 7}, {"FRL", "false"}}));
    QCOMPARE(control_->Mode(), v2aDefault);
    QVERIFY(!control_->FrameListVisible());
}

void ID3v2Test::formsKnowTheProperties() {
    QVERIFY(control_->setProperty("Mode", 1));
    QVERIFY(control_->setProperty("FrameListVisible", false));
    QCOMPARE(control_->Mode(), v2aWide);
    QVERIFY(!control_->FrameListVisible());
    QCOMPARE(control_->property("HasTag").toBool(), false);
    QVERIFY(control_->setProperty("Locked", false));
    QVERIFY(!control_->Locked());
}

void ID3v2Test::tabsVisitTheFieldsInOrder() {
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

void ID3v2Test::everyBoxHasANameForScreenReaders() {
    for (const char* name : kBoxes) QVERIFY2(!child<QWidget>(*control_, name).accessibleName().isEmpty(), name);
}

void ID3v2Test::mnemonicsAreDistinct() {
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

void ID3v2Test::aRightClickOffersTheEditMenu() {
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

static const bool kRegistered = registerTest<ID3v2Test>("ID3v2Test");

#include <ID3v2Test.moc>
