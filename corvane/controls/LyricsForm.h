// The child widgets of the Lyrics editor, by their names, and where they stand.
#pragma once

#include "corvane/controls/EditMenu.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <array>

namespace corvane::controls {

class LyricsForm {
    Q_DECLARE_TR_FUNCTIONS(LyricsForm)

public:
    // Makes the widgets, all of them children of the editor.
    explicit LyricsForm(QWidget& editor);

    std::array<QLineEdit*, 4> lines() const { return {txtTitle, txtArtist, txtAlbum, txtAuthor}; }
    std::array<QWidget*, 5> fields() const { return {txtTitle, txtArtist, txtAlbum, txtAuthor, txtLyrics}; }

    QCheckBox* chkLyrics;
    QLineEdit *txtTitle, *txtArtist, *txtAlbum, *txtAuthor;
    QPlainTextEdit* txtLyrics;
    EditMenu* editMenu;

private:
    QLineEdit* box(const char* name, const QString& accessibleName);
    void addRow(QGridLayout& grid, const QString& text, QWidget& field);

    QWidget& editor_;
};

} // namespace corvane::controls
