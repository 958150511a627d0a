// Whether a check box can be used, as far as its editor decides. A host may disable the window around the editor, while
// it saves for instance, and still gets the same answers about the tag.
#pragma once

#include <QWidget>

namespace corvane::controls {

inline bool isEnabledIn(const QWidget& editor, const QWidget& box) { return box.isEnabledTo(editor.parentWidget()); }

} // namespace corvane::controls
