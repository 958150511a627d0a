// What the program is: the container control, which knows the library's names, and the version.
#pragma once

class QWidget;

namespace corvane::editor {

void showAbout(QWidget& parent);

} // namespace corvane::editor
