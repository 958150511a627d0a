// The child widgets of the ID3v1 editor, by their names, and where they stand.
#pragma once

#include "corvane/controls/EditMenu.h"
#include "corvane/controls/FieldLimit.h"
#include "corvane/controls/GenreBox.h"
#include "corvane/controls/TrackedField.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <array>
#include <cstddef>
#include <cstdint>

namespace corvane::controls {

enum class Id3v1Field : std::uint8_t { Title, Artist, Album, Year, Genre, Track, Comment };
inline constexpr std::size_t kId3v1FieldCount = 7;

class Id3v1Form {
    Q_DECLARE_TR_FUNCTIONS(Id3v1Form)

public:
    // Makes the widgets, all of them children of the editor.
    explicit Id3v1Form(QWidget& editor);

    std::array<QLineEdit*, 6> textBoxes() const {
        return {txtTitle, txtArtist, txtAlbum, txtYear, txtTrack, txtComment};
    }
    // Shows "2 of 5" and offers what can be reached; nothing of it where there is nothing to step through.
    void showPosition(std::size_t offset, std::size_t count, bool isStepping) const;

    // Makes the boxes of the short numbers as wide as these are in the font of the boxes.
    void fitToFont() const;

    TrackedField& field(Id3v1Field field) { return fields[static_cast<std::size_t>(field)]; }

    QCheckBox* chkID3v1;
    QToolButton *cmdPrevious, *cmdNext;
    QLabel* lblPosition;
    QLineEdit *txtTitle, *txtArtist, *txtAlbum, *txtYear, *txtTrack, *txtComment;
    GenreBox* cmbGenre;
    FieldLimit *titleLimit, *artistLimit, *albumLimit, *yearLimit, *commentLimit;
    EditMenu* editMenu;
    std::array<TrackedField, kId3v1FieldCount> fields; // by Id3v1Field

private:
    QLineEdit* box(const char* name, const QString& accessibleName);
    QToolButton* arrow(const char* name, Qt::ArrowType type, const QString& text);
    QLabel* label(const QString& text, QWidget& field);
    void layOut();
    void addRow(QGridLayout& grid, const QString& text, QLineEdit& field, FieldLimit& limit);
    QLayout* head() const;
    QLayout* yearAndTrack();
    void orderTabs() const;

    QWidget& editor_;
};

} // namespace corvane::controls
