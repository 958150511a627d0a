#include "apps/editor/NaturalOrder.h"

#include "tests/controls/Registry.h"

#include <QtTest>

using namespace corvane::editor;

class NaturalOrderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NumbersAreComparedByTheirValue_data() {
        QTest::addColumn<QString>("lesser");
        QTest::addColumn<QString>("greater");
        QTest::newRow("a number") << "Track 2"
                                  << "Track 10";
        QTest::newRow("a number alone") << "9"
                                        << "10";
        QTest::newRow("more digits than any integer has") << "99999999999999999999"
                                                          << "100000000000000000000";
        QTest::newRow("the second number") << "1-2.mp3"
                                           << "1-10.mp3";
        QTest::newRow("leading zeros") << "002"
                                       << "10";
        QTest::newRow("a text after the same number") << "2 a"
                                                      << "02 b";
        QTest::newRow("a beginning") << "Track"
                                     << "Track 1";
        QTest::newRow("nothing") << ""
                                 << "1";
        QTest::newRow("a number before a letter") << "1"
                                                  << "a";
        QTest::newRow("a folder") << "/m/Disc 2/1.mp3"
                                  << "/m/Disc 10/1.mp3";
    }
    void NumbersAreComparedByTheirValue() {
        QFETCH(QString, lesser);
        QFETCH(QString, greater);
        QVERIFY(compareNaturally(lesser, greater) < 0);
        QVERIFY(compareNaturally(greater, lesser) > 0);
        QCOMPARE(compareNaturally(lesser, lesser), 0);
        const std::string first = lesser.toStdString(), second = greater.toStdString();
        QVERIFY(compareNaturally(first, second) < 0);
        QVERIFY(compareNaturally(second, first) > 0);
        QCOMPARE(compareNaturally(first, first), 0);
    }

    void PathsThatDifferAreNeverEqual() {
        QVERIFY(compareNaturally(std::string_view("02.mp3"), std::string_view("2.mp3")) < 0);
        QVERIFY(compareNaturally(std::string_view("caf\xe9"), std::string_view("cafe")) > 0);
    }
};

static const bool kIsRegisteredNaturalOrderTest = corvane::test::registerTest<NaturalOrderTest>("NaturalOrderTest");
#include <NaturalOrderTest.moc>
