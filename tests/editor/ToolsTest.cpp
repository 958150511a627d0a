#include "apps/editor/Tools.h"

#include "corvane/controls/BatchString.h"

#include "apps/editor/PendingSummary.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorFiles.h"
#include "tests/support/ImageBuilder.h"

#include <QtTest>

using namespace corvane::editor;
using namespace corvane::test;
using corvane::controls::BatchString;

namespace {

FileTags both() {
    FileTags tags;
    tags.v1.present = tags.v2.present = true;
    return tags;
}

} // namespace

class ToolsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TextGoesIntoTheTagsThatTheFileHas_data() {
        QTest::addColumn<bool>("v1");
        QTest::addColumn<bool>("v2");
        QTest::addColumn<QString>("expected"); // which tags have the text then
        QTest::newRow("both") << true << true << "12";
        QTest::newRow("ID3v1") << true << false << "1";
        QTest::newRow("ID3v2") << false << true << "2";
        QTest::newRow("neither") << false << false << "12";
    }
    void TextGoesIntoTheTagsThatTheFileHas() {
        QFETCH(bool, v1);
        QFETCH(bool, v2);
        FileTags tags;
        tags.v1.present = v1;
        tags.v2.present = v2;
        tags = withText(tags, Field::Title, "Title");
        QString found;
        if (tags.v1.present && tags.v1[Field::Title] == "Title") found += '1';
        if (tags.v2.present && tags.v2[Field::Title] == "Title") found += '2';
        QTEST(found, "expected");
    }

    void FieldOfId3v2AloneGivesTheFileThatTag() {
        FileTags tags;
        tags.v1.present = true;
        tags = withText(tags, Field::Composer, "Somebody");
        QVERIFY(tags.v2.present);
        QCOMPARE(tags.v2[Field::Composer], std::string("Somebody"));
        QVERIFY(tags.v1[Field::Composer].empty());
    }

    void GenreAndTrackTakeTheFormOfTheTag() {
        FileTags tags = withText(both(), Field::Genre, "Classical");
        QCOMPARE(tags.v1[Field::Genre], std::string("32"));
        QCOMPARE(tags.v2[Field::Genre], std::string("(32)"));
        tags = withText(tags, Field::Track, "3/12");
        QCOMPARE(tags.v1[Field::Track], std::string("3"));
        QCOMPARE(tags.v2[Field::Track], std::string("3/12"));
    }

    void Id3v1GenreIsFoundInEveryForm_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("number");
        QTest::newRow("name") << "classical"
                              << "32";
        QTest::newRow("number") << "32"
                                << "32";
        QTest::newRow("reference") << "(32)"
                                   << "32";
        QTest::newRow("both") << "(32)Classical"
                              << "32";
        QTest::newRow("none") << ""
                              << "";
        QTest::newRow("unknown") << "Spectral whispering"
                                 << "";
    }
    void Id3v1GenreIsFoundInEveryForm() {
        QFETCH(QString, text);
        QTEST(QString::fromStdString(id3v1Genre(text.toStdString())), "number");
    }

    void CopyKeepsWhatTheOtherTagLacks() {
        FileTags tags = both();
        tags.v1[Field::Title] = "From 1";
        tags.v1[Field::Genre] = "17";
        tags.v2[Field::Title] = "From 2";
        tags.v2[Field::Artist] = "Kept";
        tags = withCopyToV2(tags);
        QCOMPARE(tags.v2[Field::Title], std::string("From 1"));
        QCOMPARE(tags.v2[Field::Genre], std::string("(17)"));
        QCOMPARE(tags.v2[Field::Artist], std::string("Kept"));
    }

    void CopyFromId3v1KeepsWhatTheRecordHasNoRoomFor_data() {
        QTest::addColumn<Field>("field");
        QTest::addColumn<QString>("inRecord");
        QTest::addColumn<QString>("inTag");
        QTest::addColumn<QString>("expected");
        const auto kept = [](const char* name, Field field, const char* inRecord, const char* inTag) {
            QTest::newRow(name) << field << inRecord << inTag << inTag;
        };
        kept("long text", Field::Title, "A title that has many more cha",
             "A title that has many more characters than a record");
        kept("cut behind a blank", Field::Comment, "A comment cut behind a word",
             "A comment cut behind a word of a record with a track");
        kept("cut behind blanks", Field::Album, "An album", "An album                         of many blanks");
        kept("no such letter", Field::Artist, "Mot?rhead", "Mot\u0151rhead");
        kept("total", Field::Track, "3", "3/12");
        kept("refined genre", Field::Genre, "17", "(17)Stoner rock");
        QTest::newRow("other text") << Field::Title << "A title that has many more cha"
                                    << "A title that has many other characters"
                                    << "A title that has many more cha";
        QTest::newRow("letters of two bytes")
            << Field::Title << QStringLiteral("\u00e4").repeated(14) << QStringLiteral("\u00e4").repeated(15)
            << QStringLiteral("\u00e4").repeated(14);
        QTest::newRow("other track") << Field::Track << "4"
                                     << "3/12"
                                     << "4";
        QTest::newRow("other genre") << Field::Genre << "18"
                                     << "(17)Stoner rock"
                                     << "(18)";
    }
    void CopyFromId3v1KeepsWhatTheRecordHasNoRoomFor() {
        QFETCH(Field, field);
        QFETCH(QString, inRecord);
        QFETCH(QString, inTag);
        FileTags tags = both();
        tags.v1[Field::Track] = "3"; // which leaves the comment 28 characters
        tags.v1[field] = inRecord.toStdString();
        tags.v2[field] = inTag.toStdString();
        QTEST(QString::fromStdString(withCopyToV2(tags).v2[field]), "expected");
    }

    void CopyGivesTheOtherTag() {
        FileTags tags;
        tags.v2.present = true;
        tags.v2[Field::Title] = "T";
        tags.v2[Field::Genre] = "(17)Rock";
        tags.v2[Field::Track] = "3/12";
        tags = withCopyToV1(tags);
        QVERIFY(tags.v1.present);
        QCOMPARE(tags.v1[Field::Genre], std::string("17"));
        QCOMPARE(tags.v1[Field::Track], std::string("3"));
        QCOMPARE(withCopyToV1(FileTags()), FileTags());
    }

    void CopyToId3v1TakesTheReadingOfTheStandard_data() {
        QTest::addColumn<unsigned>("version");
        QTest::addColumn<Encoding>("encoding");
        QTest::newRow("2.4 UTF-8") << 4U << Encoding::Utf8;
        QTest::newRow("2.4 UTF-16 without a mark") << 4U << Encoding::Utf16BigEndian;
        QTest::newRow("2.4 UTF-16") << 4U << Encoding::Utf16;
        QTest::newRow("2.3 UTF-16") << 3U << Encoding::Utf16;
        QTest::newRow("2.3 UTF-8, which it does not have") << 3U << Encoding::Utf8;
    }
    void CopyToId3v1TakesTheReadingOfTheStandard() {
        QFETCH(unsigned, version);
        QFETCH(Encoding, encoding);
        const ScratchFolder folder;
        Id3v2Builder tag(version);
        tag.text("TIT2", "\u00c6r\u00f8", encoding).text("TPE1", "M\u00f6tley", encoding);
        tag.text("TALB", "\u00dcn\u00efcode", encoding).text(version == 4 ? "TDRC" : "TYER", "1999", encoding);
        tag.text("TRCK", "3/12", encoding).text("TCON", "Rock", encoding);
        tag.frame("COMM", commentFrame("iTunNORM", " 000003E8", encoding));
        tag.frame("COMM", commentFrame("", "Caf\u00e9", encoding));
        const TagValues copied =
            withCopyToV1(readTags(Mp3File(folder, tag.done(), Mp3File::audio(), "a.mp3").path())).v1;
        QCOMPARE(copied[Field::Title], std::string("\u00c6r\u00f8"));
        QCOMPARE(copied[Field::Artist], std::string("M\u00f6tley"));
        QCOMPARE(copied[Field::Album], std::string("\u00dcn\u00efcode"));
        QCOMPARE(copied[Field::Year], std::string("1999"));
        QCOMPARE(copied[Field::Track], std::string("3"));
        QCOMPARE(copied[Field::Genre], std::string("17"));
        QCOMPARE(copied[Field::Comment], std::string("Caf\u00e9"));
    }

    void CopyToId3v1TakesTheFirstOfSeveralGenresThatItHas() {
        const ScratchFolder folder;
        Id3v2Builder tag(4);
        tag.frame("TCON", valuesFrame({"Spectral whispering", "Blues", "Rock"}, Encoding::Utf16BigEndian));
        const FileTags tags = readTags(Mp3File(folder, tag.done(), Mp3File::audio(), "a.mp3").path());
        QCOMPARE(withCopyToV1(tags).v1[Field::Genre], std::string("0"));
    }

    void CopyToId3v1TakesWhatTheUserHasPutThere() {
        const ScratchFolder folder;
        Id3v2Builder tag(3);
        tag.text("TIT2", "\u00c6r\u00f8", Encoding::Utf8);
        FileTags tags = readTags(Mp3File(folder, tag.done(), Mp3File::audio(), "a.mp3").path());
        tags.v2[Field::Title] = "Typed";
        QCOMPARE(withCopyToV1(tags).v1[Field::Title], std::string("Typed"));
    }

    void CaseIsConvertedInTheChosenFieldsOnly() {
        FileTags tags = both();
        tags.v1[Field::Title] = tags.v2[Field::Title] = "a TITLE";
        tags.v2[Field::Artist] = "an ARTIST";
        tags = withCase(tags, {Field::Title}, BatchString::kProperCase);
        QCOMPARE(tags.v1[Field::Title], std::string("A Title"));
        QCOMPARE(tags.v2[Field::Title], std::string("A Title"));
        QCOMPARE(tags.v2[Field::Artist], std::string("an ARTIST"));
    }

    void TrackIsWrittenWithItsTotal() {
        QCOMPARE(withTrack(both(), 3, 12).v2[Field::Track], std::string("3/12"));
        QCOMPARE(withTrack(both(), 3, 0).v2[Field::Track], std::string("3"));
        QCOMPARE(withTrack(both(), 300, 0).v1[Field::Track], std::string());
    }

    void PictureGoesIntoAnId3v2Tag() {
        const auto picture = corvane::Picture::fromBytes(corvane::test::pngImage(4, 4));
        QVERIFY(withPicture(FileTags(), picture).v2.present);
        QCOMPARE(withPicture(FileTags(), nullptr), FileTags());
        QVERIFY(withPicture(both(), nullptr).v2.cover.has_value());
    }

    void ListShowsWhatIsWanted() {
        FileTags inFile = both(), wanted = both();
        corvane::FileSummary summary;
        summary.title = "Old";
        summary.artist = "Somebody";
        summary.tags = {"ID3v2.3.0", "Lyrics3v2", "ID3v1"};
        wanted.v2[Field::Title] = "New";
        wanted.v2[Field::Genre] = "(17)";
        wanted.v1.present = false;
        summary = pendingSummary(summary, inFile, wanted);
        QCOMPARE(summary.title, std::string("New"));
        QCOMPARE(summary.artist, std::string("Somebody"));
        QCOMPARE(summary.genre, std::string("Rock"));
        QCOMPARE(summary.tags, (std::vector<std::string>{"ID3v2.3.0", "Lyrics3v2"}));
    }
};

static const bool kIsRegisteredToolsTest = corvane::test::registerTest<ToolsTest>("ToolsTest");
#include <ToolsTest.moc>
