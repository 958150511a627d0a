// Image files, as a user chooses them and as a tag takes them.
#pragma once

#include "corvane/platform/Picture.h"

#include <QFileDialog>
#include <QString>
#include <memory>

namespace corvane::controls {

// The picture of a file; nothing when it is none that a tag can hold and Qt can show.
std::shared_ptr<Picture> pictureOfFile(const QString& file);
// The same of its bytes.
std::shared_ptr<Picture> pictureOfBytes(const QByteArray& bytes);

// Makes a dialog one that asks for a picture, beginning in a folder; "" is the one where Qt begins.
void askForPicture(QFileDialog& dialog, const QString& folder);

} // namespace corvane::controls
