// Where the user is in a window: the widget with the keyboard focus, its cursor, its selection and its scroll position.
// Showing values anew takes all of that away; this puts it back.
#pragma once

#include <QPointer>
#include <QWidget>

namespace corvane::editor {

class FocusPlace {
public:
    // Nowhere: restoring it changes nothing.
    FocusPlace() = default;
    // In the window of this widget.
    explicit FocusPlace(const QWidget& widget);

    // As far as the text goes that is there now. A widget that cannot have the focus any more gives it to the one
    // before it on the same page.
    void restore() const;

private:
    QPointer<QWidget> widget_;
    int anchor_ = 0, position_ = 0; // of a text box, in characters
    int row_ = -1;                  // of a list
    int scrolled_ = 0;
};

} // namespace corvane::editor
