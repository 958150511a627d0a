#include "corvane/controls/PicturePanel.h"

#include "tests/controls/Hand.h"
#include "tests/controls/Registry.h"
#include "tests/support/ImageBuilder.h"
#include "tests/support/ScratchFolder.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMimeData>
#include <QSignalSpy>
#include <QtTest>

using namespace corvane::controls;
using namespace corvane::test;

class PicturePanelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void loadsWhatATagCanHold_data();
    void loadsWhatATagCanHold();
    void aFailureLeavesThePicture_data();
    void aFailureLeavesThePicture();
    void theDialogLoadsTheChosenFile();
    void theDialogOffersTheNamedFilterFirst();
    void aChosenFileThatIsNoPictureIsTold();
    void aPanelThatIsLockedMeanwhileKeepsItsPicture();
    void anImageFileCanBeDropped();
    void pixelsCanBeDropped();
    void otherThingsCannotBeDropped();
    void aLockedPanelTakesNothing();
    void theImageIsScaledToItsPlace();
    void aSmallImageKeepsItsSize();
    void aPictureThatQtCannotDecodeIsKept();
    void clearingIsOfferedOnlyWithPicture();

private:
    QString write(const char* name, const corvane::ByteArray& bytes) {
        return QString::fromStdString(folder_->write(name, bytes));
    }
    QLabel& image() { return child<QLabel>(*panel_, "picMain"); }
    QString facts() { return child<QLabel>(*panel_, "lblPicture").text(); }
    bool drop(const QMimeData& data);

    std::unique_ptr<ScratchFolder> folder_;
    std::unique_ptr<PicturePanel> panel_;
};

void PicturePanelTest::init() {
    folder_ = std::make_unique<ScratchFolder>();
    panel_ = std::make_unique<PicturePanel>(nullptr);
    panel_->resize(240, 300);
    QVERIFY(showWindow(*panel_));
}

void PicturePanelTest::cleanup() {
    panel_.reset();
    folder_.reset();
}

void PicturePanelTest::loadsWhatATagCanHold_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("facts");
    const auto row = [](const char* name, const corvane::ByteArray& bytes, const char* facts) {
        QTest::newRow(name) << QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                          static_cast<qsizetype>(bytes.size()))
                            << QString::fromUtf8(facts);
    };
    row("JPEG", jpegImage(64, 32), "64 × 32, JPEG");
    row("PNG", pngImage(10, 20), "10 × 20, PNG");
    row("GIF", gifImage(7, 9), "7 × 9, GIF");
    row("BMP", bmpImage(5, 6), "5 × 6, BMP");
}

void PicturePanelTest::loadsWhatATagCanHold() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, facts);
    const QSignalSpy changes(panel_.get(), &PicturePanel::pictureChanged);
    const corvane::ByteArray content(bytes.begin(), bytes.end());
    QVERIFY(panel_->load(write("image", content)));
    QCOMPARE(changes.count(), 1);
    QVERIFY2(this->facts().startsWith(facts), qPrintable(this->facts()));
    const corvane::Bytes kept = panel_->picture()->bytes();
    QVERIFY(corvane::ByteArray(kept.begin(), kept.end()) == content);
    QVERIFY(!image().pixmap(Qt::ReturnByValue).isNull());
}

void PicturePanelTest::aFailureLeavesThePicture_data() {
    QTest::addColumn<QString>("file");
    QTest::newRow("no file") << "nothing.png";
    QTest::newRow("a folder") << ".";
    QTest::newRow("a text") << "text.jpg";
    QTest::newRow("an empty file") << "empty.jpg";
    QTest::newRow("a picture cut in its header") << "cut.png";
    QTest::newRow("a picture cut behind its header") << "half.png";
}

void PicturePanelTest::aFailureLeavesThePicture() {
    QFETCH(QString, file);
    write("text.jpg", corvane::ByteArray{'t', 'e', 'x', 't'});
    write("empty.jpg", {});
    corvane::ByteArray cut = pngImage(8, 8);
    cut.resize(20);
    write("cut.png", cut);
    corvane::ByteArray half = pngImage(40, 40);
    half.resize(40);
    write("half.png", half);
    QVERIFY(panel_->load(write("good.png", pngImage(4, 4))));
    const auto before = panel_->picture();
    const QSignalSpy changes(panel_.get(), &PicturePanel::pictureChanged);
    QVERIFY(!panel_->load(QString::fromStdString(folder_->path()) + '/' + file));
    QVERIFY(panel_->picture() == before);
    QCOMPARE(changes.count(), 0);
}

void PicturePanelTest::theDialogLoadsTheChosenFile() {
    const QString path = write("cover.jpg", jpegImage(30, 30));
    QTest::mouseClick(panel_->loadButton(), Qt::LeftButton);
    auto* dialog = panel_->findChild<QFileDialog*>();
    QVERIFY(dialog && dialog->isVisible());
    dialog->setDirectory(QString::fromStdString(folder_->path()));
    dialog->selectFile(path);
    QTRY_COMPARE(dialog->selectedFiles().value(0), path);
    QVERIFY(QMetaObject::invokeMethod(dialog, "accept"));
    QVERIFY(panel_->picture() != nullptr);
    QCOMPARE(panel_->picture()->width(), 30);
}

