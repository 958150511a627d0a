#include "corvane/controls/FieldLimit.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"

#include <QLineEdit>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;

class FieldLimitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isEmptyWhileTheTextFits_data();
    void isEmptyWhileTheTextFits();
    void followsWhatIsTyped();
    void followsItsLimit();
    void tellsScreenReadersAndToolTips();
    void standsOutOnLightAndDarkWindows_data();
    void standsOutOnLightAndDarkWindows();
};

void FieldLimitTest::isEmptyWhileTheTextFits_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("told");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("at the limit") << "abcd"
                                  << "";
    QTest::newRow("one more") << "abcde"
                              << "5/4";
    QTest::newRow("characters of two units") << QString::fromUtf8("𝄞𝄞𝄞𝄞") << "";
    QTest::newRow("five of them") << QString::fromUtf8("𝄞𝄞𝄞𝄞𝄞") << "5/4";
}

void FieldLimitTest::isEmptyWhileTheTextFits() {
    QFETCH(QString, text);
    QWidget window;
    QLineEdit box(&window);
    const FieldLimit limit(box, 4, &window);
    box.setText(text);
    QTEST(limit.text(), "told");
    QCOMPARE(box.text(), text);
}

void FieldLimitTest::followsWhatIsTyped() {
    QWidget window;
    QLineEdit box(&window);
    const FieldLimit limit(box, 2, &window);
    QVERIFY(showWindow(window));
    type(box, "abc");
    QCOMPARE(limit.text(), "3/2");
    QTest::keyClick(&box, Qt::Key_Backspace);
    QCOMPARE(limit.text(), "");
}

void FieldLimitTest::followsItsLimit() {
    QWidget window;
    QLineEdit box("abc", &window);
    FieldLimit limit(box, 3, &window);
    QCOMPARE(limit.text(), "");
    limit.setLimit(2);
    QCOMPARE(limit.limit(), 2);
    QCOMPARE(limit.text(), "3/2");
}

void FieldLimitTest::tellsScreenReadersAndToolTips() {
    QWidget window;
    QLineEdit box("abc", &window);
    box.setObjectName("txtTitle");
    FieldLimit limit(box, 2, &window);
    QCOMPARE(limit.objectName(), "lblLimitTitle");
    QVERIFY(box.toolTip().contains("2") && box.accessibleDescription() == box.toolTip());
    limit.setLimit(3);
    QVERIFY(box.toolTip().isEmpty() && box.accessibleDescription().isEmpty());
}

void FieldLimitTest::standsOutOnLightAndDarkWindows_data() {
    QTest::addColumn<QColor>("window");
    QTest::newRow("white") << QColor(Qt::white);
    QTest::newRow("grey") << QColor(239, 239, 239);
    QTest::newRow("dark grey") << QColor(45, 45, 45);
    QTest::newRow("black") << QColor(Qt::black);
}

void FieldLimitTest::standsOutOnLightAndDarkWindows() {
    QFETCH(QColor, window);
    QWidget around;
    QLineEdit box(&around);
    const FieldLimit limit(box, 2, &around);
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    around.setPalette(palette);
    const QColor text = limit.palette().color(QPalette::WindowText);
    QVERIFY(std::abs(text.lightness() - window.lightness()) > 80);
    QVERIFY(text.saturation() > 100); // a colour, not a grey
}

static const bool kIsRegisteredFieldLimitTest = registerTest<FieldLimitTest>("FieldLimitTest");

#include <FieldLimitTest.moc>
