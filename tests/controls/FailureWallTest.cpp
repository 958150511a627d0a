#include "corvane/controls/FailureWall.h"

#include "corvane/platform/RuntimeFailure.h"

#include "tests/controls/Registry.h"

#include <QtTest>
#include <stdexcept>

using corvane::FailureNumber;
using corvane::RuntimeFailure;
using corvane::controls::behindWall;

class FailureWallTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsWhatItIsGiven();
    void aFailureIsToldAndGoesNoFurther();
    void anythingElseGoesNoFurtherEither();
};

void FailureWallTest::runsWhatItIsGiven() {
    bool ran = false;
    behindWall("test", [&] { ran = true; });
    QVERIFY(ran);
}

void FailureWallTest::aFailureIsToldAndGoesNoFurther() {
    QTest::ignoreMessage(QtWarningMsg, "Editor: Something failed.");
    behindWall("Editor", [] { throw RuntimeFailure(FailureNumber::Overflow, "source", "Something failed."); });
    QTest::ignoreMessage(QtWarningMsg, "Editor: standard");
    behindWall("Editor", [] { throw std::runtime_error("standard"); });
}

void FailureWallTest::anythingElseGoesNoFurtherEither() {
    QTest::ignoreMessage(QtWarningMsg, "Editor: unknown failure");
    behindWall("Editor", [] { throw 7; });
}

static const bool kIsRegisteredFailureWallTest = corvane::test::registerTest<FailureWallTest>("FailureWallTest");

#include <FailureWallTest.moc>
