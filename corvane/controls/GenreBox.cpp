#include "corvane/controls/GenreBox.h"

#include "corvane/controls/FailureWall.h"
#include "corvane/controls/Text.h"
#include "corvane/id3v1/Genres.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <string>

namespace corvane::controls {

namespace {

// Whether an event may change the choice. Looking (the pointer enters, the focus moves on) may not.
bool isChoosing(const QEvent& event) {
    switch (event.type()) {
    case QEvent::KeyPress: {
        const int key = static_cast<const QKeyEvent&>(event).key();
        return key != Qt::Key_Tab && key != Qt::Key_Backtab;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

} // namespace

GenreBox::GenreBox(QWidget* parent) : QComboBox(parent), byteLabel_(new QLabel(parent)) {
    setObjectName(QStringLiteral("cmbGenre"));
    setAccessibleName(tr("Genre"));
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(16);
    byteLabel_->setObjectName(QStringLiteral("lblGenreByte"));
    byteLabel_->setAccessibleName(tr("Genre number"));
    byteLabel_->setToolTip(tr("Genre number"));
    byteLabel_->setMinimumWidth(byteLabel_->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    fill();
    clearGenre();
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::currentIndexChanged, this, [this] { choose(Told::Change); });
    connect(this, &QComboBox::activated, this, [this] { choose(Told::Activation); });
}

void GenreBox::fill() {
    for (const auto& genre : Genres()) addItem(toQt(genre->Description()), int{genre->Num()});
}

std::uint8_t GenreBox::genre() const {
    bool isNumber = false;
    const int number = byteLabel_->text().toInt(&isNumber);
    return isNumber && number >= 0 && number <= UINT8_MAX ? static_cast<std::uint8_t>(number) : kUndefinedGenreNumber;
}

void GenreBox::showNumber(std::optional<int> number) {
    byteLabel_->setText(number ? QString::number(*number) : QString());
}

void GenreBox::showGenre(std::uint8_t genre, const Genres& names) {
    clearGenre();
    const QScopedValueRollback showing(showing_, true);
    const auto entry = names.getGenreByID(std::to_string(genre));
    setCurrentIndex(entry ? findText(toQt(entry->Description()), Qt::MatchExactly | Qt::MatchCaseSensitive) : -1);
    showNumber(genre);
}

// A list without any such text would select its first item instead of none.
void GenreBox::clearGenre(const QString& ownText) {
    changeTold_ = false;
    const QScopedValueRollback showing(showing_, true);
    setPlaceholderText(ownText.isEmpty() || isEditable() ? QStringLiteral(" ") : ownText);
    setCurrentIndex(-1);
    if (isEditable()) setEditText(ownText);
    showNumber(std::nullopt);
}

void GenreBox::setLocked(bool locked) {
    locked_ = locked;
    if (isEditable()) lineEdit()->setReadOnly(locked);
}

// --- any text

void GenreBox::allowAnyText() {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    completer()->setCompletionMode(QCompleter::PopupCompletion);
    lineEdit()->setReadOnly(locked_);
    lineEdit()->setObjectName(QStringLiteral("txtGenre"));
    lineEdit()->setAccessibleName(accessibleName());
    connect(lineEdit(), &QLineEdit::textEdited, this, &GenreBox::takeText);
}

QString GenreBox::ownText() const { return isEditable() && byteLabel_->text().isEmpty() ? currentText() : QString(); }

void GenreBox::takeText(const QString& text) {
    if (showing_) return;
    behindWall("GenreBox", [&] {
        const int at = findText(text.trimmed(), Qt::MatchFixedString); // in any case
        showNumber(at < 0 ? std::nullopt : std::optional(itemData(at).toInt()));
        Q_EMIT genreChosen();
    });
}

// A choice of another item is told twice, as change and as activation, that of the current item as activation only.
void GenreBox::choose(Told told) {
    if (showing_) return;
    const bool again = told == Told::Activation && changeTold_;
    changeTold_ = told == Told::Change;
    if (again) return;
    behindWall("GenreBox", [this] {
        showNumber(currentIndex() < 0 ? std::nullopt : std::optional(currentData().toInt()));
        Q_EMIT genreChosen();
    });
}

// Styles shade a list as a button, which may turn the grey of an untouched field into white. With a background of its
// own it shows exactly that one behind its text, as a text box does.
void GenreBox::paintEvent(QPaintEvent* event) {
    QComboBox::paintEvent(event);
    if (!testAttribute(Qt::WA_SetPalette) || isEditable()) return;
    QStyleOptionComboBox option;
    initStyleOption(&option);
    if (currentIndex() < 0) option.currentText = placeholderText();
    QStylePainter painter(this);
    painter.fillRect(style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this),
                     option.palette.button());
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

// Nothing chooses in a locked list, and the wheel does not choose in one that only happens to be under the pointer.
bool GenreBox::event(QEvent* event) {
    const bool refused = locked_ ? isChoosing(*event) : event->type() == QEvent::Wheel && !hasFocus();
    if (!refused) return QComboBox::event(event);
    event->ignore();
    return true;
}

} // namespace corvane::controls
