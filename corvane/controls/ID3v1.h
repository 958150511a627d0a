// Editor of an ID3v1 or ID3v1.1 tag, or of several at once. It shows and collects values; the host asks what the user
// wants (saveTag, removeTag) and writes the file itself, through FileHandler.
//
// With one tag (temEditSingle) a tag that is given takes the place of the one before. With many (temEditMany) tags are
// added to those that are held, and a field counts for all of them once the user has edited it: then its Changed flag
// is true and its grey background white. An edited field keeps its text while the user steps through the tags. Giving
// nothing forgets all tags and all edits.
//
// Texts are UTF-8 here, as everywhere in the library, and QString in the properties of the same names. A text of any
// length can be edited; a field that will be cut in the record says so beside it.
#pragma once

#include "corvane/controls/ControlEnumerations.h"
#include "corvane/controls/Export.h"
#include "corvane/id3v1/ID3V1Tag.h"

#include <QMenu>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

class QLineEdit;

namespace corvane::controls {

class Id3v1Form;
enum class Id3v1Field : std::uint8_t;
class Id3v1Tags;

class CORVANE_CONTROLS_EXPORT ID3v1 : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString Title READ titleText WRITE setTitleText)
    Q_PROPERTY(QString Artist READ artistText WRITE setArtistText)
    Q_PROPERTY(QString Album READ albumText WRITE setAlbumText)
    Q_PROPERTY(QString Year READ yearText WRITE setYearText)
    Q_PROPERTY(int Genre READ genreNumber WRITE setGenreNumber)
    Q_PROPERTY(int Track READ trackNumber WRITE setTrackNumber)
    Q_PROPERTY(QString Comment READ commentText WRITE setCommentText)
    Q_PROPERTY(bool Enabled READ Enabled WRITE Enabled STORED false)
    Q_PROPERTY(bool Locked READ Locked WRITE Locked)
    Q_PROPERTY(bool TitleChanged READ TitleChanged)
    Q_PROPERTY(bool ArtistChanged READ ArtistChanged)
    Q_PROPERTY(bool AlbumChanged READ AlbumChanged)
    Q_PROPERTY(bool YearChanged READ YearChanged)
    Q_PROPERTY(bool GenreChanged READ GenreChanged)
    Q_PROPERTY(bool TrackChanged READ TrackChanged)
    Q_PROPERTY(bool CommentChanged READ CommentChanged)
    Q_PROPERTY(int TagCount READ TagCount)
    Q_PROPERTY(corvane::controls::ETagEditModeConstants VisibilityMode READ VisibilityMode WRITE VisibilityMode)
    Q_PROPERTY(bool removeTag READ removeTag NOTIFY tagRequestChanged)
    Q_PROPERTY(bool saveTag READ saveTag NOTIFY tagRequestChanged)
    Q_PROPERTY(bool HasTag READ HasTag NOTIFY tagRequestChanged)

public:
    // An editor without a tag, for one tag.
    explicit ID3v1(QWidget* parent = nullptr);
    ~ID3v1() override;

    // What the fields show. Writing one is no edit by the user: its Changed flag stays.
    std::string Title() const;
    void Title(std::string_view value);
    std::string Artist() const;
    void Artist(std::string_view value);
    std::string Album() const;
    void Album(std::string_view value);
    std::string Year() const;
    void Year(std::string_view value);
    std::uint8_t Genre() const; // 255 when no genre is shown
    void Genre(std::uint8_t value);
    std::int16_t Track() const; // 0 when no number is shown
    void Track(std::int16_t value);
    std::string Comment() const;
    void Comment(std::string_view value);

    // Shows a tag, see above.
    void ID3v1xTag(std::shared_ptr<ID3V1Tag> tag);
    // A new tag made of the fields. Its type is the one whose record keeps them: ID3v1.1 with a track, plain ID3v1
    // without; ID3Unknown when the user wants no tag, so that writing it is refused.
    std::shared_ptr<ID3V1Tag> ID3v1xTag() const;

    // Empties all fields. The tags stay.
    void Clear();

    // The widget as a whole.
    bool Enabled() const;
    void Enabled(bool value);
    // Keeps the texts and the genre from being changed by the user; they can be selected and copied.
    bool Locked() const;
    void Locked(bool value);

    // Whether the user has edited the field in many-tags mode since VisibilityMode was set or the tags were forgotten.
    bool TitleChanged() const;
    bool ArtistChanged() const;
    bool AlbumChanged() const;
    bool YearChanged() const;
    bool GenreChanged() const;
    bool TrackChanged() const;
    bool CommentChanged() const;

    // How many tags are held.
    std::int32_t TagCount() const;

    // Reading tells the title's background: once the user has edited the title, the mode reads as temEditSingle. Hosts
    // rely on that.
    ETagEditModeConstants VisibilityMode() const;
    // Makes every field an untouched one of that mode and shows the tag anew.
    void VisibilityMode(ETagEditModeConstants value);

    bool removeTag() const; // the user wants the file's tag to be removed
    bool saveTag() const;   // the user wants the tag to be saved
    bool HasTag() const;    // the box "ID3v1 tag" is checked

public Q_SLOTS:
    // Shows a menu where the mouse pointer is.
    void PopupMenu(QMenu* menu);

Q_SIGNALS:
    // The user has changed a field, in either mode.
    void edited();
    // HasTag, saveTag and removeTag may answer something else now.
    void tagRequestChanged();

protected:
    // Keeps the fields in step with the widget's own state.
    void changeEvent(QEvent* event) override;

private:
    QString titleText() const;
    void setTitleText(const QString& text);
    QString artistText() const;
    void setArtistText(const QString& text);
    QString albumText() const;
    void setAlbumText(const QString& text);
    QString yearText() const;
    void setYearText(const QString& text);
    QString commentText() const;
    void setCommentText(const QString& text);
    int genreNumber() const { return Genre(); }
    void setGenreNumber(int number);
    int trackNumber() const { return Track(); }
    void setTrackNumber(int number);

    void showText(QLineEdit& box, std::string_view text);
    void watch(Id3v1Field field, QLineEdit& box);
    void noteEdit(Id3v1Field field);
    void forgetEdits();
    enum class Step : std::uint8_t { Next, Previous };
    void step(Step direction);
    void showTag();
    void fill(const ID3V1Tag& tag);
    void check();
    void enableFields();

    std::unique_ptr<Id3v1Form> form_;
    std::unique_ptr<Id3v1Tags> tags_;
    ETagEditModeConstants mode_ = ETagEditModeConstants::temEditSingle;
    bool showing_ = false; // fields are being filled, which is no edit
};

} // namespace corvane::controls
