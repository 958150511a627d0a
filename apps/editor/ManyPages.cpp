#include "apps/editor/ManyPages.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/PicturePanel.h"
#include "corvane/controls/Text.h"
#include "corvane/id3v1/GenreTable.h"
#include "corvane/id3v2/ReadableGenre.h"

#include "apps/editor/ControlValues.h"
#include "apps/editor/FileName.h"
#include "apps/editor/FocusPlace.h"
#include "apps/editor/Tools.h"

#include <QCheckBox>
#include <QCompleter>
#include <QEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

namespace corvane::editor {

using controls::fromQt;
using controls::Shade;
using controls::toQt;

namespace {

// What a file has in a field, in whichever tag.
std::string commonText(const FileTags& tags, Field field) {
    std::string text = tags.v2.present ? tags.v2[field] : std::string();
    if (text.empty() && tags.v1.present) text = tags.v1[field];
    return field == Field::Genre ? readableGenre(text) : text;
}

constexpr int kManyRecordWidth = 80; // letters; a record's texts have 30 characters

struct Id3v1Flag {
    Field field;
    bool (controls::ID3v1::*isChanged)() const;
};

constexpr std::array<Id3v1Flag, kCommonFieldCount> kId3v1Flags{{
    {Field::Title, &controls::ID3v1::TitleChanged},
    {Field::Artist, &controls::ID3v1::ArtistChanged},
    {Field::Album, &controls::ID3v1::AlbumChanged},
    {Field::Year, &controls::ID3v1::YearChanged},
    {Field::Track, &controls::ID3v1::TrackChanged},
    {Field::Genre, &controls::ID3v1::GenreChanged},
    {Field::Comment, &controls::ID3v1::CommentChanged},
}};

QScrollArea* scrolled(QWidget* page) {
    auto* area = new QScrollArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    return area;
}

} // namespace

ManyPages::ManyPages(EditSession& session, QWidget* parent) : QTabWidget(parent), session_(session) {
    addTab(scrolled(makeCommonPage()), tr("All tags"));
    id3v1_ = new controls::ID3v1;
    id3v1_->setMaximumWidth(kManyRecordWidth * fontMetrics().averageCharWidth());
    id3v1_->VisibilityMode(controls::ETagEditModeConstants::temEditMany);
    addTab(scrolled(id3v1_), tr("ID3v1"));
    connect(id3v1_, &controls::ID3v1::edited, this, [this] { takeId3v1(); });
    connect(id3v1_->findChild<QCheckBox*>(QStringLiteral("chkID3v1")), &QCheckBox::clicked, this,
            [this](bool on) { wantId3v1(on); });
    connect(this, &QTabWidget::currentChanged, this, [this] { showId3v1(); });
}

// --- page of what the files have in common

QWidget* ManyPages::makeCommonPage() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    summary_ = new QLabel(page);
    summary_->setObjectName(QStringLiteral("manySummary"));
    summary_->setWordWrap(true);
    grid->addWidget(summary_, 0, 0, 1, 5);
    addRow(*grid, 1, 0, tr("&Title"), Field::Title);
    addRow(*grid, 2, 0, tr("&Artist"), Field::Artist);
    addRow(*grid, 3, 0, tr("Al&bum"), Field::Album);
    addRow(*grid, 4, 0, tr("Yea&r"), Field::Year);
    addRow(*grid, 5, 0, tr("Trac&k"), Field::Track);
    addRow(*grid, 6, 0, tr("&Genre"), Field::Genre);
    addRow(*grid, 1, 2, tr("&Comment"), Field::Comment);
    addRow(*grid, 2, 2, tr("Co&mposer"), Field::Composer);
    addRow(*grid, 3, 2, tr("Or&iginal artist"), Field::OriginalArtist);
    addRow(*grid, 4, 2, tr("Cop&yright"), Field::Copyright);
    addRow(*grid, 5, 2, tr("&URL"), Field::Url);
    addRow(*grid, 6, 2, tr("Enco&ded by"), Field::EncodedBy);
    grid->addWidget(makePictureBox(), 1, 4, 8, 1);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(3, 3);
    grid->setColumnStretch(4, 2);
    grid->setRowStretch(8, 1);
    return page;
}

