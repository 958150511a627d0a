#include "corvane/controls/Id3v2Form.h"

#include "corvane/controls/EditBox.h"
#include "corvane/controls/FieldColour.h"
#include "corvane/controls/PaletteWatch.h"

#include <QHBoxLayout>
#include <QRegularExpressionValidator>
#include <vector>

namespace corvane::controls {

using namespace text_row;

namespace {

QLabel* namedLabel(QWidget& parent, const char* name) {
    auto* made = new QLabel(&parent);
    made->setObjectName(QLatin1String(name));
    made->setTextFormat(Qt::PlainText);
    return made;
}

} // namespace

Id3v2Form::Id3v2Form(QWidget& editor) : grid_(new QGridLayout(&editor)) {
    grpHead = new QWidget(&editor);
    grpTop = new QWidget(&editor);
    grpTop->setObjectName(QStringLiteral("grpTop"));
    chkID3v2 = new QCheckBox(tr("ID3v&2 tag"), grpHead);
    chkID3v2->setObjectName(QStringLiteral("chkID3v2"));
    lblVersion = namedLabel(*grpHead, "lblVersion");
    lblSize = namedLabel(*grpHead, "lblSize");
    lblNotice = new WarningLabel(&editor);
    lblNotice->setObjectName(QStringLiteral("lblNotice"));
    lblNotice->setTextFormat(Qt::PlainText);
    lblNotice->setWordWrap(true);
    lblNotice->hide();
    grpPicture = new PicturePanel(&editor);
    grpBottom = new LyricsPanel(&editor);
    lvwFrames = new FrameList(&editor);
    makeBoxes();
    cmbGenre = new GenreBox(grpTop);
    editMenu = new EditMenu(editor);
    for (QWidget* box : boxes) editMenu->attach(*box);
    layOutHead();
    layOutTop();
    arrange(EID3v2Apperance::v2aDefault);
    orderTabs();
    paletteWatch_ = std::make_unique<PaletteWatch>(editor, [this] { paintFields(); });
}

void Id3v2Form::makeBoxes() {
    for (std::size_t at = 0; at < Lyrics; ++at) {
        boxes[at] = new QLineEdit(grpTop);
        boxes[at]->setObjectName(QLatin1String(kId3v2Texts[at].box));
    }
    boxes[Lyrics] = grpBottom->txtLyrics;
    boxes[SyncedLyrics] = grpBottom->txtSyncedLyrics;
    auto* year = static_cast<QLineEdit*>(boxes[Year]);
    year->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,4}")), year));
}

void Id3v2Form::layOutHead() const {
    auto* row = new QHBoxLayout(grpHead);
    row->setContentsMargins({});
    row->addWidget(chkID3v2);
    row->addStretch();
    row->addWidget(lblVersion);
    row->addSpacing(row->spacing());
    row->addWidget(lblSize);
}

void Id3v2Form::layOutTop() {
    auto* grid = new QGridLayout(grpTop);
    grid->setContentsMargins({});
    addRow(*grid, tr("&Title"), Title);
    addRow(*grid, tr("&Artist"), Artist);
    addRow(*grid, tr("Al&bum"), Album);
    const int row = grid->rowCount();
    grid->addWidget(label(tr("Yea&r"), *boxes[Year]), row, 0);
    grid->addWidget(boxes[Year], row, 1);
    grid->addWidget(label(tr("Trac&k"), *boxes[Track]), row, 2);
    grid->addWidget(boxes[Track], row, 3, 1, 2);
    boxes[Year]->setAccessibleName(tr("Year"));
    boxes[Track]->setAccessibleName(tr("Track"));
    grid->addWidget(label(tr("&Genre"), *cmbGenre), row + 1, 0);
    grid->addWidget(cmbGenre, row + 1, 1, 1, 3);
    grid->addWidget(&cmbGenre->byteLabel(), row + 1, 4);
    addRow(*grid, tr("&Comment"), Comment);
    addRow(*grid, tr("Co&mposer"), Composer);
    addRow(*grid, tr("Or&iginal artist"), OriginalArtist);
    addRow(*grid, tr("Co&pyright"), Copyright);
    addRow(*grid, tr("&URL"), Url);
    addRow(*grid, tr("Enco&ded by"), EncodedBy);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(grid->rowCount(), 1);
}

