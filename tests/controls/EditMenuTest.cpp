#include "corvane/controls/EditMenu.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"

#include <QContextMenuEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;

namespace {

class Window : public QWidget {
public:
    Window() : menu(*this), line(this), page(this), other(this) {
        auto* column = new QVBoxLayout(this);
        for (QWidget* box :
             {static_cast<QWidget*>(&line), static_cast<QWidget*>(&page), static_cast<QWidget*>(&other)}) {
            column->addWidget(box);
        }
        menu.attach(line);
        menu.attach(page);
    }

    EditMenu menu;
    QLineEdit line;
    QPlainTextEdit page;
    QLineEdit other;
};

constexpr std::array kCommands{"mnuEditUndo",  "mnuEditCut",    "mnuEditCopy",
                               "mnuEditPaste", "mnuEditDelete", "mnuEditSelectAll"};

} // namespace

class EditMenuTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aRightPressShowsTheMenuOverADisabledBox_data() { kinds(); }
    void aRightPressShowsTheMenuOverADisabledBox();
    void theBoxGetsItsFocusAndItsSelectionBack_data() { kinds(); }
    void theBoxGetsItsFocusAndItsSelectionBack();
    void aBoxWithoutFocusGetsIt();
    void theMenuKeyShowsTheMenu_data() { kinds(); }
    void theMenuKeyShowsTheMenu();
    void aLongTouchShowsTheMenu();
    void theMousesOwnRequestShowsNoSecondMenu();
    void aDisabledBoxHasNoMenu_data() { kinds(); }
    void aDisabledBoxHasNoMenu();
    void entriesAreEnabledOnlyWhenPossible_data();
    void entriesAreEnabledOnlyWhenPossible();
    void entriesWorkOnTheBox_data();
    void entriesWorkOnTheBox();
    void theMenuIsUsedWithKeys();
    void formatsConvertTheWholeText_data();
    void formatsConvertTheWholeText();
    void aFormatKeepsBlanksThatDoNotBreak();
    void aFormatCanBeUndone();
    void theBoxesOwnMenuIsGone();
    void entriesHaveMnemonicsOfTheirOwn();
    void aBoxThatDiesUnderItsMenuIsForgotten();
    void theWindowMayDieUnderItsMenu();

private:
    static void kinds();
    QWidget& box();
    void open(QWidget& box);
    QMenu& menu() { return child<QMenu>(*window_, "mnuEdit"); }
    QAction& entry(const char* name) { return child<QAction>(*window_, name); }

    std::unique_ptr<Window> window_;
};

void EditMenuTest::kinds() {
    QTest::addColumn<bool>("page");
    QTest::newRow("one line") << false;
    QTest::newRow("many lines") << true;
}

QWidget& EditMenuTest::box() {
    QFETCH(bool, page);
    return page ? static_cast<QWidget&>(window_->page) : window_->line;
}

void EditMenuTest::init() {
    window_ = std::make_unique<Window>();
    QGuiApplication::clipboard()->clear();
    QVERIFY(showWindow(*window_));
}

void EditMenuTest::cleanup() {
    if (window_) menu().close();
    window_.reset();
}

void EditMenuTest::open(QWidget& box) {
    QTest::mousePress(surfaceOf(box), Qt::RightButton);
    QVERIFY(menu().isVisible());
}

void EditMenuTest::aRightPressShowsTheMenuOverADisabledBox() {
    open(box());
    QVERIFY(!box().isEnabled());
    QTest::keyClick(&menu(), Qt::Key_Escape);
    QVERIFY(!menu().isVisible());
    QVERIFY(box().isEnabled());
}

void EditMenuTest::theBoxGetsItsFocusAndItsSelectionBack() {
    type(box(), "one two");
    cTextBox commands;
    commands.TextBox(&box());
    commands.SelectAll();
    open(box());
    QVERIFY(commands.CanCopy());
    QTest::keyClick(&menu(), Qt::Key_Escape);
    QVERIFY(box().hasFocus());
    commands.Copy();
    QCOMPARE(clipboardText(), "one two");
}

