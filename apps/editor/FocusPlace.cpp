#include "apps/editor/FocusPlace.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace corvane::editor {

namespace {

// The box of one line that the widget is or, as an editable list, has.
QLineEdit* lineOf(QWidget* widget) {
    const auto* list = qobject_cast<QComboBox*>(widget);
    return list ? list->lineEdit() : qobject_cast<QLineEdit*>(widget);
}

struct Selection {
    int anchor, position;
};

Selection selectionOf(const QLineEdit& line) {
    const int position = line.cursorPosition();
    if (!line.hasSelectedText()) return {position, position};
    const int start = line.selectionStart(), end = line.selectionEnd();
    return {position == start ? end : start, position};
}

void select(QLineEdit& line, Selection wanted) {
    const int length = static_cast<int>(line.text().size());
    const int anchor = std::min(wanted.anchor, length), position = std::min(wanted.position, length);
    line.setCursorPosition(position);
    if (anchor != position) line.setSelection(anchor, position - anchor);
}

void select(QPlainTextEdit& page, Selection wanted) {
    const int length = page.document()->characterCount() - 1; // which counts the end of the last line
    QTextCursor cursor = page.textCursor();
    cursor.setPosition(std::min(wanted.anchor, length));
    cursor.setPosition(std::min(wanted.position, length), QTextCursor::KeepAnchor);
    page.setTextCursor(cursor);
}

bool canHaveFocus(const QWidget& widget) {
    return widget.isVisible() && widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0;
}

// The last one before it in the order of the tabulator key that lies in the same part of the window.
QWidget* neighbourOf(QWidget* lost) {
    for (const QWidget* part = lost->parentWidget(); part && !part->isWindow(); part = part->parentWidget()) {
        for (QWidget* at = lost->previousInFocusChain(); at != lost; at = at->previousInFocusChain()) {
            if (part->isAncestorOf(at) && canHaveFocus(*at)) return at;
        }
    }
    return nullptr;
}

} // namespace

FocusPlace::FocusPlace(const QWidget& widget) : widget_(widget.window()->focusWidget()) {
    if (const QLineEdit* line = lineOf(widget_)) {
        const Selection selection = selectionOf(*line);
        anchor_ = selection.anchor;
        position_ = selection.position;
    } else if (const auto* page = qobject_cast<QPlainTextEdit*>(widget_.data())) {
        anchor_ = page->textCursor().anchor();
        position_ = page->textCursor().position();
        scrolled_ = page->verticalScrollBar()->value();
    } else if (const auto* list = qobject_cast<QAbstractItemView*>(widget_.data())) {
        row_ = list->currentIndex().row();
        scrolled_ = list->verticalScrollBar()->value();
    }
}

void FocusPlace::restore() const {
    if (!widget_) return;
    QWidget* target = canHaveFocus(*widget_) ? widget_.data() : neighbourOf(widget_);
    if (!target) return;
    if (target->window()->focusWidget() != target) target->setFocus(Qt::OtherFocusReason);
    if (target != widget_) return;
    if (QLineEdit* line = lineOf(target)) {
        select(*line, {anchor_, position_});
    } else if (auto* page = qobject_cast<QPlainTextEdit*>(target)) {
        select(*page, {anchor_, position_});
        page->verticalScrollBar()->setValue(scrolled_);
    } else if (auto* list = qobject_cast<QAbstractItemView*>(target); list && !list->currentIndex().isValid()) {
        list->setCurrentIndex(list->model()->index(row_, 0));
        list->verticalScrollBar()->setValue(scrolled_);
    }
}

} // namespace corvane::editor
