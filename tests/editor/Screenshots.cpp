// Pictures of the editor in the states that matter, for eyes to judge: editor-screenshots FOLDER MP3_FOLDER KIND.
#include "corvane/controls/Text.h"

#include "apps/editor/MainWindow.h"
#include "apps/editor/Translations.h"
#include "tests/controls/DarkPalette.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QStyleFactory>
#include <QTableView>
#include <QtTest>
#include <cstdio>
#include <optional>

using namespace corvane::editor;

namespace {

class Camera {
public:
    Camera(QString folder, QString prefix) : folder_(std::move(folder)), prefix_(std::move(prefix)) {}

    void take(QWidget& window, const char* name) {
        QTest::qWait(150);
        const QString file = QDir(folder_).filePath(prefix_ + QLatin1String(name) + QStringLiteral(".png"));
        if (!window.grab().save(file)) std::fprintf(stderr, "%s was not written\n", qPrintable(file));
    }

private:
    QString folder_, prefix_;
};

void takeAll(Camera& camera, const QString& files) {
    QSettings settings(QDir::temp().filePath(QStringLiteral("corvane-editor-screenshots.ini")), QSettings::IniFormat);
    settings.clear();
    MainWindow window(settings);
    window.show();
    camera.take(window, "empty");
    window.open({files.toStdString()});
    const bool isLoaded =
        QTest::qWaitFor([&window] { return !window.loader().isRunning() && window.table().rowCount() > 0; });
    if (!isLoaded) qFatal("no files");
    auto& view = *window.findChild<QTableView*>(QStringLiteral("files"));
    view.selectRow(0);
    camera.take(window, "single");
    auto& many = *window.findChild<ManyPages*>();
    view.selectAll();
    QTest::qWait(300);
    camera.take(window, "many");
    many.setCurrentIndex(1);
    camera.take(window, "many-id3v1");
    many.setCurrentIndex(0);
    many.findChild<QLineEdit*>(QStringLiteral("many2"))->setText(QStringLiteral("Ein langer gemeinsamer Albumtitel"));
    camera.take(window, "many-edited");
    window.findChild<QAction*>(QStringLiteral("preview"))->trigger();
    if (!QTest::qWaitFor([&window] { return window.findChild<QDialog*>(QStringLiteral("preview")) != nullptr; }))
        return;
    auto* preview = window.findChild<QDialog*>(QStringLiteral("preview"));
    camera.take(*preview, "preview");
    preview->reject();
    window.session().undoStack().undo();
    view.selectRow(0);
    QTest::qWait(100);
    for (const char* name : {"convertCase", "numberTracks", "chooseGenre", "about"}) {
        window.findChild<QAction*>(QLatin1String(name))->trigger();
        QTest::qWait(50);
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            camera.take(*dialog, name);
            dialog->reject();
        }
    }
    auto& pages = *window.findChild<FilePages*>();
    for (int page = 1; page < pages.count(); ++page) {
        pages.setCurrentIndex(page);
        camera.take(window, qPrintable(QStringLiteral("page%1").arg(page)));
    }
}

} // namespace

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    const QStringList words = QApplication::arguments();
    if (words.size() != 4) {
        std::fputs("usage: editor-screenshots FOLDER MP3_FOLDER light|dark|german\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (words[3] == QStringLiteral("dark")) QApplication::setPalette(corvane::controls::darkPalette());
    // German texts are longer than English ones.
    std::optional<Translations> texts;
    if (words[3] == QStringLiteral("german")) {
        QLocale::setDefault(QLocale(QLocale::German));
        texts.emplace(QLocale());
    }
    Camera camera(words[1], words[3] + QLatin1Char('-'));
    takeAll(camera, words[2]);
    return 0;
}
