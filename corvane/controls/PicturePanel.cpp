#include "corvane/controls/PicturePanel.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/PictureFile.h"
#include "corvane/controls/Text.h"

#include <QBuffer>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QImage>
#include <QLocale>
#include <QMimeData>
#include <QUrl>
#include <utility>

namespace corvane::controls {

namespace {

constexpr int kSmallestSide = 120; // pixels

QPixmap pixelsOf(const Picture& picture) {
    const Bytes bytes = picture.bytes();
    QPixmap pixels;
    pixels.loadFromData(bytes.data(), static_cast<uint>(bytes.size()));
    return pixels;
}

QString localImageOf(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

QByteArray asPng(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    return bytes;
}

// Never as a move: whoever drags a file may delete it once it has been moved.
void acceptAsCopy(QDropEvent& event) {
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace

PicturePanel::PicturePanel(QWidget* parent)
    : QGroupBox(tr("Picture"), parent),
      image_(new QLabel(this)),
      facts_(new QLabel(this)),
      load_(new QPushButton(tr("L&oad…"), this)),
      clear_(new QPushButton(tr("C&lear"), this)) {
    setObjectName(QStringLiteral("grpPicture"));
    setAcceptDrops(true);
    image_->setObjectName(QStringLiteral("picMain"));
    image_->setAccessibleName(tr("Picture"));
    image_->setAlignment(Qt::AlignCenter);
    image_->setMinimumSize(kSmallestSide, kSmallestSide);
    image_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    image_->setFrameShape(QFrame::StyledPanel);
    image_->installEventFilter(this);
    facts_->setObjectName(QStringLiteral("lblPicture"));
    facts_->setAlignment(Qt::AlignCenter);
    facts_->setWordWrap(true);
    load_->setObjectName(QStringLiteral("cmdLoadPicture"));
    clear_->setObjectName(QStringLiteral("cmdClearPicture"));
    connect(load_, &QPushButton::clicked, this, [this] { behindWall("PicturePanel", [this] { choose(); }); });
    connect(clear_, &QPushButton::clicked, this, [this] {
        behindWall("PicturePanel", [this] { showPicture(nullptr); });
        Q_EMIT pictureChanged();
    });
    auto* grid = new QGridLayout(this);
    grid->addWidget(image_, 0, 0, 1, 2);
    grid->addWidget(facts_, 1, 0, 1, 2);
    grid->addWidget(load_, 2, 0);
    grid->addWidget(clear_, 2, 1);
    grid->setRowStretch(0, 1);
    showPicture(nullptr);
}

void PicturePanel::showPicture(std::shared_ptr<Picture> picture) {
    picture_ = std::move(picture);
    pixels_ = picture_ ? pixelsOf(*picture_) : QPixmap();
    if (!picture_) {
        facts_->setText(tr("no picture"));
    } else {
        const QString size = QLocale().formattedDataSize(static_cast<qint64>(picture_->bytes().size()));
        const QString kind = toQt(picture_->mimeType()).section('/', 1).toUpper();
        facts_->setText(tr("%1 × %2, %3, %4").arg(picture_->width()).arg(picture_->height()).arg(kind, size));
    }
    scale();
    enableButtons();
}

void PicturePanel::scale() {
    if (pixels_.isNull()) {
        image_->setPixmap({});
        if (picture_) image_->setText(tr("cannot be shown"));
        return;
    }
    const QSize room = image_->contentsRect().size();
    if (pixels_.width() <= room.width() && pixels_.height() <= room.height()) {
        image_->setPixmap(pixels_);
        return;
    }
    const qreal ratio = devicePixelRatioF(); // of a screen with more pixels than points
    QPixmap fitting = pixels_.scaled(room * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(ratio);
    image_->setPixmap(fitting);
}

bool PicturePanel::load(const QString& file) { return take(pictureOfFile(file)); }

bool PicturePanel::take(std::shared_ptr<Picture> picture) {
    if (!picture) return false;
    showPicture(std::move(picture));
    Q_EMIT pictureChanged();
    return true;
}

void PicturePanel::tellRefusal() { facts_->setText(tr("The file holds no JPEG, PNG, GIF or BMP picture.")); }

// The dialog does not stop the program: the picture is loaded when a file has been chosen, if it can be changed then.
void PicturePanel::choose() {
    auto* dialog = new QFileDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    askForPicture(*dialog, folder_);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        behindWall("PicturePanel", [&] {
            if (changeable_ && !load(file)) tellRefusal();
        });
    });
    dialog->open();
}

void PicturePanel::setChangeable(bool changeable) {
    changeable_ = changeable;
    enableButtons();
}

void PicturePanel::enableButtons() {
    load_->setEnabled(changeable_);
    clear_->setEnabled(changeable_ && picture_);
}

void PicturePanel::dragEnterEvent(QDragEnterEvent* event) {
    const QMimeData* offered = event->mimeData();
    if (changeable_ && (offered->hasImage() || !localImageOf(*offered).isEmpty())) acceptAsCopy(*event);
}

void PicturePanel::dropEvent(QDropEvent* event) {
    if (!changeable_) return;
    behindWall("PicturePanel", [&] {
        const QMimeData* offered = event->mimeData();
        const QString file = localImageOf(*offered);
        const bool taken =
            file.isEmpty() ? take(pictureOfBytes(asPng(qvariant_cast<QImage>(offered->imageData())))) : load(file);
        acceptAsCopy(*event);
        if (!taken) tellRefusal();
    });
}

bool PicturePanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == image_ && event->type() == QEvent::Resize) scale();
    return QGroupBox::eventFilter(watched, event);
}

} // namespace corvane::controls
