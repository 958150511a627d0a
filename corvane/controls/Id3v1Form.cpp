#include "corvane/controls/Id3v1Form.h"

#include "corvane/controls/Id3v1Rules.h"

#include <QHBoxLayout>
#include <QRegularExpressionValidator>

namespace corvane::controls {

namespace {

constexpr const char* kTrackOfRecord = "[01]?[0-9]{0,2}|2[0-4][0-9]|25[0-5]"; // 0 to 255

void fitTo(QLineEdit& box, const QString& longest) {
    const int frame = box.sizeHint().height(); // room for margins and the cursor
    box.setFixedWidth(box.fontMetrics().horizontalAdvance(longest) + frame);
}

} // namespace

Id3v1Form::Id3v1Form(QWidget& editor) : editor_(editor) {
    chkID3v1 = new QCheckBox(tr("ID3v&1 tag"), &editor);
    chkID3v1->setObjectName(QStringLiteral("chkID3v1"));
    cmdPrevious = arrow("cmdPrevious", Qt::LeftArrow, tr("Previous tag"));
    lblPosition = new QLabel(&editor);
    lblPosition->setObjectName(QStringLiteral("lblPosition"));
    cmdNext = arrow("cmdNext", Qt::RightArrow, tr("Next tag"));

    txtTitle = box("txtTitle", tr("Title"));
    txtArtist = box("txtArtist", tr("Artist"));
    txtAlbum = box("txtAlbum", tr("Album"));
    txtYear = box("txtYear", tr("Year"));
    txtTrack = box("txtTrack", tr("Track"));
    txtTrack->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QLatin1String(kTrackOfRecord)), txtTrack));
    cmbGenre = new GenreBox(&editor);
    txtComment = box("txtComment", tr("Comment"));

    titleLimit = new FieldLimit(*txtTitle, kTextLimit, &editor);
    artistLimit = new FieldLimit(*txtArtist, kTextLimit, &editor);
    albumLimit = new FieldLimit(*txtAlbum, kTextLimit, &editor);
    yearLimit = new FieldLimit(*txtYear, kYearLimit, &editor);
    commentLimit = new FieldLimit(*txtComment, controls::commentLimit(0), &editor);

    editMenu = new EditMenu(editor);
    for (QLineEdit* field : textBoxes()) editMenu->attach(*field);
    fields = {TrackedField(*txtTitle), TrackedField(*txtArtist), TrackedField(*txtAlbum),  TrackedField(*txtYear),
              TrackedField(*cmbGenre), TrackedField(*txtTrack),  TrackedField(*txtComment)};
    layOut();
    orderTabs();
}

QLineEdit* Id3v1Form::box(const char* name, const QString& accessibleName) {
    auto* made = new QLineEdit(&editor_);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(accessibleName);
    return made;
}

QToolButton* Id3v1Form::arrow(const char* name, Qt::ArrowType type, const QString& text) {
    auto* button = new QToolButton(&editor_);
    button->setObjectName(QLatin1String(name));
    button->setArrowType(type);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(text);
    button->setToolTip(text);
    return button;
}

QLabel* Id3v1Form::label(const QString& text, QWidget& field) {
    auto* made = new QLabel(text, &editor_);
    made->setBuddy(&field);
    return made;
}

void Id3v1Form::layOut() {
    auto* grid = new QGridLayout(&editor_);
    grid->addLayout(head(), 0, 0, 1, 3);
    addRow(*grid, tr("&Title"), *txtTitle, *titleLimit);
    addRow(*grid, tr("&Artist"), *txtArtist, *artistLimit);
    addRow(*grid, tr("Al&bum"), *txtAlbum, *albumLimit);
    int row = grid->rowCount();
    grid->addWidget(label(tr("&Year"), *txtYear), row, 0);
    grid->addLayout(yearAndTrack(), row, 1);
    grid->addWidget(label(tr("&Genre"), *cmbGenre), ++row, 0);
    grid->addWidget(cmbGenre, row, 1);
    grid->addWidget(&cmbGenre->byteLabel(), row, 2);
    addRow(*grid, tr("&Comment"), *txtComment, *commentLimit);
    grid->setColumnStretch(1, 1);
    grid->setColumnMinimumWidth(1, editor_.fontMetrics().averageCharWidth() * kTextLimit);
    grid->setRowStretch(grid->rowCount(), 1);
}

void Id3v1Form::addRow(QGridLayout& grid, const QString& text, QLineEdit& field, FieldLimit& limit) {
    const int row = grid.rowCount();
    grid.addWidget(label(text, field), row, 0);
    grid.addWidget(&field, row, 1);
    grid.addWidget(&limit, row, 2);
}

QLayout* Id3v1Form::head() const {
    auto* row = new QHBoxLayout;
    row->addWidget(chkID3v1);
    row->addStretch();
    row->addWidget(cmdPrevious);
    row->addWidget(lblPosition);
    row->addWidget(cmdNext);
    return row;
}

QLayout* Id3v1Form::yearAndTrack() {
    auto* row = new QHBoxLayout;
    fitToFont();
    row->addWidget(txtYear);
    row->addWidget(yearLimit);
    row->addStretch();
    row->addWidget(label(tr("Trac&k"), *txtTrack));
    row->addWidget(txtTrack);
    return row;
}

void Id3v1Form::fitToFont() const {
    fitTo(*txtYear, QStringLiteral("000000"));
    fitTo(*txtTrack, QStringLiteral("0000"));
}

void Id3v1Form::orderTabs() const {
    const std::array<QWidget*, 10> order{chkID3v1, cmdPrevious, cmdNext,  txtTitle, txtArtist,
                                         txtAlbum, txtYear,     txtTrack, cmbGenre, txtComment};
    for (std::size_t offset = 1; offset < order.size(); ++offset) {
        QWidget::setTabOrder(order[offset - 1], order[offset]);
    }
}

void Id3v1Form::showPosition(std::size_t offset, std::size_t count, bool isStepping) const {
    lblPosition->setText(count == 0 ? tr("no tag") : tr("%1 of %2").arg(offset + 1).arg(count));
    cmdPrevious->setEnabled(offset > 0);
    cmdNext->setEnabled(offset + 1 < count);
    for (QWidget* part :
         {static_cast<QWidget*>(cmdPrevious), static_cast<QWidget*>(lblPosition), static_cast<QWidget*>(cmdNext)}) {
        part->setVisible(isStepping);
    }
}

} // namespace corvane::controls
