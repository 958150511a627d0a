#include "corvane/controls/cTextBox.h"

#include "tests/controls/Registry.h"
#include "tests/controls/TextBoxFixture.h"

#include <QContextMenuEvent>
#include <QMimeData>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;

// The menu of a right click, and the box that comes and goes.
class cTextBoxMenuTest : public TextBoxFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

    void aRightClickShowsTheMenuAndGoesNoFurther_data() { kinds(); }
    void aRightClickShowsTheMenuAndGoesNoFurther();
    void withoutMenuOrObjectARightClickReachesTheBox_data() { kinds(); }
    void withoutMenuOrObjectARightClickReachesTheBox();
    void otherButtonsReachTheBox_data() { kinds(); }
    void otherButtonsReachTheBox();
    void theMenuRequestOfTheMouseBelongsToTheClick_data() { kinds(); }
    void theMenuRequestOfTheMouseBelongsToTheClick();
    void anObjectWithoutTheOperationIsNoFailure_data() { kinds(); }
    void anObjectWithoutTheOperationIsNoFailure();
    void disablingTheMenuTakesABox();
    void aDisabledBoxShowsNoMenu_data() { kinds(); }
    void aDisabledBoxShowsNoMenu();
    void aDisabledMenuIsNotShown_data() { kinds(); }
    void aDisabledMenuIsNotShown();
    void theBoxGetsItsMenuBack_data() { kinds(); }
    void theBoxGetsItsMenuBack();
    void aBoxThatWasGivenUpIsLeftAlone_data() { kinds(); }
    void aBoxThatWasGivenUpIsLeftAlone();
    void theBoxMayDieFirst_data() { kinds(); }
    void theBoxMayDieFirst();
    void theBoxMayOwnIt_data() { kinds(); }
    void theBoxMayOwnIt();
    void withoutABoxEverythingIsImpossible();
    void thePropertiesTellTheSame_data() { kinds(); }
    void thePropertiesTellTheSame();
};

void cTextBoxMenuTest::aRightClickShowsTheMenuAndGoesNoFurther() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    rightClick(*box_);
    QCOMPARE(owner_->shown, QList<QMenu*>{&menu});
    QCOMPARE(releasesOf(*box_), 0);
}

void cTextBoxMenuTest::withoutMenuOrObjectARightClickReachesTheBox() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.MenuObject(owner_.get());
    rightClick(*box_);
    textBox.MenuObject(nullptr);
    textBox.ContextMenu(&menu);
    rightClick(*box_);
    QVERIFY(owner_->shown.isEmpty());
    QCOMPARE(releasesOf(*box_), 2);
}

void cTextBoxMenuTest::otherButtonsReachTheBox() {
    cTextBox& textBox = wrapped("one two");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    QTest::mouseClick(surfaceOf(*box_), Qt::LeftButton, {}, QPoint(8, 12));
    QTest::mouseDClick(surfaceOf(*box_), Qt::LeftButton, {}, QPoint(8, 12));
    QVERIFY(owner_->shown.isEmpty());
    QCOMPARE(releasesOf(*box_), 1);
    QVERIFY(textBox.CanCopy()); // the box has selected a word
}

void cTextBoxMenuTest::theMenuRequestOfTheMouseBelongsToTheClick() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5), box_->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(surfaceOf(*box_), &request);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(owner_->shown.isEmpty());
}

void cTextBoxMenuTest::anObjectWithoutTheOperationIsNoFailure() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    QObject object;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(&object);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such method QObject::PopupMenu"));
    rightClick(*box_);
    QCOMPARE(textOf(*box_), "one");
}

void cTextBoxMenuTest::disablingTheMenuTakesABox() {
    cTextBox textBox;
    textBox.DisableContextMenu(true);
    QVERIFY(!textBox.DisableContextMenu());
}

void cTextBoxMenuTest::aDisabledBoxShowsNoMenu() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    box_->setEnabled(false);
    rightClick(*box_);
    QVERIFY(owner_->shown.isEmpty());
}

void cTextBoxMenuTest::aDisabledMenuIsNotShown() {
    cTextBox& textBox = wrapped("one");
    const auto asked = [this] {
        QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5), box_->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(surfaceOf(*box_), &request);
        QWidget* shown = QApplication::activePopupWidget();
        if (shown) shown->close();
        return shown != nullptr;
    };
    textBox.DisableContextMenu(true);
    QVERIFY(!asked());
    textBox.DisableContextMenu(false);
    QVERIFY(asked());
}

void cTextBoxMenuTest::theBoxGetsItsMenuBack() {
    cTextBox& textBox = wrapped("one");
    box_->setContextMenuPolicy(Qt::CustomContextMenu);
    textBox.DisableContextMenu(true);
    QVERIFY(textBox.DisableContextMenu());
    QCOMPARE(box_->contextMenuPolicy(), Qt::PreventContextMenu);
    textBox.DisableContextMenu(true); // once more changes nothing
    textBox.DisableContextMenu(false);
    QCOMPARE(box_->contextMenuPolicy(), Qt::CustomContextMenu);
    textBox.DisableContextMenu(true);
    textBox_.reset();
    QCOMPARE(box_->contextMenuPolicy(), Qt::CustomContextMenu);
}

void cTextBoxMenuTest::aBoxThatWasGivenUpIsLeftAlone() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    QLineEdit other(owner_.get());
    other.show();
    textBox.TextBox(&other);
    rightClick(*box_);
    QVERIFY(owner_->shown.isEmpty());
    rightClick(other);
    QCOMPARE(owner_->shown.size(), 1);
    textBox.TextBox(owner_.get()); // no text box
    rightClick(other);
    QCOMPARE(owner_->shown.size(), 1);
    QVERIFY(!textBox.CanSelectAll());
}

void cTextBoxMenuTest::theBoxMayDieFirst() {
    cTextBox& textBox = wrapped("one");
    textBox.DisableContextMenu(true);
    delete box_;
    QVERIFY(!textBox.CanSelectAll() && !textBox.CanUndo() && !textBox.CanCut());
    textBox.Cut();
    textBox.SelectAll();
    textBox.Delete();
    textBox.DisableContextMenu(true);
    QVERIFY(!textBox.DisableContextMenu());
}

void cTextBoxMenuTest::theBoxMayOwnIt() {
    wrapped("one");
    auto* owned = new cTextBox(box_);
    const QPointer<cTextBox> watched(owned);
    owned->TextBox(box_);
    owned->DisableContextMenu(true);
    delete box_;
    QVERIFY(watched.isNull());
}

void cTextBoxMenuTest::withoutABoxEverythingIsImpossible() {
    cTextBox textBox;
    putOnClipboard("text");
    textBox.Paste();
    textBox.Undo();
    textBox.Copy();
    textBox.ReplaceSelection("text");
    QVERIFY(!textBox.CanCut() && !textBox.CanCopy() && !textBox.CanUndo() && !textBox.CanSelectAll());
    QVERIFY(textBox.CanPaste()); // asks the clipboard only
}

void cTextBoxMenuTest::thePropertiesTellTheSame() {
    cTextBox& textBox = wrapped("one");
    QCOMPARE(textBox.property("CanSelectAll").toBool(), true);
    QCOMPARE(textBox.property("CanCopy").toBool(), false);
    QVERIFY(textBox.setProperty("DisableContextMenu", true));
    QVERIFY(textBox.DisableContextMenu());
}

static const bool kIsRegisteredcTextBoxMenuTest = registerTest<cTextBoxMenuTest>("cTextBoxMenuTest");

#include <cTextBoxMenuTest.moc>
