#include "corvane/controls/cTextBox.h"

#include "corvane/controls/EditBox.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;

namespace {

// A window that shows menus, as the owning control of a text box does.
class MenuOwner : public QWidget {
    Q_OBJECT

public Q_SLOTS:
    void PopupMenu(QMenu* menu) { shown.push_back(menu); }

public:
    QList<QMenu*> shown;
};

// Text boxes that count the releases that reach their own handlers.
class Line : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    int releases = 0;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        ++releases;
        QLineEdit::mouseReleaseEvent(event);
    }
};

class Page : public QPlainTextEdit {
public:
    using QPlainTextEdit::QPlainTextEdit;
    int releases = 0;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override {
        ++releases;
        QPlainTextEdit::mouseReleaseEvent(event);
    }
};

int releasesOf(QWidget& box) {
    if (auto* line = dynamic_cast<Line*>(&box)) return line->releases;
    return dynamic_cast<Page&>(box).releases;
}

void setText(QWidget& box, const QString& text) {
    if (auto* line = qobject_cast<QLineEdit*>(&box)) line->setText(text);
    if (auto* page = qobject_cast<QPlainTextEdit*>(&box)) page->setPlainText(text);
}

void select(QWidget& box, int start, int length) {
    if (auto* line = qobject_cast<QLineEdit*>(&box)) line->setSelection(start, length);
    if (auto* page = qobject_cast<QPlainTextEdit*>(&box)) {
        QTextCursor cursor = page->textCursor();
        cursor.setPosition(start);
        cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        page->setTextCursor(cursor);
    }
}

void lock(QWidget& box) { box.setProperty("readOnly", true); }

QString textOf(QWidget& box) { return EditBox(&box).text(); }

} // namespace

// Every rule holds for boxes of one line and of many.
class cTextBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void cutTakesTheSelectionToTheClipboard_data() { kinds(); }
    void cutTakesTheSelectionToTheClipboard();
    void copyLeavesTheText_data() { kinds(); }
    void copyLeavesTheText();
    void pastePutsTheClipboardInPlaceOfTheSelection_data() { kinds(); }
    void pastePutsTheClipboardInPlaceOfTheSelection();
    void undoTakesBackTheLastEdit_data() { kinds(); }
    void undoTakesBackTheLastEdit();
    void selectAllSelectsFromTheFirstToTheLastCharacter_data() { kinds(); }
    void selectAllSelectsFromTheFirstToTheLastCharacter();

    void canCutNeedsASelectionInAnUnlockedBox_data() { kinds(); }
    void canCutNeedsASelectionInAnUnlockedBox();
    void canSelectAllOnlyWithTextAndWithoutSelection_data() { kinds(); }
    void canSelectAllOnlyWithTextAndWithoutSelection();
    void canPasteWhenTheClipboardHoldsText_data() { kinds(); }
    void canPasteWhenTheClipboardHoldsText();

    void replaceSelectionCanBeUndoneUnlessToldOtherwise_data();
    void replaceSelectionCanBeUndoneUnlessToldOtherwise();
    void deleteCannotBeUndoneWhateverIsAsked_data() { kinds(); }
    void deleteCannotBeUndoneWhateverIsAsked();
    void deleteWithoutSelectionLeavesTheText_data() { kinds(); }
    void deleteWithoutSelectionLeavesTheText();
    void aLockedBoxKeepsItsText_data() { kinds(); }
    void aLockedBoxKeepsItsText();

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

private:
    static void kinds();
    cTextBox& wrapped(const char* text);

    std::unique_ptr<MenuOwner> owner_;
    QWidget* box_ = nullptr;
    std::unique_ptr<cTextBox> textBox_;
};

void cTextBoxTest::kinds() {
    QTest::addColumn<bool>("page");
    QTest::newRow("one line") << false;
    QTest::newRow("many lines") << true;
}

void cTextBoxTest::init() {
    owner_ = std::make_unique<MenuOwner>();
    textBox_ = std::make_unique<cTextBox>();
    QGuiApplication::clipboard()->clear();
}

void cTextBoxTest::cleanup() {
    textBox_.reset();
    owner_.reset();
}

cTextBox& cTextBoxTest::wrapped(const char* text) {
    QFETCH(bool, page);
    box_ = page ? static_cast<QWidget*>(new Page(owner_.get())) : new Line(owner_.get());
    box_->resize(200, 60);
    setText(*box_, QString::fromUtf8(text));
    textBox_->TextBox(box_);
    showWindow(*owner_);
    box_->setFocus();
    return *textBox_;
}

