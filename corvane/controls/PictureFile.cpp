#include "corvane/controls/PictureFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QPixmap>
#include <utility>

namespace corvane::controls {

namespace {

constexpr qint64 kLargestFile = 64 << 20; // bytes; a larger one is no cover

class PictureTexts {
    Q_DECLARE_TR_FUNCTIONS(PictureTexts)
};

bool canBeShown(const Picture& picture) {
    QPixmap pixels;
    return pixels.loadFromData(picture.bytes().data(), static_cast<uint>(picture.bytes().size()));
}

} // namespace

std::shared_ptr<Picture> pictureOfFile(const QString& file) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly) || source.size() > kLargestFile) return nullptr;
    return pictureOfBytes(source.read(kLargestFile));
}

std::shared_ptr<Picture> pictureOfBytes(const QByteArray& bytes) {
    auto picture = Picture::fromBytes(ByteArray(bytes.begin(), bytes.end()));
    return picture && canBeShown(*picture) ? std::move(picture) : nullptr;
}

// The first filter is the one that hosts know. It lacks PNG, which most covers are, so it is not the chosen one.
void askForPicture(QFileDialog& dialog, const QString& folder) {
    const QString all = PictureTexts::tr("All Pictures (*.bmp *.jpg *.jpeg *.gif *.png)");
    dialog.setWindowTitle(PictureTexts::tr("Load Picture"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({PictureTexts::tr("Bitmaps and JPG Files (*.BMP *.JPG *.GIF)"), all});
    dialog.selectNameFilter(all);
    if (!folder.isEmpty()) dialog.setDirectory(folder);
}

} // namespace corvane::controls
