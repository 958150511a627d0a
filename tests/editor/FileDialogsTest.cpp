// The dialogs in which the user names a file or a folder.
#include "corvane/controls/PicturePanel.h"

#include "tests/controls/Registry.h"
#include "tests/editor/EditorWindow.h"
#include "tests/support/ImageBuilder.h"

#include <QFileDialog>

using namespace corvane::editor;
using namespace corvane::test;

namespace {

// Types a name into the next file dialog and accepts it; without a name, leaves the dialog.
void nameInNextDialog(const QString& name) {
    QTimer::singleShot(100, qApp, [name] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) qFatal("no file dialog was shown");
        if (name.isEmpty()) return dialog->reject();
        auto* line = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        line->setText(name);
        QTest::keyClick(line, Qt::Key_Return);
    });
}

// The next message, and closes it.
QString* readNextMessage(QString& text) {
    QTimer::singleShot(400, qApp, [&text] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box) qFatal("no message was shown");
        text = box->text();
        box->accept();
    });
    return &text;
}

} // namespace

class FileDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ChosenFileIsOpenedAndItsFolderIsRemembered() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({}));
        nameInNextDialog(QString::fromStdString(file.path()));
        window.action("openFiles").trigger();
        QTRY_COMPARE(window->table().rowCount(), 1);
        QCOMPARE(window.settings().value("folder").toString(), QString::fromStdString(window.folder().path()));
    }

    void ChosenFolderIsOpened() {
        EditorWindow window;
        taggedFile(window.folder(), "a.mp3", "One");
        taggedFile(window.folder(), "b.mp3", "Two");
        QVERIFY(window.open({}));
        nameInNextDialog(QString::fromStdString(window.folder().path()));
        window.action("openFolder").trigger();
        QTRY_COMPARE(window->table().rowCount(), 2);
    }

    void DialogThatIsLeftChangesNothing() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        for (const char* name : {"openFiles", "openFolder", "loadPicture"}) {
            nameInNextDialog({});
            window.action(name).trigger();
        }
        QCOMPARE(window->table().rowCount(), 1);
        QVERIFY(!window->isWindowModified());
    }

    void ChosenPictureBecomesTheCoverOfTheSelectedFiles() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        const std::string cover = window.folder().write("cover.png", pngImage(30, 20));
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        nameInNextDialog(QString::fromStdString(cover));
        window.action("loadPicture").trigger();
        QVERIFY(window->isWindowModified());
        window.action("save").trigger();
        QVERIFY(window.waitForSave());
        corvane::FileHandler handler;
        QVERIFY(handler.Create(file.path()));
        QCOMPARE(handler.ID3V2Tag()->Picture()->width(), 30);
        QVERIFY(file.audioIsUntouched());
    }

    void EveryDialogForPicturesIsTheSameAndBeginsWhereTheFileIs() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One"),
                      other = taggedFile(window.folder(), "b.mp3", "Two");
        QVERIFY(window.open({file.path(), other.path()}));
        const auto ask = [](const std::function<void()>& open) {
            QStringList facts;
            QTimer::singleShot(100, qApp, [&facts] {
                auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                if (!dialog) qFatal("no file dialog was shown");
                facts << dialog->windowTitle() << dialog->directory().absolutePath() << dialog->selectedNameFilter();
                facts << dialog->nameFilters();
                dialog->reject();
            });
            open();
            return QTest::qWaitFor([&facts] { return !facts.isEmpty(); }) ? facts : QStringList();
        };
        const auto panelOf = [](const QWidget& page) { return page.findChild<corvane::controls::PicturePanel*>(); };
        QVERIFY(window.select({0}));
        const QStringList ofTool = ask([&] { window.action("loadPicture").trigger(); });
        const QStringList ofFile = ask([&] { panelOf(*window->findChild<FilePages*>())->loadButton()->click(); });
        QVERIFY(window.select({0, 1}));
        const QStringList ofMany = ask([&] { panelOf(*window->findChild<ManyPages*>())->loadButton()->click(); });
        QCOMPARE(ofTool.value(1), QDir(QString::fromStdString(window.folder().path())).absolutePath());
        QVERIFY(ofTool.value(2).contains("*.png"));
        QCOMPARE(ofFile, ofTool);
        QCOMPARE(ofMany, ofTool);
    }

    void FileThatIsNoPictureIsRefused() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        nameInNextDialog(QString::fromStdString(file.path()));
        QString message;
        readNextMessage(message);
        window.action("loadPicture").trigger();
        QVERIFY2(message.contains("is no picture"), qPrintable(message));
        QVERIFY(!window->isWindowModified());
    }

    void DocumentIsExportedToTheNamedFile() {
        EditorWindow window;
        const Mp3File file = taggedFile(window.folder(), "a.mp3", "One");
        QVERIFY(window.open({file.path()}));
        QVERIFY(window.select({0}));
        window->findChild<FilePages*>()->setCurrentIndex(4);
        const std::string target = window.folder().path("out.xml");
        nameInNextDialog(QString::fromStdString(target));
        QTest::mouseClick(&child<QPushButton>(*window, "exportDocument"), Qt::LeftButton);
        QFile written(QString::fromStdString(target));
        QVERIFY(written.open(QIODevice::ReadOnly));
        QVERIFY(written.readAll().startsWith("<?xml"));
        QVERIFY(file.isUnchanged());
    }
};

static const bool kIsRegisteredFileDialogsTest = corvane::test::registerTest<FileDialogsTest>("FileDialogsTest");
#include <FileDialogsTest.moc>