void PicturePanelTest::theDialogOffersTheNamedFilterFirst() {
    panel_->loadButton()->click();
    auto* dialog = panel_->findChild<QFileDialog*>();
    QCOMPARE(dialog->nameFilters().value(0), "Bitmaps and JPG Files (*.BMP *.JPG *.GIF)");
    dialog->reject();
    QVERIFY(panel_->picture() == nullptr);
}

void PicturePanelTest::aChosenFileThatIsNoPictureIsTold() {
    write("text.jpg", corvane::ByteArray{'t', 'e', 'x', 't'});
    panel_->loadButton()->click();
    auto* dialog = panel_->findChild<QFileDialog*>();
    Q_EMIT dialog->fileSelected(QString::fromStdString(folder_->path("text.jpg")));
    QVERIFY(facts().contains("no JPEG"));
    QVERIFY(panel_->picture() == nullptr);
}

// The dialog does not stop the program, which may show a tag that cannot be saved before a file is chosen.
void PicturePanelTest::aPanelThatIsLockedMeanwhileKeepsItsPicture() {
    const QString path = write("cover.jpg", jpegImage(30, 30));
    panel_->loadButton()->click();
    auto* dialog = panel_->findChild<QFileDialog*>();
    panel_->setChangeable(false);
    Q_EMIT dialog->fileSelected(path);
    QVERIFY(panel_->picture() == nullptr);
}

// Proposed as a move, after which its source may delete what was dragged: whoever takes it must say that it is a copy.
bool PicturePanelTest::drop(const QMimeData& data) {
    const Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(20, 20), possible, &data, Qt::LeftButton, Qt::ShiftModifier);
    enter.setDropAction(Qt::MoveAction);
    enter.ignore();
    QCoreApplication::sendEvent(panel_.get(), &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent dropped(QPointF(20, 20), possible, &data, Qt::LeftButton, Qt::ShiftModifier);
    dropped.setDropAction(Qt::MoveAction);
    dropped.ignore();
    QCoreApplication::sendEvent(panel_.get(), &dropped);
    return dropped.isAccepted() && enter.dropAction() == Qt::CopyAction && dropped.dropAction() == Qt::CopyAction;
}

void PicturePanelTest::anImageFileCanBeDropped() {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write("cover.gif", gifImage(12, 13)))});
    QVERIFY(drop(data));
    QVERIFY(panel_->picture() && panel_->picture()->height() == 13);
}

void PicturePanelTest::pixelsCanBeDropped() {
    QImage pixels(21, 22, QImage::Format_RGB32);
    pixels.fill(Qt::red);
    QMimeData data;
    data.setImageData(pixels);
    QVERIFY(drop(data));
    QCOMPARE(panel_->picture()->mimeType(), std::string("image/png"));
    QCOMPARE(panel_->picture()->width(), 21);
}

void PicturePanelTest::otherThingsCannotBeDropped() {
    QMimeData text;
    text.setText("text");
    QVERIFY(!drop(text));
    QMimeData remote;
    remote.setUrls({QUrl("https://example.org/cover.png")});
    QVERIFY(!drop(remote));
    QMimeData several;
    several.setUrls({QUrl::fromLocalFile("/a.png"), QUrl::fromLocalFile("/b.png")});
    QVERIFY(!drop(several));
}

void PicturePanelTest::aLockedPanelTakesNothing() {
    panel_->setChangeable(false);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(write("cover.gif", gifImage(12, 13)))});
    QVERIFY(!drop(data));
    QVERIFY(!panel_->loadButton()->isEnabled());
}

void PicturePanelTest::theImageIsScaledToItsPlace() {
    QVERIFY(panel_->load(write("large.jpg", jpegImage(1600, 800))));
    const QSize shown = image().pixmap(Qt::ReturnByValue).size();
    QVERIFY(shown.width() <= image().width() && shown.height() <= image().height());
    QVERIFY(std::abs(shown.width() - 2 * shown.height()) <= 2);
    panel_->resize(600, 600);
    QTRY_VERIFY(image().pixmap(Qt::ReturnByValue).width() > shown.width());
}

void PicturePanelTest::aSmallImageKeepsItsSize() {
    QVERIFY(panel_->load(write("small.png", pngImage(16, 12))));
    QCOMPARE(image().pixmap(Qt::ReturnByValue).size(), QSize(16, 12));
}

void PicturePanelTest::aPictureThatQtCannotDecodeIsKept() {
    corvane::ByteArray broken = pngImage(40, 40);
    broken.resize(40); // the header is whole
    const auto picture = corvane::Picture::fromBytes(broken);
    QVERIFY(picture != nullptr);
    panel_->showPicture(picture);
    QVERIFY(panel_->picture() == picture);
    QCOMPARE(image().text(), "cannot be shown");
    QVERIFY(panel_->clearButton()->isEnabled());
}

void PicturePanelTest::clearingIsOfferedOnlyWithPicture() {
    QVERIFY(!panel_->clearButton()->isEnabled());
    QVERIFY(panel_->load(write("small.png", pngImage(16, 12))));
    const QSignalSpy changes(panel_.get(), &PicturePanel::pictureChanged);
    QTest::mouseClick(panel_->clearButton(), Qt::LeftButton);
    QVERIFY(panel_->picture() == nullptr);
    QCOMPARE(changes.count(), 1);
    QVERIFY(!panel_->clearButton()->isEnabled());
}

static const bool kIsRegisteredPicturePanelTest = registerTest<PicturePanelTest>("PicturePanelTest");

#include <PicturePanelTest.moc>
