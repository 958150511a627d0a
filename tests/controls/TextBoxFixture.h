// Text boxes of one line and of many, and the cTextBox around one of them.
#pragma once

#include "corvane/controls/EditBox.h"
#include "corvane/controls/cTextBox.h"

#include "tests/controls/Hand.h"

#include <QLineEdit>
#include <QList>
#include <QMenu>
#include <QPlainTextEdit>
#include <QtTest>
#include <memory>

namespace corvane::test {

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

inline int releasesOf(QWidget& box) {
    if (auto* line = dynamic_cast<Line*>(&box)) return line->releases;
    return dynamic_cast<Page&>(box).releases;
}

inline void setText(QWidget& box, const QString& text) {
    if (auto* line = qobject_cast<QLineEdit*>(&box)) line->setText(text);
    if (auto* page = qobject_cast<QPlainTextEdit*>(&box)) page->setPlainText(text);
}

inline void select(QWidget& box, int start, int length) {
    if (auto* line = qobject_cast<QLineEdit*>(&box)) line->setSelection(start, length);
    if (auto* page = qobject_cast<QPlainTextEdit*>(&box)) {
        QTextCursor cursor = page->textCursor();
        cursor.setPosition(start);
        cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        page->setTextCursor(cursor);
    }
}

inline void lock(QWidget& box) { box.setProperty("readOnly", true); }

inline QString textOf(QWidget& box) { return controls::EditBox(&box).text(); }

struct TextBoxFixture : QObject {
    // Every rule holds for boxes of both kinds: the rows of a test.
    static void kinds() {
        QTest::addColumn<bool>("page");
        QTest::newRow("one line") << false;
        QTest::newRow("many lines") << true;
    }

    void begin() {
        owner_ = std::make_unique<MenuOwner>();
        textBox_ = std::make_unique<controls::cTextBox>();
        QGuiApplication::clipboard()->clear();
    }
    void end() {
        textBox_.reset();
        owner_.reset();
    }

    // A box of the row's kind with a text and the focus.
    controls::cTextBox& wrapped(const char* text) {
        QFETCH(bool, page);
        box_ = page ? static_cast<QWidget*>(new Page(owner_.get())) : new Line(owner_.get());
        box_->resize(200, 60);
        setText(*box_, QString::fromUtf8(text));
        textBox_->TextBox(box_);
        showWindow(*owner_);
        box_->setFocus();
        return *textBox_;
    }

    std::unique_ptr<MenuOwner> owner_;
    QWidget* box_ = nullptr;
    std::unique_ptr<controls::cTextBox> textBox_;
};

} // namespace corvane::test
