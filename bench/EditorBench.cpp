// Times of the desktop editor: editor-bench FOLDER. Prints what a user waits for, in milliseconds, and the memory that
// the process has taken. The folder's files are read, none is written.
#include "apps/editor/MainWindow.h"

#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>

using namespace corvane::editor;

namespace {

constexpr int kPatience = 600000; // milliseconds

void waitUntil(const std::function<bool()>& isDone) {
    QElapsedTimer clock;
    clock.start();
    while (!isDone() && clock.elapsed() < kPatience) QApplication::processEvents(QEventLoop::AllEvents, 5);
}

class Table {
public:
    Table() { clock_.start(); }
    void start() { clock_.restart(); }
    void print(const char* work) {
        std::printf("%-48s %9.1f ms\n", work, static_cast<double>(clock_.nsecsElapsed()) / 1e6);
        std::fflush(stdout);
        clock_.restart();
    }

private:
    QElapsedTimer clock_;
};

double peakMegabytes() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

void measureList(MainWindow& window, Table& table) {
    window.list().words().setText(QStringLiteral("1"));
    table.print("filter by one letter");
    window.list().words().clear();
    table.print("no filter again");
    window.list().view().sortByColumn(FileTable::Title, Qt::AscendingOrder);
    QApplication::processEvents();
    table.print("sort by title");
}

void measureMany(MainWindow& window, Table& table) {
    window.list().view().selectAll();
    waitUntil([&] { return !window.editing().editable().empty(); });
    table.print("select all: tags read, form shown");
    QLineEdit& album = *window.findChild<QLineEdit*>(QStringLiteral("many2"));
    album.setText(QStringLiteral("A"));
    table.print("first letter typed into all");
    album.setText(QStringLiteral("Al"));
    table.print("second letter typed into all");
    window.session().undoStack().undo();
    table.print("undo");
}

} // namespace

int main(int count, char** arguments) {
    Table table;
    const QApplication application(count, arguments);
    if (count != 2) {
        std::fputs("usage: editor-bench FOLDER\n", stderr);
        return 2;
    }
    const QTemporaryDir scratch;
    QSettings settings(scratch.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat);
    MainWindow window(settings);
    window.show();
    QApplication::processEvents();
    table.print("start to first window");
    window.open({arguments[1]});
    waitUntil([&] { return window.table().rowCount() > 0; });
    QApplication::processEvents();
    table.print("open to first rows");
    waitUntil([&] { return !window.loader().isRunning(); });
    table.print("first rows to last row");
    std::printf("%-48s %9d\n", "files", window.table().rowCount());
    std::printf("%-48s %9.1f MB\n", "peak memory with the list", peakMegabytes());
    table.start();
    measureList(window, table);
    measureMany(window, table);
    std::printf("%-48s %9.1f MB\n", "peak memory with all files in the form", peakMegabytes());
    window.session().clear();
    return 0;
}
