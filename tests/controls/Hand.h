// What a user does with a window, and what a user sees.
#pragma once

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPalette>
#include <QPlainTextEdit>
#include <QWidget>
#include <QtTest>

namespace corvane::test {

// The child of a name; there has to be one.
template <class Child>
Child& child(const QObject& parent, const char* name) {
    auto* found = parent.findChild<Child*>(QLatin1String(name));
    if (!found) qFatal("no child %s", name);
    return *found;
}

inline bool showWindow(QWidget& window) {
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

inline void type(QWidget& field, const char* text) {
    field.setFocus();
    QTest::keyClicks(&field, QLatin1String(text));
}

// Where the mouse meets the field: a box of many lines shows its text in a widget of its own.
inline QWidget* surfaceOf(QWidget& field) {
    auto* page = qobject_cast<QPlainTextEdit*>(&field);
    return page ? page->viewport() : &field;
}

inline void rightClick(QWidget& field) { QTest::mouseClick(surfaceOf(field), Qt::RightButton); }

inline void putOnClipboard(const char* text) { QGuiApplication::clipboard()->setText(QString::fromUtf8(text)); }

inline QString clipboardText() { return QGuiApplication::clipboard()->text(); }

inline QColor background(const QWidget& field) { return field.palette().color(QPalette::Active, QPalette::Base); }

} // namespace corvane::test
