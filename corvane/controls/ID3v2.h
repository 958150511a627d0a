// Editor of an ID3v2 tag: its common fields, its picture and its lyrics, and a list of all its frames.
//
// The host gives a tag and gets it back with what the user has changed; everything else in it stays as it was. Saving
// is the host's work (saveTag of the tag), when the control's saveTag tells that the user wants it. A tag that cannot
// be saved says why and is locked.
#pragma once

#include "corvane/controls/ControlEnumerations.h"
#include "corvane/controls/Export.h"
#include "corvane/controls/PropertyBag.h"
#include "corvane/id3v2/ID3V2Tag.h"

#include <QMenu>
#include <QWidget>
#include <any>
#include <memory>

namespace corvane::controls {

class Id3v2Form;
struct Id3v2Values;

class CORVANE_CONTROLS_EXPORT ID3v2 : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE Enabled)
    Q_PROPERTY(bool removeTag READ removeTag NOTIFY tagRequestChanged)
    Q_PROPERTY(bool saveTag READ saveTag NOTIFY tagRequestChanged)
    Q_PROPERTY(bool HasTag READ HasTag NOTIFY tagRequestChanged)
    Q_PROPERTY(corvane::controls::EID3v2Apperance Mode READ Mode WRITE Mode)
    Q_PROPERTY(bool FrameListVisible READ FrameListVisible WRITE FrameListVisible)
    Q_PROPERTY(bool Locked READ Locked WRITE Locked)

public:
    // An editor without a tag, empty and disabled.
    explicit ID3v2(QWidget* parent = nullptr);
    ~ID3v2() override;

    // Empties the fields, the picture, the list and both labels. The tag stays.
    void Clear();

    // The fields and both picture buttons; the check box is not touched.
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);

    // The tag that was given, with what the user has changed written into it; nothing when none was given. Fails with a
    // RuntimeFailure (source "ucID3v2xTag::ID3V2Tag()") when the tag was given as XML, is of an unknown kind, or when
    // the year is no number.
    std::shared_ptr<corvane::ID3V2Tag> ID3V2Tag();
    // Shows a tag: a std::shared_ptr<corvane::ID3V2Tag>, or the XmlNode of a tag's document, which can only be looked
    // at. Nothing, nullptr, empties and disables the editor. Fails with a RuntimeFailure (source
    // "ucID3v2xTag::ID3V2Tag", "Invalid type of tag passed.") for anything else.
    void ID3V2Tag(const std::any& tag);

    // The picture that is shown: the tag's Picture, which is the one without a description, or what the user has put in
    // its place. Nothing for none.
    std::shared_ptr<Picture> ShownPicture() const;
    // Shows another picture, for hosts that choose among those of a tag themselves. Such a host takes what becomes of
    // it from ShownPicture: until the next tag is given, ID3V2Tag leaves the pictures of the tag as they are.
    void ShownPicture(std::shared_ptr<Picture> value);

    // Lets the user type a genre that the list lacks. It is written as it was typed; one of the list is written as
    // number and name, as always.
    void AllowAnyGenre();

    bool removeTag() const; // the user wants the file's tag to be removed
    bool saveTag() const;   // the user wants the tag to be saved
    bool HasTag() const;    // the box "ID3v2 tag" is checked

    // The panels one below the other, or side by side.
    EID3v2Apperance Mode() const { return mode_; }
    void Mode(EID3v2Apperance value);
    // A hidden list keeps its rows.
    bool FrameListVisible() const;
    void FrameListVisible(bool value);
    // Keeps the fields and the picture from being changed by the user.
    bool Locked() const { return locked_; }
    void Locked(bool value);

    // Mode ("V2A", at first v2aDefault) and FrameListVisible ("FRL", at first true) from and to the host's bag.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

public Q_SLOTS:
    // Shows a menu where the mouse pointer is.
    void PopupMenu(QMenu* menu);

Q_SIGNALS:
    // The user has changed a field or the picture.
    void edited();
    // HasTag, saveTag and removeTag may answer something else now.
    void tagRequestChanged();

private:
    void watchEdits();
    void begin(bool given);
    void show(corvane::ID3V2Tag& tag);
    void fill(const Id3v2Values& values);
    Id3v2Values collect() const;
    void check();
    void updatePicture();

    std::unique_ptr<Id3v2Form> form_;
    std::any tag_;                       // as it was given
    std::unique_ptr<Id3v2Values> shown_; // what the fields held when it had been shown
    EID3v2Apperance mode_ = EID3v2Apperance::v2aDefault;
    bool enabled_ = true;
    bool locked_ = false;
    bool canSave_ = false;
    bool hasOwnPicture_ = false; // the host has chosen the picture that is shown
    bool showing_ = false;       // the fields are being filled, which is no edit
};

} // namespace corvane::controls
