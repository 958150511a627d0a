#include "corvane/controls/ID3v2.h"

#include "tests/controls/ID3v2Fixture.h"
#include "tests/controls/Registry.h"

#include <QtTest>

using namespace corvane::test;

// Run where id3lib cannot be loaded: tags of every version can only be looked at.
class ID3v2WithoutId3libTest : public ID3v2Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void aTagIsShownAndLocked();
};

void ID3v2WithoutId3libTest::aTagIsShownAndLocked() {
    const auto given = give(fullTag());
    QVERIFY(!given->canSave());
    QVERIFY(showWindow(*control_));
    QVERIFY(label("lblNotice").isVisible());
    QVERIFY2(label("lblNotice").text().startsWith("This tag cannot be saved: "), qPrintable(label("lblNotice").text()));
    QVERIFY(label("lblNotice").text().size() > 30); // a reason is told
    QVERIFY(control_->Locked() && control_->HasTag() && !control_->saveTag() && !control_->removeTag());
    QCOMPARE(line("txtTitle").text(), "A title");
    QVERIFY(list().topLevelItemCount() > 10);
    type(line("txtTitle"), "x");
    QCOMPARE(line("txtTitle").text(), "A title");
    QVERIFY(control_->ID3V2Tag() == given);
    QVERIFY(file_->isUnchanged());
}

static const bool kIsRegisteredID3v2WithoutId3libTest = registerTest<ID3v2WithoutId3libTest>("ID3v2WithoutId3libTest");

#include <ID3v2WithoutId3libTest.moc>
