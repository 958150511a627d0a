#include "corvane/controls/designer/ControlCollection.h"

#include "corvane/controls/Corvane.h"
#include "corvane/controls/ID3v1.h"
#include "corvane/controls/ID3v2.h"
#include "corvane/controls/Lyrics.h"
#include "corvane/controls/Translation.h"
#include "corvane/controls/designer/ControlPlugin.h"

#include <QCoreApplication>

namespace corvane::controls {

namespace {

template <class Control>
QWidget* make(QWidget* parent) {
    return new Control(parent);
}

class ControlKinds {
    Q_DECLARE_TR_FUNCTIONS(ControlKinds)

public:
    static QList<ControlKind> all() { return {container(), id3v1(), id3v2(), lyrics()}; }

private:
    static ControlKind container();
    static ControlKind id3v1();
    static ControlKind id3v2();
    static ControlKind lyrics();
};

ControlKind ControlKinds::container() {
    return {.className = "corvane::controls::Corvane",
            .header = "corvane/controls/Corvane.h",
            .objectName = "corvane",
            .icon = "corvane.svg",
            .displayName = tr("Corvane"),
            .toolTip = tr("Opens one MP3 file for the form"),
            .description = tr("Owns a FileHandler and shows who made the library."),
            .size = {280, 100},
            .properties = {},
            .make = make<Corvane>};
}

ControlKind ControlKinds::id3v1() {
    return {.className = "corvane::controls::ID3v1",
            .header = "corvane/controls/ID3v1.h",
            .objectName = "id3v1",
            .icon = "id3v1.svg",
            .displayName = tr("ID3v1 Editor"),
            .toolTip = tr("Edits one or many ID3v1 tags"),
            .description = tr("Shows and edits the fields of an ID3v1 or ID3v1.1 tag, or of several."),
            .size = {350, 230},
            .properties = {{"Title", tr("Title, 30 characters are stored.")},
                           {"Artist", tr("Artist, 30 characters are stored.")},
                           {"Album", tr("Album, 30 characters are stored.")},
                           {"Year", tr("Year, 4 characters are stored.")},
                           {"Genre", tr("Genre number; 255 means none.")},
                           {"Track", tr("Track number from 1 to 255; 0 means none.")},
                           {"Comment", tr("Comment, 30 characters are stored, 28 with a track.")},
                           {"Enabled", tr("Whether the control as a whole can be used.")},
                           {"Locked", tr("Whether the texts can only be read.")},
                           {"VisibilityMode", tr("One tag, or many at once: then only edited fields count.")}},
            .make = make<ID3v1>};
}

ControlKind ControlKinds::id3v2() {
    return {.className = "corvane::controls::ID3v2",
            .header = "corvane/controls/ID3v2.h",
            .objectName = "id3v2",
            .icon = "id3v2.svg",
            .displayName = tr("ID3v2 Editor"),
            .toolTip = tr("Edits an ID3v2 tag"),
            .description =
                tr("Shows and edits the fields, the picture and the lyrics of an ID3v2 tag, and lists its frames."),
            .size = {540, 600},
            .properties = {{"Enabled", tr("Whether the fields and the picture can be used.")},
                           {"Locked", tr("Whether the texts can only be read.")},
                           {"Mode", tr("The panels one below the other, or side by side.")},
                           {"FrameListVisible", tr("Whether the list of all frames is shown.")}},
            .make = make<ID3v2>};
}

ControlKind ControlKinds::lyrics() {
    return {.className = "corvane::controls::Lyrics",
            .header = "corvane/controls/Lyrics.h",
            .objectName = "lyrics",
            .icon = "lyrics.svg",
            .displayName = tr("Lyrics3 Viewer"),
            .toolTip = tr("Shows a Lyrics3 tag"),
            .description = tr("Shows title, artist, album, author and lyrics of a Lyrics3 tag."),
            .size = {330, 350},
            .properties = {{"Enabled", tr("Whether the fields can be edited unless they are locked.")},
                           {"Locked", tr("Whether the texts can only be read.")}},
            .make = make<Lyrics>};
}

} // namespace

ControlCollection::ControlCollection(QObject* parent) : QObject(parent) {
    auto* texts = new QTranslator(this);
    if (loadTranslation(*texts, QLocale())) QCoreApplication::installTranslator(texts);
    for (const ControlKind& kind : ControlKinds::all()) widgets_.push_back(new ControlPlugin(kind, this));
}

} // namespace corvane::controls