void EditMenuTest::aBoxWithoutFocusGetsIt() {
    window_->other.setFocus();
    open(window_->line);
    QTest::keyClick(&menu(), Qt::Key_Escape);
    QVERIFY(window_->line.hasFocus());
}

void EditMenuTest::theMenuKeyShowsTheMenu() {
    box().setFocus();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, QPoint(3, 3), box().mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&box(), &request);
    QVERIFY(menu().isVisible());
}

// Whatever asks without a press of the mouse before it.
void EditMenuTest::aLongTouchShowsTheMenu() {
    QContextMenuEvent request(QContextMenuEvent::Other, QPoint(3, 3), window_->line.mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&window_->line, &request);
    QVERIFY(menu().isVisible());
}

// A menu would enable the box when it closes.
void EditMenuTest::aDisabledBoxHasNoMenu() {
    box().setEnabled(false);
    rightClick(box());
    QVERIFY(!menu().isVisible());
    QVERIFY(!box().isEnabled());
}

void EditMenuTest::theMousesOwnRequestShowsNoSecondMenu() {
    window_->line.setFocus();
    QContextMenuEvent request(QContextMenuEvent::Mouse, QPoint(3, 3), window_->line.mapToGlobal(QPoint(3, 3)));
    QCoreApplication::sendEvent(&window_->line, &request);
    QVERIFY(!QApplication::activePopupWidget());
}

void EditMenuTest::entriesAreEnabledOnlyWhenPossible_data() {
    QTest::addColumn<bool>("typed");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("clipboard");
    QTest::addColumn<QStringList>("enabled");
    QTest::newRow("empty") << false << false << false << false << QStringList{};
    QTest::newRow("empty, text to paste") << false << false << false << true << QStringList{"mnuEditPaste"};
    QTest::newRow("typed") << true << false << false << false
                           << QStringList{"mnuEditUndo", "mnuEditSelectAll", "mnuFormat"};
    QTest::newRow("typed and selected") << true << true << false << true
                                        << QStringList{"mnuEditUndo",  "mnuEditCut",    "mnuEditCopy",
                                                       "mnuEditPaste", "mnuEditDelete", "mnuFormat"};
    QTest::newRow("locked") << true << false << true << true << QStringList{"mnuEditSelectAll"};
    QTest::newRow("locked and selected") << true << true << true << true << QStringList{"mnuEditCopy"};
}

void EditMenuTest::entriesAreEnabledOnlyWhenPossible() {
    QFETCH(bool, typed);
    QFETCH(bool, selected);
    QFETCH(bool, locked);
    QFETCH(bool, clipboard);
    QFETCH(QStringList, enabled);
    if (typed) type(window_->line, "text");
    if (selected) window_->line.selectAll();
    window_->line.setReadOnly(locked);
    if (clipboard) putOnClipboard("text");
    open(window_->line);
    QStringList found;
    for (const char* name : kCommands) {
        if (entry(name).isEnabled()) found.push_back(QLatin1String(name));
    }
    if (child<QMenu>(*window_, "mnuFormat").isEnabled()) found.push_back("mnuFormat");
    QCOMPARE(found, enabled);
}

void EditMenuTest::entriesWorkOnTheBox_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");      // afterwards
    QTest::addColumn<QString>("clipboard"); // afterwards
    QTest::newRow("undo") << "mnuEditUndo"
                          << ""
                          << "paste";
    QTest::newRow("cut") << "mnuEditCut"
                         << "e two"
                         << "on";
    QTest::newRow("copy") << "mnuEditCopy"
                          << "one two"
                          << "on";
    QTest::newRow("paste") << "mnuEditPaste"
                           << "pastee two"
                           << "paste";
    QTest::newRow("delete") << "mnuEditDelete"
                            << "e two"
                            << "paste";
}

