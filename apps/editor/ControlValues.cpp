#include "apps/editor/ControlValues.h"

#include "corvane/controls/Id3v1Rules.h"
#include "corvane/id3v1/Id3v1Record.h"
#include "corvane/platform/Numbers.h"

namespace corvane::editor {

std::shared_ptr<ID3V1Tag> makeId3v1Tag(const TagValues& wanted) {
    auto tag = std::make_shared<ID3V1Tag>();
    if (!wanted.present) return tag;
    tag->Title(wanted[Field::Title]);
    tag->Artist(wanted[Field::Artist]);
    tag->Album(wanted[Field::Album]);
    tag->Year(wanted[Field::Year]);
    tag->Comment(wanted[Field::Comment]);
    tag->Track(parseNumber<std::int16_t>(wanted[Field::Track]).value_or(0));
    tag->Genre(parseNumber<std::uint8_t>(wanted[Field::Genre]).value_or(kNoGenre));
    tag->TagType(controls::tagTypeFor(tag->Track()));
    return tag;
}

TagValues valuesIn(const controls::ID3v1& editor) {
    TagValues values;
    values.present = editor.HasTag();
    values[Field::Title] = editor.Title();
    values[Field::Artist] = editor.Artist();
    values[Field::Album] = editor.Album();
    values[Field::Year] = editor.Year();
    values[Field::Comment] = editor.Comment();
    if (editor.Track() != 0) values[Field::Track] = std::to_string(editor.Track());
    if (editor.Genre() != kNoGenre) values[Field::Genre] = std::to_string(editor.Genre());
    return values;
}

} // namespace corvane::editor
