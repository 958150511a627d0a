#include "corvane/controls/Lyrics.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/FieldColour.h"
#include "corvane/controls/LyricsForm.h"
#include "corvane/controls/OwnState.h"
#include "corvane/controls/Text.h"
#include "corvane/lyrics/LyricsTag.h"

#include <QCursor>
#include <QEvent>
#include <QSignalBlocker>
#include <utility>

namespace corvane::controls {

Lyrics::Lyrics(QWidget* parent) : QWidget(parent), form_(std::make_unique<LyricsForm>(*this)) {
    connect(form_->chkLyrics, &QCheckBox::stateChanged, this, [this] { behindWall("Lyrics", [this] { check(); }); });
    LyricsTag(nullptr);
}

Lyrics::~Lyrics() = default;

void Lyrics::Clear() {
    for (QLineEdit* line : form_->lines()) line->clear();
    form_->txtLyrics->clear();
}

void Lyrics::Enabled(bool value) {
    enabled_ = value;
    updateFields();
}

void Lyrics::Locked(bool value) {
    locked_ = value;
    updateFields();
}

void Lyrics::LyricsTag(std::shared_ptr<corvane::LyricsTag> theLyricsTag) {
    tag_ = std::move(theLyricsTag);
    Clear();
    {
        const QSignalBlocker noClick(form_->chkLyrics);
        form_->chkLyrics->setChecked(tag_ != nullptr);
        form_->chkLyrics->setEnabled(tag_ == nullptr);
    }
    if (tag_) {
        Enabled(false);
        form_->txtTitle->setText(toQt(tag_->Title()));
        form_->txtLyrics->setPlainText(toQt(tag_->Lyrics()));
        form_->txtAlbum->setText(toQt(tag_->Album()));
        form_->txtArtist->setText(toQt(tag_->Artist()));
        form_->txtAuthor->setText(toQt(tag_->Author()));
        for (QLineEdit* line : form_->lines()) line->setCursorPosition(0);
    } else {
        Locked(true);
    }
    Q_EMIT tagRequestChanged();
}

bool Lyrics::removeTag() const {
    return form_->chkLyrics->checkState() == Qt::Unchecked && isEnabledIn(*this, *form_->chkLyrics);
}

bool Lyrics::HasTag() const { return form_->chkLyrics->checkState() == Qt::Checked; }

void Lyrics::check() {
    const auto state = form_->chkLyrics->checkState();
    if (state == Qt::PartiallyChecked) return;
    if (state == Qt::Checked && !tag_) tag_ = std::make_shared<corvane::LyricsTag>();
    Locked(state == Qt::Unchecked);
    Q_EMIT tagRequestChanged();
}

void Lyrics::updateFields() {
    const bool editable = enabled_ && !locked_;
    for (QLineEdit* line : form_->lines()) line->setReadOnly(!editable);
    form_->txtLyrics->setReadOnly(!editable);
    for (QWidget* field : form_->fields()) setShade(*field, editable ? Shade::Window : Shade::ButtonFace);
}

void Lyrics::PopupMenu(QMenu* menu) {
    if (menu) menu->popup(QCursor::pos());
}

void Lyrics::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && form_) updateFields();
    if (event->type() == QEvent::EnabledChange) Q_EMIT tagRequestChanged();
}

} // namespace corvane::controls
