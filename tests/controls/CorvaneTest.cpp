#include "corvane/controls/Corvane.h"

#include "corvane/core/FileHandler.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"

#include <QtTest>
#include <memory>

using namespace corvane::test;
using Container = corvane::controls::Corvane;

class CorvaneTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ownsOneFileHandlerForItsWholeLife();
    void theFileHandlerOutlivesTheControlForWhoHoldsIt();
    void threeLinesTellAboutTheLibrary_data();
    void threeLinesTellAboutTheLibrary();
    void theProductsNameIsTheLargest_data();
    void theProductsNameIsTheLargest();
    void theLinesStandOneBelowTheOther();
    void resizingKeepsTheLeftAndFillsTheWidth_data();
    void resizingKeepsTheLeftAndFillsTheWidth();
    void firesNoEvents();
};

void CorvaneTest::ownsOneFileHandlerForItsWholeLife() {
    Container one;
    Container other;
    QVERIFY(one.FileHandler() != nullptr);
    QVERIFY(one.FileHandler() == one.FileHandler());
    QVERIFY(one.FileHandler() != other.FileHandler());
    QVERIFY(!one.FileHandler()->Create("/nowhere/at all.mp3"));
    QVERIFY(one.FileHandler()->LastError()->Stream().find("No such file") != std::string::npos);
}

void CorvaneTest::theFileHandlerOutlivesTheControlForWhoHoldsIt() {
    auto control = std::make_unique<Container>();
    const std::weak_ptr<corvane::FileHandler> watched = control->FileHandler();
    auto held = control->FileHandler();
    control.reset();
    QCOMPARE(held->FileType(), std::int16_t{0});
    held.reset();
    QVERIFY(watched.expired());
}

void CorvaneTest::threeLinesTellAboutTheLibrary_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("company") << "lblManufacturer"
                             << "The Corvane authors";
    QTest::newRow("product") << "lblCaption"
                             << "Corvane";
    QTest::newRow("copyright") << "lblCopyright" << QString::fromUtf8("Copyright © 2026 The Corvane authors");
}

void CorvaneTest::threeLinesTellAboutTheLibrary() {
    QFETCH(QString, name);
    QFETCH(QString, text);
    Container control;
    QCOMPARE(child<QLabel>(control, qPrintable(name)).text(), text);
}

void CorvaneTest::theProductsNameIsTheLargest_data() {
    QTest::addColumn<bool>("pixels");
    QTest::newRow("a font of points") << false;
    QTest::newRow("a font of pixels") << true;
}

void CorvaneTest::theProductsNameIsTheLargest() {
    QFETCH(bool, pixels);
    const QFont before = QApplication::font();
    QFont font = before;
    if (pixels) font.setPixelSize(14);
    QApplication::setFont(font);
    Container control;
    QApplication::setFont(before);
    const QFontMetrics caption = child<QLabel>(control, "lblCaption").fontMetrics();
    QVERIFY(caption.height() * 4 > child<QLabel>(control, "lblCopyright").fontMetrics().height() * 5);
}

void CorvaneTest::theLinesStandOneBelowTheOther() {
    Container control;
    QVERIFY(showWindow(control));
    const QRect first = child<QLabel>(control, "lblManufacturer").geometry();
    const QRect second = child<QLabel>(control, "lblCaption").geometry();
    const QRect third = child<QLabel>(control, "lblCopyright").geometry();
    QVERIFY(first.bottom() < second.top());
    QVERIFY(second.bottom() < third.top());
}

void CorvaneTest::resizingKeepsTheLeftAndFillsTheWidth_data() {
    QTest::addColumn<int>("width");
    QTest::newRow("narrower than the texts") << 90;
    QTest::newRow("middle") << 300;
    QTest::newRow("wide") << 1000;
}

void CorvaneTest::resizingKeepsTheLeftAndFillsTheWidth() {
    QFETCH(int, width);
    QWidget window; // gives the control any width
    Container control(&window);
    window.resize(1200, 300);
    QVERIFY(showWindow(window));
    control.resize(width, 120);
    QCoreApplication::processEvents();
    for (const char* name : {"lblManufacturer", "lblCaption", "lblCopyright"}) {
        const auto& line = child<QLabel>(control, name);
        QCOMPARE(line.x(), 20);
        QCOMPARE(line.width(), width - 2 * 20);
    }
}

void CorvaneTest::firesNoEvents() {
    const QMetaObject& meta = Container::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        QVERIFY(meta.method(index).methodType() != QMetaMethod::Signal);
    }
}

static const bool kIsRegisteredCorvaneTest = registerTest<CorvaneTest>("CorvaneTest");

#include <CorvaneTest.moc>
