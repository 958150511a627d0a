#include "corvane/controls/BatchString.h"

#include "tests/controls/Registry.h"

#include <QtTest>

using corvane::controls::BatchString;

class BatchStringTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void convertsByTheCode_data();
    void convertsByTheCode();
    void keepsCodeAndTextUntilTheyAreSetAgain();
};

void BatchStringTest::convertsByTheCode_data() {
    QTest::addColumn<int>("conversion");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("converted");
    const auto row = [](const char* name, int conversion, const char* text, const char* converted) {
        QTest::newRow(name) << conversion << QString::fromUtf8(text) << QString::fromUtf8(converted);
    };
    row("upper case", 1, "Straight on, Ünal", "STRAIGHT ON, ÜNAL");
    row("upper case may need more letters", 1, "Straße", "STRASSE");
    row("lower case", 2, "ÄRGER In The City", "ärger in the city");
    row("first letters, and the others lower", 3, "the LONG way home", "The Long Way Home");
    row("white space of every kind separates words", 3, "a\tb\nc\u00A0d", "A\tB\nC\u00A0D");
    row("a hyphen and an apostrophe do not", 3, "rock-n-roll don't", "Rock-n-roll Don't");
    row("marks in front of a word are skipped", 3, "song (live) \"remix\" ¿qué?", "Song (Live) \"Remix\" ¿Qué?");
    row("a number is no letter", 3, "the 2nd 1st", "The 2nd 1st");
    row("one letter that is two", 3, "ǆungla", "ǅungla");
    row("letters beyond 16 bits", 3, "𐐨𐐨", "𐐀𐐨");
    row("blanks stay", 3, "  two  blanks ", "  Two  Blanks ");
    row("nothing", 3, "", "");
    row("no conversion", 0, "MiXed", "MiXed");
    row("an unknown code", 4, "MiXed", "MiXed");
    row("a negative code", -1, "MiXed", "MiXed");
}

void BatchStringTest::convertsByTheCode() {
    QFETCH(int, conversion);
    QFETCH(QString, text);
    QFETCH(QString, converted);
    BatchString batch;
    batch.Conversion(conversion);
    batch.Initialize(text.toStdString());
    QCOMPARE(QString::fromStdString(batch.Convert()), converted);
}

void BatchStringTest::keepsCodeAndTextUntilTheyAreSetAgain() {
    BatchString batch;
    QCOMPARE(batch.Conversion(), 0);
    QCOMPARE(batch.Convert(), std::string());
    batch.Initialize("One");
    batch.Conversion(BatchString::kUpperCase);
    QCOMPARE(batch.Conversion(), 1);
    QCOMPARE(batch.Convert(), std::string("ONE"));
    QCOMPARE(batch.Convert(), std::string("ONE"));
    batch.Conversion(BatchString::kLowerCase);
    QCOMPARE(batch.Convert(), std::string("one"));
    batch.Initialize("Two");
    QCOMPARE(batch.Convert(), std::string("two"));
}

static const bool kIsRegisteredBatchStringTest = corvane::test::registerTest<BatchStringTest>("BatchStringTest");

#include <BatchStringTest.moc>