void EditMenuTest::entriesWorkOnTheBox() {
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, clipboard);
    type(window_->line, "one two");
    window_->line.setSelection(0, 2);
    putOnClipboard("paste");
    open(window_->line);
    const QRect place = menu().actionGeometry(&entry(qPrintable(name)));
    QTest::mouseMove(&menu(), place.center());
    QTest::mouseClick(&menu(), Qt::LeftButton, {}, place.center());
    QVERIFY(!menu().isVisible());
    QCOMPARE(window_->line.text(), text);
    QCOMPARE(clipboardText(), clipboard);
    QVERIFY(window_->line.hasFocus());
}

void EditMenuTest::theMenuIsUsedWithKeys() {
    type(window_->line, "one two");
    open(window_->line);
    QTest::keyClick(&menu(), Qt::Key_A); // the mnemonic of "Select All"
    QCOMPARE(window_->line.selectedText(), "one two");
}

void EditMenuTest::formatsConvertTheWholeText_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("first letter") << "mnuFormatFirstLetter"
                                  << "One Two";
    QTest::newRow("lower case") << "mnuFormatLowerCase"
                                << "one two";
    QTest::newRow("upper case") << "mnuFormatUpperCase"
                                << "ONE TWO";
}

void EditMenuTest::formatsConvertTheWholeText() {
    QFETCH(QString, name);
    QFETCH(QString, text);
    type(window_->line, "oNe two");
    window_->line.setSelection(0, 1);
    open(window_->line);
    QTest::keyClick(&menu(), Qt::Key_Escape);
    entry(qPrintable(name)).trigger();
    QCOMPARE(window_->line.text(), text);
}

void EditMenuTest::aFormatKeepsBlanksThatDoNotBreak() {
    window_->page.setPlainText(QString::fromUtf8("one\u00A0two\nthree"));
    open(window_->page);
    menu().close();
    entry("mnuFormatUpperCase").trigger();
    QVERIFY(window_->page.document()->toRawText().contains(QString::fromUtf8("ONE\u00A0TWO")));
}

void EditMenuTest::aFormatCanBeUndone() {
    type(window_->line, "one");
    open(window_->line);
    menu().close();
    entry("mnuFormatUpperCase").trigger();
    QCOMPARE(window_->line.text(), "ONE");
    window_->line.undo();
    QCOMPARE(window_->line.text(), "one");
}

void EditMenuTest::theBoxesOwnMenuIsGone() {
    QCOMPARE(window_->line.contextMenuPolicy(), Qt::PreventContextMenu);
    QCOMPARE(window_->other.contextMenuPolicy(), Qt::DefaultContextMenu);
}

void EditMenuTest::entriesHaveMnemonicsOfTheirOwn() {
    for (const QMenu* some : {&menu(), &child<QMenu>(*window_, "mnuFormat")}) {
        QStringList letters;
        for (const QAction* action : some->actions()) {
            if (action->isSeparator()) continue;
            const auto at = action->text().indexOf('&');
            QVERIFY2(at >= 0, qPrintable(action->text()));
            const QString letter = action->text().mid(at + 1, 1).toUpper();
            QVERIFY2(!letters.contains(letter), qPrintable(action->text()));
            letters.push_back(letter);
        }
    }
}

void EditMenuTest::aBoxThatDiesUnderItsMenuIsForgotten() {
    auto* doomed = new QLineEdit(window_.get());
    doomed->setText("text");
    doomed->show();
    window_->menu.attach(*doomed);
    open(*doomed);
    delete doomed;
    entry("mnuEditSelectAll").trigger();
    QTest::keyClick(&menu(), Qt::Key_Escape);
    QVERIFY(!menu().isVisible());
}

void EditMenuTest::theWindowMayDieUnderItsMenu() {
    open(window_->line);
    window_.reset();
    QVERIFY(!QApplication::activePopupWidget());
}

static const bool kIsRegisteredEditMenuTest = registerTest<EditMenuTest>("EditMenuTest");

#include <EditMenuTest.moc>
