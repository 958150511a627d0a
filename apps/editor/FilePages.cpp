#include "apps/editor/FilePages.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/PicturePanel.h"
#include "corvane/controls/Text.h"
#include "corvane/lyrics/LyricsTag.h"

#include "apps/editor/ControlValues.h"
#include "apps/editor/FileName.h"
#include "apps/editor/FocusPlace.h"

#include <QCheckBox>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <algorithm>

namespace corvane::editor {

namespace {

constexpr int kRecordWidth = 80; // letters; a record's texts have 30 characters

// Carries over what differs between two looks at a control. The name of the last field that does, "" for none.
QString carryOver(const TagValues& before, const TagValues& now, TagValues& wanted) {
    QString name;
    if (now.present != before.present) {
        wanted.present = now.present;
        name = QStringLiteral("present");
    }
    for (std::size_t at = 0; at < kFieldCount; ++at) {
        if (now.texts[at] == before.texts[at]) continue;
        wanted.texts[at] = now.texts[at];
        name = QString::number(at);
    }
    if (now.picture != before.picture) {
        wanted.picture = now.picture;
        wanted.cover.reset(); // what was chosen last counts
        name = QStringLiteral("picture");
    }
    return name;
}

} // namespace

FilePages::FilePages(QWidget* parent) : QTabWidget(parent) {
    id3v2_ = new controls::ID3v2;
    id3v2_->Mode(controls::EID3v2Apperance::v2aWide);
    id3v2_->AllowAnyGenre();
    id3v1_ = new controls::ID3v1;
    id3v1_->setMaximumWidth(kRecordWidth * fontMetrics().averageCharWidth());
    lyrics_ = new controls::Lyrics;
    technical_ = new TechnicalView;
    xml_ = new XmlView;
    addTab(scrolled(id3v2_), tr("ID3v2"));
    addTab(scrolled(id3v1_), tr("ID3v1"));
    addTab(scrolled(lyrics_), tr("Lyrics3"));
    addTab(technical_, tr("File and audio"));
    addTab(xml_, tr("XML"));
    connect(id3v1_, &controls::ID3v1::edited, this, [this] { takeId3v1(); });
    connect(id3v1_, &controls::ID3v1::tagRequestChanged, this, [this] { takeId3v1(); });
    connect(id3v2_, &controls::ID3v2::edited, this, [this] { takeId3v2(); });
    connect(id3v2_, &controls::ID3v2::tagRequestChanged, this, [this] { takeId3v2(); });
    clear();
}

// A page may be larger than the window.
QWidget* FilePages::scrolled(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    return area;
}

void FilePages::clear() {
    const QScopedValueRollback showing(showing_, true);
    path_.clear();
    file_.reset();
    shownId3v2_.reset();
    id3v1_->ID3v1xTag(std::shared_ptr<ID3V1Tag>());
    id3v2_->ID3V2Tag(nullptr);
    lyrics_->LyricsTag(nullptr);
    technical_->clear();
    xml_->setFile({});
    setEnabled(false);
}

QString FilePages::showFile(const std::string& path, const FileTags* wanted) {
    // Nothing is emptied before: a field that was disabled on the way would lose the focus.
    const FocusPlace place = path == path_ ? FocusPlace(*this) : FocusPlace();
    const QScopedValueRollback showing(showing_, true);
    try {
        file_ = std::make_unique<OpenedFile>(path);
        path_ = path;
        setEnabled(true);
        show(wanted ? *wanted : file_->tags());
        place.restore();
    } catch (const std::exception& failure) {
        clear();
        return controls::toQt(failure.what());
    }
    return {};
}

void FilePages::show(const FileTags& wanted) {
    wanted_ = wanted;
    id3v1_->ID3v1xTag(makeId3v1Tag(wanted.v1));
    seenId3v1_ = valuesIn(*id3v1_);
    showId3v2(wanted.v2);
    FileHandler& handler = file_->handler();
    lyrics_->LyricsTag(handler.HasLyricsTag() ? handler.LyricsTag() : nullptr);
    // There is no saving of Lyrics3 tags, so there is nothing to ask for.
    lyrics_->findChild<QCheckBox*>(QStringLiteral("chkLyrics"))->setEnabled(false);
    technical_->showFile(handler);
    xml_->setFile(path_);
}

void FilePages::showId3v2(const TagValues& wanted) {
    shownId3v2_ = file_->id3v2Tag(wanted);
    id3v2_->ID3V2Tag(shownId3v2_);
    id3v2_->findChild<controls::PicturePanel*>()->setFolder(folderOf(path_));
    id3v2_->ShownPicture(OpenedFile::pictureOf(*shownId3v2_));
    checkId3v2(wanted.present);
    seenId3v2_ = valuesOf(*shownId3v2_);
    seenId3v2_.picture = id3v2_->ShownPicture();
    seenId3v2_.present = wanted.present;
}

// The control locks its fields while the file is to have no tag. Where it has none, typing into them shall give it one.
void FilePages::checkId3v2(bool wanted) {
    auto* box = id3v2_->findChild<QCheckBox*>(QStringLiteral("chkID3v2"));
    box->setChecked(wanted);
    if (!wanted && !file_->tags().v2.present && box->isEnabledTo(id3v2_)) id3v2_->Locked(false);
}

// A file without a tag has one as long as there is something in it.
void FilePages::followValues(const TagValues& now) {
    if (file_->tags().v2.present || (now.texts == seenId3v2_.texts && now.picture == seenId3v2_.picture)) return;
    const auto isEmpty = [](const std::string& text) { return text.empty(); };
    const bool hasValue =
        now.picture.value_or(nullptr) != nullptr || !std::all_of(now.texts.begin(), now.texts.end(), isEmpty);
    const QScopedValueRollback showing(showing_, true);
    checkId3v2(hasValue);
}

void FilePages::takeId3v1() {
    if (showing_ || !file_) return;
    controls::behindWall("FilePages", [this] {
        const TagValues now = valuesIn(*id3v1_);
        FileTags wanted = wanted_;
        const QString field = carryOver(seenId3v1_, now, wanted.v1);
        seenId3v1_ = now;
        if (!field.isEmpty()) take(wanted, QStringLiteral("v1 ") + field);
    });
}

void FilePages::takeId3v2() {
    if (showing_ || !file_) return;
    controls::behindWall("FilePages", [this] {
        const auto tag = id3v2_->ID3V2Tag();
        TagValues now = valuesOf(*tag);
        now.picture = id3v2_->ShownPicture();
        followValues(now);
        if (!id3v2_->HasTag()) checkId3v2(false);
        now.present = id3v2_->HasTag();
        FileTags wanted = wanted_;
        const QString field = carryOver(seenId3v2_, now, wanted.v2);
        seenId3v2_ = now;
        if (!field.isEmpty()) take(wanted, QStringLiteral("v2 ") + field);
    });
}

void FilePages::take(const FileTags& wanted, const QString& field) {
    wanted_ = wanted;
    Q_EMIT edited(wanted_, field);
}

} // namespace corvane::editor
