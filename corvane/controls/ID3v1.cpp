#include "corvane/controls/ID3v1.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/FieldColour.h"
#include "corvane/controls/Id3v1Form.h"
#include "corvane/controls/Id3v1Rules.h"
#include "corvane/controls/Id3v1Tags.h"
#include "corvane/controls/OwnState.h"
#include "corvane/controls/Text.h"

#include <QCursor>
#include <QEvent>
#include <QScopedValueRollback>
#include <utility>

namespace corvane::controls {

using enum ETagEditModeConstants;

ID3v1::ID3v1(QWidget* parent)
    : QWidget(parent), form_(std::make_unique<Id3v1Form>(*this)), tags_(std::make_unique<Id3v1Tags>()) {
    watch(Id3v1Field::Title, *form_->txtTitle);
    watch(Id3v1Field::Artist, *form_->txtArtist);
    watch(Id3v1Field::Album, *form_->txtAlbum);
    watch(Id3v1Field::Year, *form_->txtYear);
    watch(Id3v1Field::Track, *form_->txtTrack);
    watch(Id3v1Field::Comment, *form_->txtComment);
    connect(form_->txtTrack, &QLineEdit::textChanged, this,
            [this] { form_->commentLimit->setLimit(commentLimit(Track())); });
    connect(form_->cmbGenre, &GenreBox::genreChosen, this, [this] { noteEdit(Id3v1Field::Genre); });
    connect(form_->chkID3v1, &QCheckBox::stateChanged, this, [this] { behindWall("ID3v1", [this] { check(); }); });
    connect(form_->cmdNext, &QToolButton::clicked, this, [this] { step(Step::Next); });
    connect(form_->cmdPrevious, &QToolButton::clicked, this, [this] { step(Step::Previous); });
    VisibilityMode(temEditSingle);
}

ID3v1::~ID3v1() = default;

// --- fields

std::string ID3v1::Title() const { return fromQt(titleText()); }
void ID3v1::Title(std::string_view value) { showText(*form_->txtTitle, value); }
std::string ID3v1::Artist() const { return fromQt(artistText()); }
void ID3v1::Artist(std::string_view value) { showText(*form_->txtArtist, value); }
std::string ID3v1::Album() const { return fromQt(albumText()); }
void ID3v1::Album(std::string_view value) { showText(*form_->txtAlbum, value); }
std::string ID3v1::Year() const { return fromQt(yearText()); }
void ID3v1::Year(std::string_view value) { showText(*form_->txtYear, value); }
std::string ID3v1::Comment() const { return fromQt(commentText()); }
void ID3v1::Comment(std::string_view value) { showText(*form_->txtComment, value); }

std::uint8_t ID3v1::Genre() const { return form_->cmbGenre->genre(); }

void ID3v1::Genre(std::uint8_t value) { form_->cmbGenre->showGenre(value, Genres()); }

std::int16_t ID3v1::Track() const { return trackOf(form_->txtTrack->text()); }

void ID3v1::Track(std::int16_t value) { showText(*form_->txtTrack, std::to_string(value)); }

QString ID3v1::titleText() const { return form_->txtTitle->text(); }
void ID3v1::setTitleText(const QString& text) { Title(fromQt(text)); }
QString ID3v1::artistText() const { return form_->txtArtist->text(); }
void ID3v1::setArtistText(const QString& text) { Artist(fromQt(text)); }
QString ID3v1::albumText() const { return form_->txtAlbum->text(); }
void ID3v1::setAlbumText(const QString& text) { Album(fromQt(text)); }
QString ID3v1::yearText() const { return form_->txtYear->text(); }
void ID3v1::setYearText(const QString& text) { Year(fromQt(text)); }
QString ID3v1::commentText() const { return form_->txtComment->text(); }
void ID3v1::setCommentText(const QString& text) { Comment(fromQt(text)); }

void ID3v1::setGenreNumber(int number) {
    if (std::in_range<std::uint8_t>(number)) Genre(static_cast<std::uint8_t>(number));
}

void ID3v1::setTrackNumber(int number) {
    if (std::in_range<std::int16_t>(number)) Track(static_cast<std::int16_t>(number));
}

void ID3v1::showText(QLineEdit& box, std::string_view text) {
    const QScopedValueRollback showing(showing_, true);
    box.setText(toQt(text));
    box.setCursorPosition(0);
}

void ID3v1::Clear() {
    for (QLineEdit* box : form_->textBoxes()) showText(*box, {});
    form_->cmbGenre->clearGenre();
}

// --- edits

void ID3v1::watch(Id3v1Field field, QLineEdit& box) {
    connect(&box, &QLineEdit::textChanged, this, [this, field] { noteEdit(field); });
}

void ID3v1::noteEdit(Id3v1Field field) {
    if (showing_ || !Enabled()) return;
    form_->field(field).noteEdit();
    Q_EMIT edited();
}

bool ID3v1::TitleChanged() const { return form_->field(Id3v1Field::Title).isChanged(); }
bool ID3v1::ArtistChanged() const { return form_->field(Id3v1Field::Artist).isChanged(); }
bool ID3v1::AlbumChanged() const { return form_->field(Id3v1Field::Album).isChanged(); }
bool ID3v1::YearChanged() const { return form_->field(Id3v1Field::Year).isChanged(); }
bool ID3v1::GenreChanged() const { return form_->field(Id3v1Field::Genre).isChanged(); }
bool ID3v1::TrackChanged() const { return form_->field(Id3v1Field::Track).isChanged(); }
bool ID3v1::CommentChanged() const { return form_->field(Id3v1Field::Comment).isChanged(); }

ETagEditModeConstants ID3v1::VisibilityMode() const {
    return form_->field(Id3v1Field::Title).shade() == Shade::ButtonFace ? temEditMany : temEditSingle;
}

void ID3v1::VisibilityMode(ETagEditModeConstants value) {
    mode_ = value;
    forgetEdits();
    showTag();
}

void ID3v1::forgetEdits() {
    for (TrackedField& field : form_->fields) field.reset(mode_ == temEditMany ? Shade::ButtonFace : Shade::Window);
}

// --- tags

void ID3v1::ID3v1xTag(std::shared_ptr<ID3V1Tag> tag) {
    if (!tag || mode_ != temEditMany) tags_->clear();
    if (tag) {
        tags_->add(std::move(tag));
    } else {
        forgetEdits(); // they were made for the tags that are gone
        Clear();
    }
    showTag();
}

std::shared_ptr<ID3V1Tag> ID3v1::ID3v1xTag() const {
    auto tag = std::make_shared<ID3V1Tag>();
    tag->Title(Title());
    tag->Artist(Artist());
    tag->Album(Album());
    tag->Year(Year());
    tag->Comment(Comment());
    tag->Track(Track());
    tag->Genre(Genre());
    if (HasTag()) tag->TagType(tagTypeFor(Track()));
    return tag;
}

std::int32_t ID3v1::TagCount() const { return static_cast<std::int32_t>(tags_->count()); }

void ID3v1::step(Step direction) {
    behindWall("ID3v1", [this, direction] {
        if (direction == Step::Next) tags_->next();
        if (direction == Step::Previous) tags_->previous();
        showTag();
    });
}

void ID3v1::showTag() {
    const QScopedValueRollback showing(showing_, true);
    const auto tag = tags_->shown();
    form_->chkID3v1->setChecked(tag && holdsData(*tag));
    if (tag) fill(*tag);
    enableFields();
    form_->showPosition(tags_->shownOffset(), tags_->count(), mode_ == temEditMany);
    Q_EMIT tagRequestChanged();
}

// What the user has edited stands for all tags and stays; the tag's own value would pass for the user's otherwise.
void ID3v1::fill(const ID3V1Tag& tag) {
    const auto show = [this](Id3v1Field field, QLineEdit& box, const std::string& text) {
        if (!form_->field(field).isChanged()) showText(box, text);
    };
    show(Id3v1Field::Title, *form_->txtTitle, tag.Title());
    show(Id3v1Field::Artist, *form_->txtArtist, tag.Artist());
    show(Id3v1Field::Album, *form_->txtAlbum, tag.Album());
    show(Id3v1Field::Year, *form_->txtYear, tag.Year());
    show(Id3v1Field::Track, *form_->txtTrack, std::to_string(tag.Track()));
    show(Id3v1Field::Comment, *form_->txtComment, tag.Comment());
    if (!GenreChanged()) form_->cmbGenre->showGenre(tag.Genre(), *tag.GenreList());
}

void ID3v1::check() {
    const auto state = form_->chkID3v1->checkState();
    if (showing_ || state == Qt::PartiallyChecked) return;
    if (state == Qt::Checked && tags_->count() == 0) tags_->add(std::make_shared<ID3V1Tag>());
    enableFields();
    form_->showPosition(tags_->shownOffset(), tags_->count(), mode_ == temEditMany);
    Q_EMIT tagRequestChanged();
}

void ID3v1::enableFields() {
    form_->editMenu->close();
    const bool wanted = HasTag();
    for (QLineEdit* box : form_->textBoxes()) box->setEnabled(wanted);
    form_->cmbGenre->setEnabled(wanted);
    form_->cmbGenre->byteLabel().setEnabled(wanted);
}

bool ID3v1::HasTag() const { return form_->chkID3v1->checkState() == Qt::Checked; }

bool ID3v1::saveTag() const { return HasTag() && isEnabledIn(*this, *form_->chkID3v1); }

bool ID3v1::removeTag() const {
    const auto tag = tags_->shown();
    if (tag && tag->TagType() == EID3TagConstants::ID3Unknown) return false; // there is nothing to remove
    return form_->chkID3v1->checkState() == Qt::Unchecked && isEnabledIn(*this, *form_->chkID3v1);
}

// --- the widget

bool ID3v1::Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }

void ID3v1::Enabled(bool value) { setEnabled(value); }

bool ID3v1::Locked() const { return form_->txtTitle->isReadOnly(); }

void ID3v1::Locked(bool value) {
    for (QLineEdit* box : form_->textBoxes()) box->setReadOnly(value);
    form_->cmbGenre->setLocked(value);
}

void ID3v1::PopupMenu(QMenu* menu) {
    if (menu) menu->popup(QCursor::pos());
}

void ID3v1::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && form_) {
        for (const TrackedField& field : form_->fields) field.paint();
    }
    if (event->type() == QEvent::FontChange && form_) form_->fitToFont();
    if (event->type() == QEvent::EnabledChange) Q_EMIT tagRequestChanged();
}

} // namespace corvane::controls