void ManyPages::addRow(QGridLayout& grid, int row, int column, const QString& text, Field field) {
    QWidget* widget = field == Field::Genre ? makeGenreBox() : makeTextBox(field);
    auto* label = new QLabel(text);
    label->setBuddy(widget);
    widget->setAccessibleName(QString(text).remove(QLatin1Char('&')));
    grid.addWidget(label, row, column);
    grid.addWidget(widget, row, column + 1);
    fields_[static_cast<std::size_t>(field)] = controls::TrackedField(box(field));
    connect(&box(field), &QLineEdit::textChanged, this, [this, field](const QString& now) { noteEdit(field, now); });
}

QWidget* ManyPages::makeTextBox(Field field) {
    auto* made = new QLineEdit;
    made->setObjectName(QStringLiteral("many%1").arg(static_cast<int>(field)));
    boxes_[static_cast<std::size_t>(field)] = made;
    return made;
}

QWidget* ManyPages::makeGenreBox() {
    genre_ = new QComboBox;
    genre_->setEditable(true);
    genre_->setInsertPolicy(QComboBox::NoInsert);
    genre_->setMinimumContentsLength(16);
    genre_->setFocusPolicy(Qt::StrongFocus);
    genre_->installEventFilter(this);
    for (const GenreRow& row : kGenreTable) {
        if (row.number != kUndefinedGenre) genre_->addItem(toQt(row.name));
    }
    genre_->setCurrentIndex(-1);
    genre_->completer()->setCompletionMode(QCompleter::PopupCompletion);
    genre_->lineEdit()->setObjectName(QStringLiteral("many%1").arg(static_cast<int>(Field::Genre)));
    boxes_[static_cast<std::size_t>(Field::Genre)] = genre_->lineEdit();
    return genre_;
}

QWidget* ManyPages::makePictureBox() {
    auto* whole = new QWidget;
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins({});
    picture_ = new controls::PicturePanel(whole);
    picture_->setTitle(tr("New picture for all"));
    auto* removeAll = new QPushButton(tr("Remove the &pictures of all"), whole);
    removeAll->setObjectName(QStringLiteral("removePictures"));
    column->addWidget(picture_, 1);
    column->addWidget(removeAll);
    connect(picture_, &controls::PicturePanel::pictureChanged, this, [this] {
        if (showing_) return;
        const auto wanted = picture_->picture();
        emitEdit([wanted](FileTags tags) { return withPicture(std::move(tags), wanted); }, QStringLiteral("picture"));
    });
    connect(removeAll, &QPushButton::clicked, this, [this] {
        const QScopedValueRollback showing(showing_, true);
        picture_->showPicture(nullptr);
        emitEdit([](FileTags tags) { return withPicture(std::move(tags), nullptr); }, QStringLiteral("picture"));
    });
    return whole;
}

void ManyPages::showFiles(std::vector<std::string> paths) {
    paths_ = std::move(paths);
    refresh();
}

void ManyPages::refresh() {
    const FocusPlace place(*this);
    const QScopedValueRollback showing(showing_, true);
    summary_->setText(
        tr("Files that are edited together: %1. A field is written only when you change it, into the tags "
           "that each file has.")
            .arg(paths_.size()));
    for (std::size_t at = 0; at < kShownFields; ++at) showField(fieldAt(at));
    picture_->showPicture(nullptr);
    picture_->setFolder(paths_.empty() ? QString() : folderOf(paths_.front()));
    isId3v1Shown_ = false;
    showId3v1();
    place.restore();
}

