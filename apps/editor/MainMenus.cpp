// The menus of the window, and what they ask for.
#include "apps/editor/About.h"
#include "apps/editor/FileName.h"
#include "apps/editor/Icon.h"
#include "apps/editor/MainWindow.h"

#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>
#include <QToolBar>

namespace corvane::editor {

namespace {

constexpr auto kFolderKey = "folder";

QKeySequence keys(const char* text) { return QKeySequence(QLatin1String(text)); }

} // namespace

QAction* MainWindow::action(const char* name, const QString& text, const char* icon, const QKeySequence& shortcut,
                            std::function<void()> run) {
    auto* made = new QAction(text, this);
    made->setObjectName(QLatin1String(name));
    if (icon) made->setIcon(iconOf(icon));
    made->setShortcut(shortcut);
    connect(made, &QAction::triggered, this, std::move(run));
    return made;
}

void MainWindow::makeMenus() {
    makeFileMenu();
    makeEditMenu();
    toolMenu_ = new ToolMenu(*editing_, this);
    menuBar()->addMenu(toolMenu_);
    makeViewMenu(*makeToolBar());
    makeHelpMenu();
}

// What is used most. The menus have all of it, with its keys.
QToolBar* MainWindow::makeToolBar() {
    QToolBar* bar = addToolBar(tr("Tool bar"));
    bar->setObjectName(QStringLiteral("toolBar"));
    for (const char* name : {"openFiles", "openFolder", "", "save", "preview", "", "undo", "redo", "revert", "",
                             "loadPicture", "chooseGenre", "numberTracks"}) {
        if (auto* action = findChild<QAction*>(QLatin1String(name)); *name && action) {
            bar->addAction(action);
        } else {
            bar->addSeparator();
        }
    }
    return bar;
}

void MainWindow::makeFileMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(
        action("openFiles", tr("&Open files…"), "open-files", QKeySequence::Open, [this] { chooseFiles(); }));
    menu->addAction(
        action("openFolder", tr("Open &folder…"), "open-folder", keys("Ctrl+Shift+O"), [this] { chooseFolder(); }));
    QMenu* recent = menu->addMenu(tr("Open &recent"));
    recent->setObjectName(QStringLiteral("recent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { showRecent(*recent); });
    menu->addSeparator();
    save_ = action("save", tr("&Save all changes"), "save", QKeySequence::Save,
                   [this] { saving_.save(session_.changedPaths()); });
    saveSelected_ = action("saveSelected", tr("Save s&elected files"), nullptr, keys("Ctrl+Shift+S"),
                           [this] { saving_.save(editing_->selected()); });
    preview_ = action("preview", tr("&Preview the changes…"), "preview", keys("Ctrl+P"),
                      [this] { saving_.preview(session_.changedPaths()); });
    report_ = action("report", tr("Repor&t of the last save…"), nullptr, {}, [this] { saving_.showReport(); });
    menu->addActions({save_, saveSelected_, preview_, report_});
    menu->addSeparator();
    menu->addAction(
        action("closeFiles", tr("&Close all files"), nullptr, keys("Ctrl+Shift+W"), [this] { closeFiles(); }));
    menu->addAction(action("quit", tr("&Quit"), nullptr, QKeySequence::Quit, [this] { close(); }));
}

void MainWindow::makeEditMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    undo_ = session_.undoStack().createUndoAction(this, tr("&Undo"));
    redo_ = session_.undoStack().createRedoAction(this, tr("&Redo"));
    undo_->setObjectName(QStringLiteral("undo"));
    redo_->setObjectName(QStringLiteral("redo"));
    undo_->setIcon(iconOf("undo"));
    redo_->setIcon(iconOf("redo"));
    undo_->setShortcut(QKeySequence::Undo);
    redo_->setShortcuts({keys("Ctrl+Shift+Z"), keys("Ctrl+Y")});
    revert_ = action("revert", tr("Re&vert selected files"), "revert", keys("Ctrl+R"), [this] { editing_->revert(); });
    menu->addActions({undo_, redo_});
    menu->addSeparator();
    menu->addAction(revert_);
    menu->addSeparator();
    menu->addAction(action("selectAll", tr("Select &all files"), nullptr, keys("Ctrl+Shift+A"), [this] {
        list_->view().setFocus();
        list_->view().selectAll();
    }));
    QAction* removal = action("removeFromList", tr("Remove from the &list"), nullptr, QKeySequence::Delete,
                              [this] { removeFromList(); });
    removal->setShortcutContext(Qt::WidgetShortcut); // in a field the key deletes a letter
    list_->view().addAction(removal);
    menu->addAction(removal);
}

void MainWindow::makeViewMenu(QToolBar& toolBar) {
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    menu->addAction(action("goToFilter", tr("Go to &filter"), "find", QKeySequence::Find, [this] {
        list_->words().setFocus(Qt::ShortcutFocusReason);
        list_->words().selectAll();
    }));
    menu->addAction(action("goToFiles", tr("Go to f&iles"), nullptr, keys("Ctrl+1"),
                           [this] { list_->view().setFocus(Qt::ShortcutFocusReason); }));
    menu->addAction(action("goToFields", tr("Go to fi&elds"), nullptr, keys("Ctrl+2"), [this] { goToFields(); }));
    menu->addSeparator();
    menu->addAction(action("reload", tr("&Read the files again"), nullptr, keys("F5"), [this] { reload(); }));
    menu->addSeparator();
    frames_ = action("frames", tr("List all frames of an ID&3v2 tag"), nullptr, {}, [] {});
    frames_->setCheckable(true);
    connect(frames_, &QAction::toggled, pages_, &FilePages::showFrames);
    menu->addAction(frames_);
    menu->addAction(toolBar.toggleViewAction());
}

void MainWindow::makeHelpMenu() {
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(action("about", tr("&About Corvane Editor"), nullptr, {}, [this] { showAbout(*this); }));
    menu->addAction(action("aboutQt", tr("About &Qt"), nullptr, {}, [] { QApplication::aboutQt(); }));
}

// The title, or the first box that can be edited where there is none.
void MainWindow::goToFields() {
    QLineEdit* first = nullptr;
    for (QLineEdit* field : below_->currentWidget()->findChildren<QLineEdit*>()) {
        if (!field->isVisible() || !field->isEnabled()) continue;
        const bool isTitle = field->objectName() == QStringLiteral("txtTitle") ||
                             field->objectName() == QStringLiteral("many%1").arg(static_cast<int>(Field::Title));
        if (isTitle || !first) first = field;
        if (isTitle) break;
    }
    if (!first) return;
    first->setFocus(Qt::ShortcutFocusReason);
    first->selectAll();
}

void MainWindow::showRecent(QMenu& menu) {
    menu.clear();
    for (const QString& path : recent_.paths()) {
        QString text = path;
        menu.addAction(text.replace(QLatin1Char('&'), QStringLiteral("&&")), this,
                       [this, path] { open({pathOf(path)}); });
    }
    if (menu.isEmpty()) {
        menu.addAction(tr("Nothing yet"))->setEnabled(false);
    } else {
        menu.addSeparator();
        menu.addAction(tr("&Clear this list"), this, [this] { recent_.clear(); });
    }
}

void MainWindow::chooseFiles() {
    const QStringList files =
        QFileDialog::getOpenFileNames(this, tr("Open files"), settings_.value(QLatin1String(kFolderKey)).toString(),
                                      tr("MP3 files (*.mp3 *.MP3);;All files (*)"));
    if (files.isEmpty()) return;
    settings_.setValue(QLatin1String(kFolderKey), QFileInfo(files.front()).absolutePath());
    std::vector<std::string> paths;
    for (const QString& file : files) paths.push_back(pathOf(file));
    open(paths);
}

void MainWindow::chooseFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Open folder"),
                                                             settings_.value(QLatin1String(kFolderKey)).toString());
    if (folder.isEmpty()) return;
    settings_.setValue(QLatin1String(kFolderKey), folder);
    open({pathOf(folder)});
}

} // namespace corvane::editor
