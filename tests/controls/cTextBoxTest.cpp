#include "corvane/controls/cTextBox.h"

#include "tests/controls/Registry.h"
#include "tests/controls/TextBoxFixture.h"

#include <QContextMenuEvent>
#include <QMimeData>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;

// The edit commands and the questions about them.
class cTextBoxTest : public TextBoxFixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { begin(); }
    void cleanup() { end(); }

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
    void copiedFilesAreNoTextToPaste_data() { kinds(); }
    void copiedFilesAreNoTextToPaste();
    void replaceSelectionCanBeUndoneUnlessToldOtherwise_data();
    void replaceSelectionCanBeUndoneUnlessToldOtherwise();
    void deleteCannotBeUndoneWhateverIsAsked_data() { kinds(); }
    void deleteCannotBeUndoneWhateverIsAsked();
    void deleteWithoutSelectionLeavesTheText_data() { kinds(); }
    void deleteWithoutSelectionLeavesTheText();
    void aBoxWithoutHistoryStaysWithout();
    void aBoxOfLimitedLengthKeepsItsEnd_data();
    void aBoxOfLimitedLengthKeepsItsEnd();
    void aLockedBoxKeepsItsTextWhateverItsUserDoes_data() { kinds(); }
    void aLockedBoxKeepsItsTextWhateverItsUserDoes();
    void aProgramReplacesTheSelectionInALockedBoxToo_data() { kinds(); }
    void aProgramReplacesTheSelectionInALockedBoxToo();
};

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

void cTextBoxTest::copiedFilesAreNoTextToPaste() {
    cTextBox& textBox = wrapped("one");
    auto* files = new QMimeData;
    files->setUrls({QUrl::fromLocalFile("/music/a.mp3")});
    QGuiApplication::clipboard()->setMimeData(files);
    QVERIFY(!textBox.CanPaste());
    textBox.Paste();
    QCOMPARE(textOf(*box_), "one");
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

void cTextBoxTest::aBoxWithoutHistoryStaysWithout() {
    QPlainTextEdit page("one two");
    page.setUndoRedoEnabled(false);
    select(page, 0, 4);
    cTextBox textBox;
    textBox.TextBox(&page);
    textBox.Delete();
    QCOMPARE(page.toPlainText(), "two");
    QVERIFY(!page.isUndoRedoEnabled());
}

void cTextBoxTest::aBoxOfLimitedLengthKeepsItsEnd_data() {
    QTest::addColumn<bool>("undoable");
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("text");
    for (const bool undoable : {true, false}) {
        QTest::addRow("no room, %s", undoable ? "undoable" : "for good") << undoable << 0 << "abcde";
        QTest::addRow("room for one, %s", undoable ? "undoable" : "for good") << undoable << 1 << "Xbcde";
        QTest::addRow("room for both, %s", undoable ? "undoable" : "for good") << undoable << 3 << "XYde";
    }
}

void cTextBoxTest::aBoxOfLimitedLengthKeepsItsEnd() {
    QFETCH(bool, undoable);
    QFETCH(int, selected);
    QLineEdit line("abcde");
    line.setMaxLength(5);
    line.setCursorPosition(0);
    if (selected > 0) line.setSelection(0, selected);
    cTextBox textBox;
    textBox.TextBox(&line);
    textBox.ReplaceSelection("XY", undoable);
    QTEST(line.text(), "text");
}

void cTextBoxTest::aLockedBoxKeepsItsTextWhateverItsUserDoes() {
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
    QCOMPARE(textOf(*box_), before);
    QCOMPARE(clipboardText(), "other");
}

void cTextBoxTest::aProgramReplacesTheSelectionInALockedBoxToo() {
    cTextBox& textBox = wrapped("one two");
    lock(*box_);
    select(*box_, 0, 4);
    textBox.Delete();
    QCOMPARE(textOf(*box_), "two");
    select(*box_, 0, 3);
    textBox.ReplaceSelection("drei");
    QCOMPARE(textOf(*box_), "drei");
    select(*box_, 0, 4);
    textBox.ReplaceSelection("vier", false);
    QCOMPARE(textOf(*box_), "vier");
    QVERIFY(box_->property("readOnly").toBool());
}

static const bool kIsRegisteredcTextBoxTest = registerTest<cTextBoxTest>("cTextBoxTest");

#include <cTextBoxTest.moc>