void ManyPages::showField(Field field) {
    std::optional<std::string> common;
    bool isMixed = false;
    for (const std::string& path : paths_) {
        const auto tags = session_.wanted(path);
        if (!tags) continue;
        std::string text = commonText(*tags, field);
        isMixed = common && *common != text;
        if (isMixed) break;
        common = std::move(text);
    }
    QLineEdit& shown = box(field);
    shown.setPlaceholderText(isMixed ? tr("different values") : QString());
    if (field == Field::Genre) genre_->setCurrentIndex(-1);
    shown.setText(isMixed ? QString() : toQt(common.value_or(std::string())));
    shown.setCursorPosition(0);
    fields_[static_cast<std::size_t>(field)].reset(Shade::ButtonFace);
}

void ManyPages::noteEdit(Field field, const QString& text) {
    if (showing_) return;
    fields_[static_cast<std::size_t>(field)].noteEdit();
    box(field).setPlaceholderText(tr("will be emptied"));
    emitEdit([field, wanted = fromQt(text)](FileTags tags) { return withText(std::move(tags), field, wanted); },
             QString::number(static_cast<int>(field)));
}

// The wheel gives no genre to all files when the list only happens to be under the pointer.
bool ManyPages::eventFilter(QObject* watched, QEvent* event) {
    const bool isPassing = watched == genre_ && event->type() == QEvent::Wheel && !genre_->hasFocus();
    if (!isPassing) return QTabWidget::eventFilter(watched, event);
    event->ignore();
    return true;
}

void ManyPages::changeEvent(QEvent* event) {
    QTabWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) paintFields();
}

void ManyPages::paintFields() {
    for (std::size_t at = 0; at < kShownFields; ++at) {
        if (boxes_[at]) fields_[at].paint();
    }
}

void ManyPages::emitEdit(const Tool& tool, const QString& field) {
    controls::behindWall("ManyPages", [&] { Q_EMIT edited(tool, field); });
    if (currentIndex() == 0) isId3v1Shown_ = false; // it will show the new values when it is looked at
}

// --- page of the ID3v1 tags

// The control takes the tags one by one, so they are given only to be looked at.
void ManyPages::showId3v1() {
    if (currentIndex() == 0) {
        if (isId3v1Shown_) refresh(); // back from there
        return;
    }
    if (isId3v1Shown_) return;
    const QScopedValueRollback showing(showing_, true);
    isId3v1Shown_ = true;
    id3v1_->setUpdatesEnabled(false);
    id3v1_->ID3v1xTag(std::shared_ptr<ID3V1Tag>());
    for (const std::string& path : paths_) {
        if (const auto tags = session_.wanted(path)) id3v1_->ID3v1xTag(makeId3v1Tag(tags->v1));
    }
    goToFirst();
    id3v1_->setUpdatesEnabled(true);
    editedId3v1_ = {};
}

// The control shows the tag that it was given last.
void ManyPages::goToFirst() {
    constexpr std::size_t kLimit = 500; // tags; nobody steps through more
    auto* previous = id3v1_->findChild<QToolButton*>(QStringLiteral("cmdPrevious"));
    for (std::size_t step = 1; step < paths_.size() && paths_.size() <= kLimit; ++step) previous->click();
}

void ManyPages::takeId3v1() {
    if (showing_) return;
    const TagValues now = valuesIn(*id3v1_);
    for (const Id3v1Flag& flag : kId3v1Flags) {
        auto& last = editedId3v1_[static_cast<std::size_t>(flag.field)];
        if (!(id3v1_->*flag.isChanged)() || last == now[flag.field]) continue;
        last = now[flag.field];
        emitEdit(
            [field = flag.field, text = *last](FileTags tags) {
                if (tags.v1.present) tags.v1[field] = text;
                return tags;
            },
            QStringLiteral("v1 %1").arg(static_cast<int>(flag.field)));
    }
}

// All records come or go, not only the one that is looked at.
void ManyPages::wantId3v1(bool wanted) {
    emitEdit(
        [wanted](FileTags tags) {
            tags.v1.present = wanted;
            return tags;
        },
        QStringLiteral("v1 present"));
    isId3v1Shown_ = false;
    showId3v1();
}

} // namespace corvane::editor