void Id3v2Form::addRow(QGridLayout& grid, const QString& text, std::size_t at) {
    const int row = grid.rowCount();
    grid.addWidget(label(text, *boxes[at]), row, 0);
    grid.addWidget(boxes[at], row, 1, 1, 4);
    boxes[at]->setAccessibleName(QString(text).remove('&'));
}

QLabel* Id3v2Form::label(const QString& text, QWidget& field) const {
    auto* made = new QLabel(text, grpTop);
    made->setBuddy(&field);
    return made;
}

void Id3v2Form::arrange(EID3v2Apperance mode) {
    const bool wide = mode == EID3v2Apperance::v2aWide;
    for (QWidget* part : {grpHead, static_cast<QWidget*>(lblNotice), grpTop, static_cast<QWidget*>(grpPicture),
                          static_cast<QWidget*>(grpBottom), static_cast<QWidget*>(lvwFrames)}) {
        grid_->removeWidget(part);
    }
    const int columns = wide ? 3 : 2;
    grid_->addWidget(grpHead, 0, 0, 1, columns);
    grid_->addWidget(lblNotice, 1, 0, 1, columns);
    grid_->addWidget(grpTop, 2, 0);
    grid_->addWidget(grpPicture, 2, 1);
    grid_->addWidget(grpBottom, wide ? 2 : 3, wide ? 2 : 0, 1, wide ? 1 : 2);
    grid_->addWidget(lvwFrames, 4, 0, 1, columns);
    grid_->setColumnStretch(0, 3);
    grid_->setColumnStretch(1, 2);
    grid_->setColumnStretch(2, wide ? 3 : 0);
    grid_->setRowStretch(2, wide ? 3 : 0);
    grid_->setRowStretch(3, wide ? 0 : 2);
    grid_->setRowStretch(4, 2);
}

void Id3v2Form::orderTabs() const {
    std::vector<QWidget*> order{chkID3v2};
    for (const std::size_t at : {Title, Artist, Album, Year, Track}) order.push_back(boxes[at]);
    order.push_back(cmbGenre);
    for (const std::size_t at : {Comment, Composer, OriginalArtist, Copyright, Url, EncodedBy}) {
        order.push_back(boxes[at]);
    }
    for (QWidget* last : {static_cast<QWidget*>(grpPicture->loadButton()),
                          static_cast<QWidget*>(grpPicture->clearButton()), static_cast<QWidget*>(grpBottom->sstLyrics),
                          boxes[Lyrics], boxes[SyncedLyrics], static_cast<QWidget*>(lvwFrames)}) {
        order.push_back(last);
    }
    for (std::size_t at = 1; at < order.size(); ++at) QWidget::setTabOrder(order[at - 1], order[at]);
}

void Id3v2Form::setFieldsEnabled(bool enabled) {
    editMenu->close();
    for (QWidget* box : boxes) box->setEnabled(enabled);
    cmbGenre->setEnabled(enabled);
    cmbGenre->byteLabel().setEnabled(enabled);
}

void Id3v2Form::setFieldsLocked(bool locked) {
    locked_ = locked;
    paintFields();
    cmbGenre->setLocked(locked);
}

// What cannot be edited looks like it.
void Id3v2Form::lock(std::size_t at) {
    const bool isLocked = locked_ || cut_[at];
    boxes[at]->setProperty("readOnly", isLocked);
    setShade(*boxes[at], isLocked ? Shade::ButtonFace : Shade::Window);
}

void Id3v2Form::paintFields() {
    for (std::size_t at = 0; at < boxes.size(); ++at) lock(at);
    if (QLineEdit* genre = cmbGenre->lineEdit()) setShade(*genre, locked_ ? Shade::ButtonFace : Shade::Window);
}

void Id3v2Form::tell(const QString& notice) const {
    lblNotice->setText(notice);
    lblNotice->setVisible(!notice.isEmpty());
}

QString Id3v2Form::text(std::size_t at) const { return EditBox(boxes[at]).text(); }

void Id3v2Form::setText(std::size_t at, const QString& text) {
    if (auto* line = qobject_cast<QLineEdit*>(boxes[at])) {
        line->setText(text);
        line->setCursorPosition(0);
        cut_[at] = text.size() > line->maxLength();
        line->setToolTip(cut_[at] ? tr("This text is too long to be edited here.") : QString());
        line->setAccessibleDescription(line->toolTip());
        lock(at);
    } else {
        static_cast<QPlainTextEdit*>(boxes[at])->setPlainText(text);
    }
}

} // namespace corvane::controls
