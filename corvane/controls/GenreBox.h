// The list of genres to choose from: the genre table in its order, each item with its name as text and its number as
// data, and beside it a label with the number of the chosen genre.
#pragma once

#include <QComboBox>
#include <QLabel>
#include <cstdint>
#include <optional>

namespace corvane {
class Genres;
}

namespace corvane::controls {

inline constexpr std::uint8_t kUndefinedGenreNumber = 255;

class GenreBox : public QComboBox {
    Q_OBJECT

public:
    // Makes the list ("cmbGenre") and its label ("lblGenreByte"), both children of the parent.
    explicit GenreBox(QWidget* parent);

    QLabel& byteLabel() const { return *byteLabel_; }

    // The number in the label; 255 when it shows none.
    std::uint8_t genre() const;
    // Shows a number and selects its name as a list of genres has it; a number without a name selects nothing.
    void showGenre(std::uint8_t genre, const Genres& names);
    // Selects nothing and empties the label. A text that is no item of the list is still seen in its place.
    void clearGenre(const QString& ownText = {});

    // Lets the user type any text, which is no number then unless the list has it as a name.
    void allowAnyText();
    // What the user has typed, or the text that clearGenre was given, while the label shows no number; "" otherwise. A
    // list that takes no text has none.
    QString ownText() const;

    // A locked list shows its genre and lets nobody choose.
    bool isLocked() const { return locked_; }
    void setLocked(bool locked);

Q_SIGNALS:
    // The genre was chosen or typed, by the user or by a program that selects an item; choosing the same one again
    // counts.
    void genreChosen();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void fill();
    enum class Told : std::uint8_t { Change, Activation };
    void choose(Told told);
    void takeText(const QString& text);
    void showNumber(std::optional<int> number);

    QLabel* byteLabel_; // a child of the same parent
    bool locked_ = false;
    bool changeTold_ = false; // the last choice was told as a change
    bool showing_ = false;    // a genre is being shown, which is no choice
};

} // namespace corvane::controls