void cTextBoxTest::cutTakesTheSelectionToTheClipboard() {
    cTextBox& textBox = wrapped("one two");
    select(*box_, 0, 4);
    textBox.Cut();
    QCOMPARE(textOf(*box_), "two");
    QCOMPARE(clipboardText(), "one ");
}

void cTextBoxTest::copyLeavesTheText() {
    cTextBox& textBox = wrapped("one two");
    select(*box_, 4, 3);
    textBox.Copy();
    QCOMPARE(textOf(*box_), "one two");
    QCOMPARE(clipboardText(), "two");
}

void cTextBoxTest::pastePutsTheClipboardInPlaceOfTheSelection() {
    cTextBox& textBox = wrapped("one two");
    putOnClipboard("drei");
    select(*box_, 4, 3);
    textBox.Paste();
    QCOMPARE(textOf(*box_), "one drei");
}

void cTextBoxTest::undoTakesBackTheLastEdit() {
    cTextBox& textBox = wrapped("one");
    QVERIFY(!textBox.CanUndo());
    type(*box_, "x");
    QVERIFY(textBox.CanUndo());
    textBox.Undo();
    QCOMPARE(textOf(*box_), "one");
    QVERIFY(!textBox.CanUndo());
}

void cTextBoxTest::selectAllSelectsFromTheFirstToTheLastCharacter() {
    cTextBox& textBox = wrapped("größer");
    select(*box_, 2, 1);
    textBox.SelectAll();
    textBox.Copy();
    QCOMPARE(clipboardText(), QString::fromUtf8("größer"));
}

void cTextBoxTest::canCutNeedsASelectionInAnUnlockedBox() {
    cTextBox& textBox = wrapped("one");
    QVERIFY(!textBox.CanCut() && !textBox.CanCopy());
    select(*box_, 0, 1);
    QVERIFY(textBox.CanCut() && textBox.CanCopy());
    lock(*box_);
    QVERIFY(!textBox.CanCut() && textBox.CanCopy());
}

void cTextBoxTest::canSelectAllOnlyWithTextAndWithoutSelection() {
    cTextBox& textBox = wrapped("");
    QVERIFY(!textBox.CanSelectAll());
    setText(*box_, "one");
    QVERIFY(textBox.CanSelectAll());
    select(*box_, 1, 1);
    QVERIFY(!textBox.CanSelectAll());
    textBox.SelectAll();
    QVERIFY(!textBox.CanSelectAll());
}

void cTextBoxTest::canPasteWhenTheClipboardHoldsText() {
    cTextBox& textBox = wrapped("");
    QVERIFY(!textBox.CanPaste());
    auto* picture = new QMimeData;
    picture->setData("image/png", "no text");
    QGuiApplication::clipboard()->setMimeData(picture);
    QVERIFY(!textBox.CanPaste());
    putOnClipboard("text");
    QVERIFY(textBox.CanPaste());
}

void cTextBoxTest::replaceSelectionCanBeUndoneUnlessToldOtherwise_data() {
    using corvane::Variant;
    QTest::addColumn<bool>("page");
    QTest::addColumn<Variant>("allowUndo");
    QTest::addColumn<bool>("undoable");
    for (const bool page : {false, true}) {
        const auto row = [page](const char* name, const Variant& allowUndo, bool undoable) {
            QTest::addRow("%s, %s", page ? "many lines" : "one line", name) << page << allowUndo << undoable;
        };
        row("left out", Variant(), true);
        row("true", Variant(true), true);
        row("-1", Variant(-1), true);
        row("a text", Variant(std::string("True")), true);
        row("false", Variant(false), false);
        row("the text False", Variant(std::string("False")), false);
        row("the text 0", Variant(std::string("0")), false);
    }
}

void cTextBoxTest::replaceSelectionCanBeUndoneUnlessToldOtherwise() {
    QFETCH(corvane::Variant, allowUndo);
    QFETCH(bool, undoable);
    cTextBox& textBox = wrapped("one two");
    type(*box_, "!"); // a step that could be undone before
    const bool atEnd = textOf(*box_).endsWith('!');
    const int shift = atEnd ? 0 : 1; // a page begins at its first character
    select(*box_, 4 + shift, 3);
    textBox.ReplaceSelection("größer", allowUndo);
    QVERIFY(textOf(*box_).contains(QString::fromUtf8("one größer")));
    QCOMPARE(textBox.CanUndo(), undoable);
    textBox.Undo();
    QCOMPARE(textOf(*box_).contains("one two"), undoable);
    QVERIFY(!textBox.CanCopy() || undoable);
}

