// The editor's window with files in it, and what a user does with it.
#pragma once

#include "corvane/controls/Text.h"

#include "apps/editor/MainWindow.h"
#include "tests/controls/Hand.h"
#include "tests/editor/EditorFiles.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTimer>
#include <QtTest>
#include <memory>

namespace corvane::test {

inline constexpr int kEditorWait = 30000; // milliseconds

class EditorWindow {
public:
    EditorWindow()
        : settings_(QString::fromStdString(folder_.path("settings.ini")), QSettings::IniFormat),
          window_(std::make_unique<editor::MainWindow>(settings_)) {}

    ScratchFolder& folder() { return folder_; }
    editor::MainWindow& operator*() { return *window_; }
    editor::MainWindow* operator->() { return window_.get(); }
    QSettings& settings() { return settings_; }

    // Opens the window with these files in its list.
    bool open(const std::vector<std::string>& paths) {
        window_->open(paths);
        return showWindow(*window_) && QTest::qWaitFor([this] { return !window_->loader().isRunning(); }, kEditorWait);
    }
    // Selects files by their rows, and waits until they can be edited.
    bool select(std::initializer_list<int> rows) {
        QTableView& view = window_->list().view();
        view.clearSelection();
        if (!QTest::qWaitFor([&] { return window_->editing().editable().empty(); }, kEditorWait)) return false;
        for (const int row : rows) {
            view.selectionModel()->select(view.model()->index(row, 0),
                                          QItemSelectionModel::Select | QItemSelectionModel::Rows);
        }
        return QTest::qWaitFor([&] { return window_->editing().editable().size() == rows.size(); }, kEditorWait);
    }
    QAction& action(const char* name) { return child<QAction>(*window_, name); }
    QString cell(int row, int column) { return window_->list().view().model()->index(row, column).data().toString(); }
    // A field of the page that is shown.
    QLineEdit& field(const char* name) {
        for (QLineEdit* found : window_->findChildren<QLineEdit*>(QLatin1String(name))) {
            if (found->isVisible()) return *found;
        }
        qFatal("no visible %s", name);
    }
    bool waitForSave() {
        return QTest::qWaitFor([this] { return !window_->saving().isRunning(); }, kEditorWait);
    }
    QDialog* waitForDialog(const char* name) {
        QDialog* found = nullptr;
        const bool isThere = QTest::qWaitFor(
            [&] { return (found = window_->findChild<QDialog*>(QLatin1String(name))) != nullptr; }, kEditorWait);
        return isThere ? found : nullptr;
    }

private:
    ScratchFolder folder_;
    QSettings settings_;
    std::unique_ptr<editor::MainWindow> window_;
};

// Answers the next message box.
inline void answer(QMessageBox::StandardButton button) {
    QTimer::singleShot(100, qApp, [button] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) qFatal("no question was asked");
        QTest::mouseClick(box->button(button), Qt::LeftButton);
    });
}

} // namespace corvane::test
