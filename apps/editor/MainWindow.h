// The editor's window: the list of files above, what is selected in it below, and the menus.
#pragma once

#include "apps/editor/EditSession.h"
#include "apps/editor/Editing.h"
#include "apps/editor/FileList.h"
#include "apps/editor/FilePages.h"
#include "apps/editor/FileTable.h"
#include "apps/editor/FocusPlace.h"
#include "apps/editor/JobBar.h"
#include "apps/editor/Loader.h"
#include "apps/editor/ManyPages.h"
#include "apps/editor/RecentPaths.h"
#include "apps/editor/Saving.h"
#include "apps/editor/ToolMenu.h"

#include <QLabel>
#include <QMainWindow>
#include <QSettings>
#include <QSplitter>
#include <QStackedWidget>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

class QToolBar;

namespace corvane::editor {

class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // The settings must outlive the window.
    explicit MainWindow(QSettings& settings);
    ~MainWindow() override;

    // Adds files and folders to the list.
    void open(std::vector<std::string> paths);

    FileTable& table() { return table_; }
    FileList& list() { return *list_; }
    Loader& loader() { return loader_; }
    EditSession& session() { return session_; }
    Editing& editing() { return *editing_; }
    Saving& saving() { return saving_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeView();
    void connectParts();
    void makeMenus();
    void makeFileMenu();
    void makeEditMenu();
    QToolBar* makeToolBar();
    void makeViewMenu(QToolBar& toolBar);
    void makeHelpMenu();
    QAction* action(const char* name, const QString& text, const char* icon, const QKeySequence& shortcut,
                    std::function<void()> run);
    void restore();
    void keep();

    void chooseFiles();
    void chooseFolder();
    void showRecent(QMenu& menu);
    void closeFiles();
    void goToFields();
    // Reads the listed files anew.
    void reload();
    // Takes the selected files off the list; asks when they have changes.
    void removeFromList();
    // Asks once about each of these temporary files whether it is to be removed.
    void offerRemoval(std::vector<std::string> paths);

    // Runs what comes next when nothing is lost by it: asks about changes that are not saved.
    void afterChanges(std::function<void()> next);
    void showPart(Editing::Shown what, const QString& hint);
    void updateActions();
    bool isSessionKey(const QObject* watched, const QEvent& event) const;
    bool isFileOverText(const QObject* watched, const QEvent& event) const;
    void endSave(bool isAllSaved, const QString& summary);
    void tellCount();
    // What is edited, for the title bar; the desktop adds the name of the program.
    void showTitle();

    QSettings& settings_;
    RecentPaths recent_;
    Loader loader_;
    FileTable table_;
    EditSession session_;
    Saving saving_;

    FileList* list_;
    QSplitter* splitter_;
    QStackedWidget* below_;
    QLabel* hint_;
    FilePages* pages_;
    ManyPages* many_;
    QLabel* count_;
    JobBar* jobBar_;
    std::unique_ptr<Editing> editing_;
    ToolMenu* toolMenu_ = nullptr;
    QAction *save_ = nullptr, *saveSelected_ = nullptr, *preview_ = nullptr, *report_ = nullptr, *revert_ = nullptr,
            *undo_ = nullptr, *redo_ = nullptr, *frames_ = nullptr;
    std::set<std::string> offered_;  // temporary files that the user has been asked about
    FocusPlace beforeRun_;           // where the user was when it began
    std::function<void()> afterRun_; // what waits for a save that succeeds, or for the end of a preview
};

} // namespace corvane::editor
