// The menu of what can be done with the tags of the selected files.
#pragma once

#include "apps/editor/Editing.h"

#include <QAction>
#include <QMenu>
#include <functional>

namespace corvane::editor {

class ToolMenu : public QMenu {
    Q_OBJECT

public:
    // Editing must outlive the menu.
    ToolMenu(Editing& editing, QWidget* parent);

    // Offers the tools only while there is something to work on.
    void updateActions(bool isUsable);

private:
    QAction* add(const char* name, const QString& text, const QKeySequence& keys, std::function<void()> run);
    void addTool(const char* name, const QString& text, const Tool& tool);
    void convertCase();
    void numberTracks();
    void chooseGenre();
    void loadPicture();

    Editing& editing_;
};

} // namespace corvane::editor
