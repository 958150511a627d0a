#include "apps/editor/XmlView.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"
#include "tests/editor/EditorFiles.h"
#include "tests/support/ImageBuilder.h"

#include <QClipboard>
#include <QPushButton>
#include <QtTest>

using namespace corvane::editor;
using namespace corvane::test;

class XmlViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void DocumentIsIndentedAndLongValuesAreShortened() {
        const QString value(5000, QLatin1Char('x'));
        const QString shown = forScreen(QStringLiteral("<?xml version='1.0'?><A><B Value='%1'/></A>").arg(value));
        QVERIFY(shown.startsWith("<A>\n  <B Value=\"xxx"));
        QVERIFY(shown.size() < 1000);
        QVERIFY(shown.contains("4,600 characters"));
    }

    void ExportedFileHoldsTheWholeDocumentInItsEncoding() {
        const ScratchFolder folder;
        Id3v2Builder tag;
        tag.text("TIT2", "Größe", Encoding::Utf16).frame("APIC", pictureFrame(pngImage(200, 200)));
        const Mp3File file(folder, tag.done(), "a.mp3");
        XmlView view;
        view.setFile(file.path());
        const QString target = QString::fromStdString(folder.path("out.xml"));
        QCOMPARE(view.writeTo(target), QString());
        QFile written(target);
        QVERIFY(written.open(QIODevice::ReadOnly));
        const QByteArray bytes = written.readAll();
        QVERIFY(bytes.contains("Gr\xf6\xdf"
                               "e"));
        QVERIFY(bytes.size() > 2000);
        QVERIFY(file.isUnchanged());
    }

    void ExportThatFailsTellsWhy() {
        XmlView view;
        QVERIFY(!view.writeTo(QStringLiteral("/nowhere/out.xml")).isEmpty());
    }

    void FileThatIsGoneIsNotExportedAsAnEmptyDocument() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "A title");
        XmlView view;
        view.setFile(file.path());
        QVERIFY(::unlink(file.path().c_str()) == 0);
        QVERIFY(showWindow(view));
        QVERIFY(!child<QPlainTextEdit>(view, "xmlText").placeholderText().isEmpty());
        QVERIFY(!view.writeTo(QString::fromStdString(folder.path("out.xml"))).isEmpty());
        QVERIFY(namesIn(folder.path()).empty());
        QGuiApplication::clipboard()->setText("kept");
        QTest::mouseClick(view.findChildren<QPushButton*>().front(), Qt::LeftButton);
        QCOMPARE(clipboardText(), QStringLiteral("kept"));
    }

    void CopyTakesTheWholeDocument() {
        const ScratchFolder folder;
        const Mp3File file = taggedFile(folder, "a.mp3", "A title");
        XmlView view;
        QVERIFY(showWindow(view));
        view.setFile(file.path());
        QVERIFY(child<QPlainTextEdit>(view, "xmlText").toPlainText().contains("A title"));
        QTest::mouseClick(view.findChildren<QPushButton*>().front(), Qt::LeftButton);
        QCOMPARE(clipboardText().toStdString(), view.document());
    }
};

static const bool kIsRegisteredXmlViewTest = corvane::test::registerTest<XmlViewTest>("XmlViewTest");
#include <XmlViewTest.moc>
