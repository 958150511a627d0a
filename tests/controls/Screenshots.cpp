// Pictures of every control in the states that matter, for eyes to judge: screenshots FOLDER SAMPLE_FILE.
#include "corvane/controls/Controls.h"
#include "corvane/core/FileHandler.h"
#include "corvane/lyrics/LyricsTag.h"
#include "corvane/xml/XmlNode.h"

#include "tests/controls/DarkPalette.h"

#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>
#include <QStyleFactory>
#include <QTranslator>
#include <QtTest>
#include <functional>
#include <memory>

using namespace corvane::controls;

namespace {

std::shared_ptr<corvane::ID3V1Tag> tag(const char* title, std::int16_t track) {
    auto made = std::make_shared<corvane::ID3V1Tag>();
    made->Title(title);
    made->Artist("Donaudampfschifffahrtsgesellschaftskapelle");
    made->Album("Größte Erfolge");
    made->Year("1999");
    made->Comment("Nur zum Ansehen");
    made->Track(track);
    made->Genre(67);
    made->TagType(corvane::EID3TagConstants::ID3V11);
    return made;
}

std::shared_ptr<corvane::LyricsTag> lyrics() {
    auto made = std::make_shared<corvane::LyricsTag>();
    made->CreateFromTag(corvane::XmlNode::fromText(
        "<LyricsTag><Properties><Property Name='Title' Value='A Chord to Look Around In'/>"
        "<Property Name='Artist' Value='The Test Tones'/><Property Name='Album' Value='Sines'/>"
        "<Property Name='Author' Value='N. N.'/>"
        "<Property Name='Lyrics' Value='[00:01]Four hundred forty&#10;[00:03]and nothing else'/>"
        "</Properties></LyricsTag>"));
    return made;
}

std::unique_ptr<QWidget> singleTag() {
    auto editor = std::make_unique<ID3v1>();
    editor->ID3v1xTag(tag("A Chord to Look Around In", 7));
    return editor;
}

std::unique_ptr<QWidget> manyTags() {
    auto editor = std::make_unique<ID3v1>();
    editor->VisibilityMode(ETagEditModeConstants::temEditMany);
    for (std::int16_t track = 1; track < 13; ++track) editor->ID3v1xTag(tag("A Chord", track));
    editor->findChild<QLineEdit*>("txtAlbum")->setText("Edited for all of them, and longer than thirty");
    return editor;
}

std::unique_ptr<QWidget> withoutTag() {
    auto editor = std::make_unique<ID3v1>();
    editor->ID3v1xTag(std::make_shared<corvane::ID3V1Tag>());
    return editor;
}

std::unique_ptr<QWidget> lyricsTag() {
    auto editor = std::make_unique<Lyrics>();
    editor->LyricsTag(lyrics());
    return editor;
}

// The sample file of the examples.
std::unique_ptr<QWidget> id3v2(const char* file, EID3v2Apperance mode) {
    auto editor = std::make_unique<ID3v2>();
    corvane::FileHandler handler;
    if (handler.Create(file)) editor->ID3V2Tag(handler.ID3V2Tag());
    editor->Mode(mode);
    return editor;
}

std::unique_ptr<QWidget> editableLyrics() {
    auto editor = std::make_unique<Lyrics>();
    editor->Locked(false);
    return editor;
}

struct Scene {
    const char* name;
    std::function<std::unique_ptr<QWidget>()> make;
};

std::vector<Scene> scenes(const char* sample) {
    return {{"container", [] { return std::make_unique<corvane::controls::Corvane>(); }},
            {"id3v1-single", singleTag},
            {"id3v1-many", manyTags},
            {"id3v1-none", withoutTag},
            {"lyrics", lyricsTag},
            {"lyrics-editable", editableLyrics},
            {"id3v2", [sample] { return id3v2(sample, EID3v2Apperance::v2aDefault); }},
            {"id3v2-wide", [sample] { return id3v2(sample, EID3v2Apperance::v2aWide); }}};
}

void take(const Scene& scene, const QString& name, const QDir& folder) {
    const auto widget = scene.make();
    widget->resize(widget->sizeHint()); // whatever the size of the screen is
    widget->show();
    QTest::qWait(50);
    widget->grab().save(folder.filePath(name));
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    if (argc != 3) return 2;
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    const QPalette light = QApplication::style()->standardPalette();
    const auto takeAll = [&](const char* kind) {
        for (const Scene& scene : scenes(argv[2])) {
            take(scene, QStringLiteral("%1-%2.png").arg(QLatin1String(scene.name), QLatin1String(kind)), folder);
        }
    };
    QApplication::setPalette(light);
    takeAll("light");
    QApplication::setPalette(darkPalette());
    takeAll("dark");
    QApplication::setPalette(light);
    QTranslator german; // longer texts than the English ones
    if (!loadTranslation(german, QLocale(QLocale::German))) return 1;
    QCoreApplication::installTranslator(&german);
    takeAll("german");
}
