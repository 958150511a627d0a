#include "corvane/controls/ID3v2.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/Id3v2Form.h"
#include "corvane/controls/OwnState.h"
#include "corvane/controls/Text.h"
#include "corvane/id3v1/Genres.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/xml/XmlNode.h"

#include <QCursor>
#include <QScopedValueRollback>
#include <utility>

namespace corvane::controls {

using TagReference = std::shared_ptr<corvane::ID3V2Tag>;

namespace {

constexpr const char* kWrite = "ucID3v2xTag::ID3V2Tag"; // sources of failures
constexpr const char* kRead = "ucID3v2xTag::ID3V2Tag()";
constexpr const char* kInvalidType = "Invalid type of tag passed.";
constexpr const char* kModeName = "V2A";
constexpr const char* kFrameListName = "FRL";

RuntimeFailure failure(const char* source, const char* description) {
    return {FailureNumber::ObjectDefined, source, description};
}

bool isNothing(const std::any& tag) {
    if (!tag.has_value() || std::any_cast<std::nullptr_t>(&tag)) return true;
    const auto* reference = std::any_cast<TagReference>(&tag);
    return reference && !*reference;
}

// "2.3.0".
QString versionText(const ID3V2Version& version) {
    return QStringLiteral("%1.%2.%3").arg(version.Major()).arg(version.Minor()).arg(version.Revision());
}

// The message of a record, which Stream gives behind its number and its source.
QString reasonOf(const TagError& error) { return toQt(error.Stream()).section(QStringLiteral(", "), 2); }

} // namespace

ID3v2::ID3v2(QWidget* parent)
    : QWidget(parent), form_(std::make_unique<Id3v2Form>(*this)), shown_(std::make_unique<Id3v2Values>()) {
    connect(form_->chkID3v2, &QCheckBox::stateChanged, this, [this] { behindWall("ID3v2", [this] { check(); }); });
    watchEdits();
    begin(false);
}

ID3v2::~ID3v2() = default;

void ID3v2::watchEdits() {
    const auto tell = [this] {
        if (!showing_) Q_EMIT edited();
    };
    for (QWidget* box : form_->boxes) {
        if (auto* line = qobject_cast<QLineEdit*>(box)) connect(line, &QLineEdit::textChanged, this, tell);
        if (auto* page = qobject_cast<QPlainTextEdit*>(box)) connect(page, &QPlainTextEdit::textChanged, this, tell);
    }
    connect(form_->cmbGenre, &GenreBox::genreChosen, this, tell);
    connect(form_->grpPicture, &PicturePanel::pictureChanged, this, tell);
}

void ID3v2::Clear() {
    const QScopedValueRollback showing(showing_, true);
    fill({});
    form_->lvwFrames->clear();
    form_->lblVersion->clear();
    form_->lblSize->clear();
}

// --- tag

void ID3v2::ID3V2Tag(const std::any& tag) {
    tag_ = tag;
    begin(!isNothing(tag_));
    if (const auto* reference = std::any_cast<TagReference>(&tag_); reference && *reference) {
        show(**reference);
    } else if (const auto* document = std::any_cast<XmlNode>(&tag_)) {
        const QScopedValueRollback showing(showing_, true);
        fill(valuesOf(*document));
    } else if (!isNothing(tag_)) {
        throw failure(kWrite, kInvalidType);
    }
}

// The state of the editor before the first value is shown. What cannot be saved cannot be removed either.
void ID3v2::begin(bool given) {
    const auto* reference = std::any_cast<TagReference>(&tag_);
    canSave_ = reference && *reference && (*reference)->canSave();
    hasOwnPicture_ = false;
    Clear();
    {
        const QScopedValueRollback showing(showing_, true);
        form_->chkID3v2->setChecked(given);
        form_->chkID3v2->setEnabled(canSave_);
    }
    form_->tell({});
    Enabled(given);
    Locked(!canSave_);
    *shown_ = collect();
    Q_EMIT tagRequestChanged();
}

void ID3v2::show(corvane::ID3V2Tag& tag) {
    const QScopedValueRollback showing(showing_, true);
    if (!canSave_) form_->tell(tr("This tag cannot be saved: %1").arg(reasonOf(*tag.LastError())));
    form_->lblVersion->setText(tr("ID3v%1 Tag").arg(versionText(*tag.Version())));
    const Variant size = tag.Size();
    form_->lblSize->setText(tr("%1 Bytes").arg(*std::get_if<std::int32_t>(&size)));
    fill(valuesOf(tag));
    form_->lvwFrames->showRows(rowsOf(tag));
    *shown_ = collect();
}

void ID3v2::fill(const Id3v2Values& values) {
    for (std::size_t at = 0; at < values.texts.size(); ++at) form_->setText(at, toQt(values.texts[at]));
    form_->cmbGenre->clearGenre(toQt(values.genreText));
    if (values.genre) form_->cmbGenre->showGenre(*values.genre, Genres());
    form_->grpPicture->showPicture(values.picture);
}

Id3v2Values ID3v2::collect() const {
    Id3v2Values values;
    for (std::size_t at = 0; at < values.texts.size(); ++at) values.texts[at] = fromQt(form_->text(at));
    if (!form_->cmbGenre->byteLabel().text().isEmpty()) values.genre = form_->cmbGenre->genre();
    values.genreText = fromQt(form_->cmbGenre->ownText());
    values.picture = form_->grpPicture->picture();
    return values;
}

TagReference ID3v2::ID3V2Tag() {
    if (isNothing(tag_)) return nullptr;
    const auto* reference = std::any_cast<TagReference>(&tag_);
    if (!reference) {
        throw failure(kRead, std::any_cast<XmlNode>(&tag_) ? "Copy to XML-based tag not yet supported." : kInvalidType);
    }
    Id3v2Values wanted = collect();
    if (hasOwnPicture_) wanted.picture = shown_->picture;
    writeChanges(**reference, *shown_, wanted);
    *shown_ = wanted;
    return *reference;
}

void ID3v2::AllowAnyGenre() {
    form_->cmbGenre->allowAnyText();
    form_->editMenu->attach(*form_->cmbGenre->lineEdit());
}

std::shared_ptr<Picture> ID3v2::ShownPicture() const { return form_->grpPicture->picture(); }

void ID3v2::ShownPicture(std::shared_ptr<Picture> value) {
    hasOwnPicture_ = true;
    form_->grpPicture->showPicture(std::move(value));
}

void ID3v2::check() {
    if (showing_) return;
    Locked(!HasTag() || !canSave_);
    Q_EMIT tagRequestChanged();
}

bool ID3v2::HasTag() const { return form_->chkID3v2->checkState() == Qt::Checked; }

bool ID3v2::saveTag() const { return HasTag() && isEnabledIn(*this, *form_->chkID3v2); }

bool ID3v2::removeTag() const {
    return form_->chkID3v2->checkState() == Qt::Unchecked && isEnabledIn(*this, *form_->chkID3v2);
}

// --- the widget

void ID3v2::Enabled(bool value) {
    enabled_ = value;
    form_->setFieldsEnabled(value);
    updatePicture();
}

void ID3v2::Locked(bool value) {
    locked_ = value;
    form_->setFieldsLocked(value);
    updatePicture();
}

void ID3v2::updatePicture() { form_->grpPicture->setChangeable(enabled_ && !locked_); }

void ID3v2::Mode(EID3v2Apperance value) {
    if (value == mode_) return;
    mode_ = value;
    form_->arrange(value);
}

bool ID3v2::FrameListVisible() const { return !form_->lvwFrames->isHidden(); }

void ID3v2::FrameListVisible(bool value) { form_->lvwFrames->setHidden(!value); }

void ID3v2::ReadProperties(const PropertyBag& bag) {
    const int mode = bag.ReadProperty(kModeName, 0).toInt();
    Mode(mode == static_cast<int>(EID3v2Apperance::v2aWide) ? EID3v2Apperance::v2aWide : EID3v2Apperance::v2aDefault);
    FrameListVisible(bag.ReadProperty(kFrameListName, true).toBool());
}

void ID3v2::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty(kModeName, static_cast<int>(mode_));
    bag.WriteProperty(kFrameListName, FrameListVisible());
}

void ID3v2::PopupMenu(QMenu* menu) {
    if (menu) menu->popup(QCursor::pos());
}

} // namespace corvane::controls
