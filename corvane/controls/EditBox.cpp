#include "corvane/controls/EditBox.h"

#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

namespace corvane::controls {

namespace {

void replaceForGood(QLineEdit& box, const QString& text) {
    const bool selected = box.hasSelectedText();
    const auto start = selected ? box.selectionStart() : box.cursorPosition();
    const auto length = selected ? box.selectedText().size() : 0;
    QString whole = box.text();
    const auto room = std::max(box.maxLength() - (whole.size() - length), qsizetype{0});
    const QString fitting = text.left(room);
    whole.replace(start, length, fitting);
    box.setText(whole); // forgets the history, which inserting would not
    box.setCursorPosition(start + static_cast<int>(fitting.size()));
}

void replaceForGood(QPlainTextEdit& box, const QString& text) {
    const bool remembers = box.isUndoRedoEnabled();
    box.setUndoRedoEnabled(false); // forgets the history
    box.insertPlainText(text);
    box.setUndoRedoEnabled(remembers);
}

// As the box gives its text itself, except that it would give blanks that do not break as common ones.
QString textOf(const QPlainTextEdit& box) {
    QString text = box.document()->toRawText();
    for (const char16_t end : {u'\u2028', u'\u2029', u'\uFDD0', u'\uFDD1'}) text.replace(QChar(end), u'\n');
    return text;
}

} // namespace

QWidget* EditBox::surface() const { return page_ ? page_->viewport() : widget(); }

QString EditBox::text() const {
    if (line_) return line_->text();
    return page_ ? textOf(*page_) : QString();
}

qsizetype EditBox::selectedLength() const {
    if (line_) return line_->selectedText().size();
    return page_ ? page_->textCursor().selectedText().size() : 0;
}

bool EditBox::isLocked() const {
    if (line_) return line_->isReadOnly();
    return !page_ || page_->isReadOnly();
}

bool EditBox::canUndo() const {
    if (isLocked()) return false;
    return line_ ? line_->isUndoAvailable() : page_->document()->isUndoAvailable();
}

void EditBox::cut() const {
    if (isLocked()) return;
    if (line_) line_->cut();
    if (page_) page_->cut();
}

void EditBox::copy() const {
    if (line_) line_->copy();
    if (page_) page_->copy();
}

void EditBox::paste() const {
    if (isLocked()) return;
    if (line_) line_->paste();
    if (page_) page_->paste();
}

void EditBox::undo() const {
    if (isLocked()) return;
    if (line_) line_->undo();
    if (page_) page_->undo();
}

void EditBox::selectAll() const {
    if (line_) line_->selectAll();
    if (page_) page_->selectAll();
}

void EditBox::replaceSelection(const QString& text, Undoable undoable) const {
    if (text.isEmpty() && selectedLength() == 0) return;
    if (undoable == Undoable::No) {
        if (line_) replaceForGood(*line_, text);
        if (page_) replaceForGood(*page_, text);
    } else {
        if (line_) line_->insert(text);
        if (page_) page_->insertPlainText(text);
    }
}

} // namespace corvane::controls
