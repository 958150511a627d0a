// The frame around the tag's picture: the image, what it is, and the buttons that load and clear it. An image can also
// be dropped on it, as a file or as pixels.
#pragma once

#include "corvane/platform/Picture.h"

#include <QGroupBox>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <memory>

namespace corvane::controls {

class PicturePanel : public QGroupBox {
    Q_OBJECT

public:
    explicit PicturePanel(QWidget* parent);

    // The picture as it stands in the tag or was loaded, or nothing. Its bytes are never encoded again.
    std::shared_ptr<Picture> picture() const { return picture_; }
    void showPicture(std::shared_ptr<Picture> picture);

    // Loads an image file; false, and the picture stays, when it is none that a tag can hold and Qt can show.
    bool load(const QString& file);

    // The folder in which the dialog that loads a picture begins.
    void setFolder(const QString& folder) { folder_ = folder; }

    // Whether the buttons work and images can be dropped.
    void setChangeable(bool changeable);

    QPushButton* loadButton() const { return load_; }
    QPushButton* clearButton() const { return clear_; }

Q_SIGNALS:
    // The user has loaded, dropped or cleared a picture.
    void pictureChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void choose();
    bool take(std::shared_ptr<Picture> picture);
    void tellRefusal();
    void scale();
    void enableButtons();

    QLabel* image_;
    QLabel* facts_;
    QPushButton* load_;
    QPushButton* clear_;
    std::shared_ptr<Picture> picture_;
    QPixmap pixels_; // of the picture, in its own size
    QString folder_;
    bool changeable_ = true;
};

} // namespace corvane::controls
