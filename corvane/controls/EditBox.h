// One-line and many-line text boxes alike: the edit commands and the questions about them.
//
// A box that is gone, or none at all, has no text and takes no command. A locked box takes no command of its user; a
// program replaces its selection all the same.
#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QString>

namespace corvane::controls {

enum class Undoable : bool { No, Yes };

class EditBox {
public:
    EditBox() = default;
    // A QLineEdit or a QPlainTextEdit; any other widget counts as none.
    explicit EditBox(QWidget* box)
        : widget_(box), line_(qobject_cast<QLineEdit*>(box)), page_(qobject_cast<QPlainTextEdit*>(box)) {
        if (!line_ && !page_) widget_ = nullptr;
    }

    // The box as a widget; safe to ask even while the box is being destroyed.
    QWidget* widget() const { return widget_; }
    // What the mouse points at: a box of many lines shows its text in a widget of its own.
    QWidget* surface() const;

    QString text() const;
    qsizetype selectedLength() const;
    bool isLocked() const;
    bool canUndo() const;

    void cut() const;
    void copy() const;
    void paste() const;
    void undo() const;
    void selectAll() const;
    // Without undo, the box forgets the steps that could be undone before as well.
    void replaceSelection(const QString& text, Undoable undoable) const;

private:
    QPointer<QWidget> widget_;
    QPointer<QLineEdit> line_; // at most one of the two
    QPointer<QPlainTextEdit> page_;
};

} // namespace corvane::controls
