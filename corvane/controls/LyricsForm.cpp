#include "corvane/controls/LyricsForm.h"

#include <QLabel>

namespace corvane::controls {

LyricsForm::LyricsForm(QWidget& editor) : editor_(editor) {
    chkLyrics = new QCheckBox(tr("&Lyrics3 tag"), &editor);
    chkLyrics->setObjectName(QStringLiteral("chkLyrics"));
    txtTitle = box("txtTitle", tr("Title"));
    txtArtist = box("txtArtist", tr("Artist"));
    txtAlbum = box("txtAlbum", tr("Album"));
    txtAuthor = box("txtAuthor", tr("Author"));
    txtLyrics = new QPlainTextEdit(&editor);
    txtLyrics->setObjectName(QStringLiteral("txtLyrics"));
    txtLyrics->setAccessibleName(tr("Lyrics"));
    txtLyrics->setTabChangesFocus(true);

    editMenu = new EditMenu(editor);
    for (QWidget* field : fields()) editMenu->attach(*field);

    auto* grid = new QGridLayout(&editor);
    grid->addWidget(chkLyrics, 0, 0, 1, 2);
    addRow(*grid, tr("&Title"), *txtTitle);
    addRow(*grid, tr("&Artist"), *txtArtist);
    addRow(*grid, tr("Al&bum"), *txtAlbum);
    addRow(*grid, tr("A&uthor"), *txtAuthor);
    addRow(*grid, tr("L&yrics"), *txtLyrics);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount() - 1, 1); // the lyrics get the height that is left
}

QLineEdit* LyricsForm::box(const char* name, const QString& accessibleName) {
    auto* made = new QLineEdit(&editor_);
    made->setObjectName(QLatin1String(name));
    made->setAccessibleName(accessibleName);
    return made;
}

void LyricsForm::addRow(QGridLayout& grid, const QString& text, QWidget& field) {
    auto* label = new QLabel(text, &editor_);
    label->setBuddy(&field);
    const int row = grid.rowCount();
    const bool tall = field.sizePolicy().expandingDirections().testFlag(Qt::Vertical);
    grid.addWidget(label, row, 0, tall ? Qt::AlignTop : Qt::AlignVCenter);
    grid.addWidget(&field, row, 1);
}

} // namespace corvane::controls
