// Shows the Lyrics3 tag of a file. The tag cannot be saved; the check box tells the host whether the user wants one at
// all. Fields that cannot be edited are grey; their texts can still be selected, copied and scrolled.
#pragma once

#include "corvane/controls/Export.h"

#include <QMenu>
#include <QWidget>
#include <memory>

namespace corvane {
class LyricsTag;
}

namespace corvane::controls {

class LyricsForm;

class CORVANE_CONTROLS_EXPORT Lyrics : public QWidget {
    Q_OBJECT
    Q_PROPERTY(bool Enabled READ Enabled WRITE Enabled)
    Q_PROPERTY(bool Locked READ Locked WRITE Locked)
    Q_PROPERTY(bool removeTag READ removeTag NOTIFY tagRequestChanged)
    Q_PROPERTY(bool HasTag READ HasTag NOTIFY tagRequestChanged)

public:
    // Begins as if a file without a tag had been shown.
    explicit Lyrics(QWidget* parent = nullptr);
    ~Lyrics() override;

    // Empties all fields.
    void Clear();

    // The fields can be edited when they are enabled and not locked. Neither of the two touches the check box.
    bool Enabled() const { return enabled_; }
    void Enabled(bool value);
    bool Locked() const { return locked_; }
    void Locked(bool value);

    // Shows a tag: the box is checked and cannot be changed, the fields are disabled. Nothing (a file without a tag)
    // leaves the box to the user, and the fields locked. Fields that a tag has disabled stay so until the host enables
    // them.
    void LyricsTag(std::shared_ptr<corvane::LyricsTag> theLyricsTag);

    bool removeTag() const; // the user wants no tag: the box is there to check and is not checked
    bool HasTag() const;    // the box is checked

public Q_SLOTS:
    // Shows a menu where the mouse pointer is.
    void PopupMenu(QMenu* menu);

Q_SIGNALS:
    // HasTag and removeTag may answer something else now.
    void tagRequestChanged();

protected:
    // Keeps the fields in step with the widget's own state.
    void changeEvent(QEvent* event) override;

private:
    void check();
    void updateFields();

    std::unique_ptr<LyricsForm> form_;
    std::shared_ptr<corvane::LyricsTag> tag_;
    bool enabled_ = true;
    bool locked_ = false;
};

} // namespace corvane::controls
