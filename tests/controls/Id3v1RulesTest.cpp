#include "corvane/controls/Id3v1Rules.h"

#include "corvane/controls/Id3v1Tags.h"

#include "tests/controls/Registry.h"

#include <QtTest>

using namespace corvane::controls;
using corvane::EID3TagConstants;
using corvane::ID3V1Tag;

class Id3v1RulesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theCommentIsShorterWithATrack();
    void onlyAVersionWithTrackKeepsATrack();
    void aTrackIsAWholeNumberOf16Bits_data();
    void aTrackIsAWholeNumberOf16Bits();
    void theLastTagAddedIsShown();
    void stepsStayWithinTheTags();
};

void Id3v1RulesTest::theCommentIsShorterWithATrack() {
    QCOMPARE(commentLimit(0), 30);
    QCOMPARE(commentLimit(1), 28);
    QCOMPARE(commentLimit(-1), 28);
}

void Id3v1RulesTest::onlyAVersionWithTrackKeepsATrack() {
    QCOMPARE(tagTypeFor(0), EID3TagConstants::ID3v1);
    QCOMPARE(tagTypeFor(1), EID3TagConstants::ID3V11);
    QCOMPARE(tagTypeFor(-1), EID3TagConstants::ID3V11); // which writing refuses, instead of dropping it
}

void Id3v1RulesTest::aTrackIsAWholeNumberOf16Bits_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("track");
    QTest::newRow("nothing") << "" << 0;
    QTest::newRow("a number") << "12" << 12;
    QTest::newRow("blanks around") << " 7 " << 7;
    QTest::newRow("negative") << "-3" << -3;
    QTest::newRow("letters") << "seven" << 0;
    QTest::newRow("a number and letters") << "7b" << 0;
    QTest::newRow("the largest") << "32767" << 32767;
    QTest::newRow("too large") << "32768" << 0;
}

void Id3v1RulesTest::aTrackIsAWholeNumberOf16Bits() {
    QFETCH(QString, text);
    QTEST(int{trackOf(text)}, "track");
}

void Id3v1RulesTest::theLastTagAddedIsShown() {
    Id3v1Tags tags;
    QVERIFY(tags.shown() == nullptr);
    const auto one = std::make_shared<ID3V1Tag>();
    const auto two = std::make_shared<ID3V1Tag>();
    tags.add(one);
    tags.add(two);
    QVERIFY(tags.shown() == two);
    QCOMPARE(tags.count(), std::size_t{2});
    tags.clear();
    QVERIFY(tags.shown() == nullptr);
    QCOMPARE(tags.shownOffset(), std::size_t{0});
}

void Id3v1RulesTest::stepsStayWithinTheTags() {
    Id3v1Tags tags;
    tags.next();
    tags.previous();
    QCOMPARE(tags.shownOffset(), std::size_t{0});
    tags.add(std::make_shared<ID3V1Tag>());
    tags.add(std::make_shared<ID3V1Tag>());
    QVERIFY(!tags.hasNext() && tags.hasPrevious());
    tags.next();
    QCOMPARE(tags.shownOffset(), std::size_t{1});
    tags.previous();
    tags.previous();
    QCOMPARE(tags.shownOffset(), std::size_t{0});
    QVERIFY(tags.hasNext() && !tags.hasPrevious());
}

static const bool kIsRegisteredId3v1RulesTest = corvane::test::registerTest<Id3v1RulesTest>("Id3v1RulesTest");

#include <Id3v1RulesTest.moc>