void cTextBoxTest::deleteCannotBeUndoneWhateverIsAsked() {
    cTextBox& textBox = wrapped("one two");
    type(*box_, "x");
    const QString before = textOf(*box_);
    select(*box_, 1, 2);
    textBox.Delete(true);
    QString after = before;
    QCOMPARE(textOf(*box_), after.remove(1, 2));
    QVERIFY(!textBox.CanUndo());
    type(*box_, "y"); // stands where the deleted text was
    QCOMPARE(textOf(*box_).at(1), QChar('y'));
}

void cTextBoxTest::deleteWithoutSelectionLeavesTheText() {
    cTextBox& textBox = wrapped("one");
    type(*box_, "x");
    const QString before = textOf(*box_);
    textBox.Delete();
    QCOMPARE(textOf(*box_), before);
    QVERIFY(textBox.CanUndo());
}

void cTextBoxTest::aLockedBoxKeepsItsText() {
    cTextBox& textBox = wrapped("one");
    type(*box_, "x");
    const QString before = textOf(*box_);
    putOnClipboard("other");
    lock(*box_);
    QVERIFY(!textBox.CanUndo());
    textBox.SelectAll();
    textBox.Cut();
    textBox.Paste();
    textBox.Undo();
    textBox.Delete();
    textBox.ReplaceSelection("new");
    QCOMPARE(textOf(*box_), before);
    QCOMPARE(clipboardText(), "other");
}

void cTextBoxTest::aRightClickShowsTheMenuAndGoesNoFurther() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    rightClick(*box_);
    QCOMPARE(owner_->shown, QList<QMenu*>{&menu});
    QCOMPARE(releasesOf(*box_), 0);
}

void cTextBoxTest::withoutMenuOrObjectARightClickReachesTheBox() {
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

void cTextBoxTest::otherButtonsReachTheBox() {
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

void cTextBoxTest::theMenuRequestOfTheMouseBelongsToTheClick() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(owner_.get());
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(5, 5), box_->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(surfaceOf(*box_), &request);
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(owner_->shown.isEmpty());
}

void cTextBoxTest::anObjectWithoutTheOperationIsNoFailure() {
    cTextBox& textBox = wrapped("one");
    QMenu menu;
    QObject object;
    textBox.ContextMenu(&menu);
    textBox.MenuObject(&object);
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("No such method QObject::PopupMenu"));
    rightClick(*box_);
    QCOMPARE(textOf(*box_), "one");
}

void cTextBoxTest::disablingTheMenuTakesABox() {
    cTextBox textBox;
    textBox.DisableContextMenu(true);
    QVERIFY(!textBox.DisableContextMenu());
}

void cTextBoxTest::theBoxGetsItsMenuBack() {
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

void cTextBoxTest::aBoxThatWasGivenUpIsLeftAlone() {
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

void cTextBoxTest::theBoxMayDieFirst() {
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

void cTextBoxTest::theBoxMayOwnIt() {
    wrapped("one");
    auto* owned = new cTextBox(box_);
    const QPointer<cTextBox> watched(owned);
    owned->TextBox(box_);
    owned->DisableContextMenu(true);
    delete box_;
    QVERIFY(watched.isNull());
}

void cTextBoxTest::withoutABoxEverythingIsImpossible() {
    cTextBox textBox;
    putOnClipboard("text");
    textBox.Paste();
    textBox.Undo();
    textBox.Copy();
    textBox.ReplaceSelection("text");
    QVERIFY(!textBox.CanCut() && !textBox.CanCopy() && !textBox.CanUndo() && !textBox.CanSelectAll());
    QVERIFY(textBox.CanPaste()); // asks the clipboard only
}

void cTextBoxTest::thePropertiesTellTheSame() {
    cTextBox& textBox = wrapped("one");
    QCOMPARE(textBox.property("CanSelectAll").toBool(), true);
    QCOMPARE(textBox.property("CanCopy").toBool(), false);
    QVERIFY(textBox.setProperty("DisableContextMenu", true));
    QVERIFY(textBox.DisableContextMenu());
}

static const bool kRegistered = registerTest<cTextBoxTest>("cTextBoxTest");

#include <cTextBoxTest.moc>
