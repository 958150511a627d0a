#include "apps/editor/OpenedFile.h"

#include "corvane/id3v2/ID3V23TagInternals.h"
#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/id3v230/ID3V230.h"
#include "corvane/platform/RuntimeFailure.h"

#include "apps/cli/FrontCover.h"
#include "apps/cli/LibraryFailure.h"

namespace corvane::editor {

namespace {

// The object's year is a number. A year in letters, as an ID3v1 record may have it, can be saved but not shown.
void tryText(ID3V2Tag& tag, Field field, const std::string& text) {
    try {
        setText(tag, field, text);
    } catch (const RuntimeFailure&) {
        return;
    }
}

ID3V230* changeableIn(ID3V2Tag& tag) {
    const auto reader = tag.ID3V23Tag();
    return reader ? Internals<ID3V23Tag>::changeable(*reader).get() : nullptr;
}

} // namespace

OpenedFile::OpenedFile(const std::string& path) {
    cli::openFile(handler_, path);
    tags_ = tagsOf(handler_);
}

std::shared_ptr<ID3V2Tag> OpenedFile::id3v2Tag(const TagValues& wanted) {
    const bool hasTag = handler_.HasID3V2Tag();
    auto tag = hasTag ? handler_.ID3V2Tag() : draft();
    if (!tag->canSave()) return tag;
    const TagValues now = valuesOf(*tag);
    for (std::size_t at = 0; at < kFieldCount; ++at) {
        if (wanted.present && wanted.texts[at] != now.texts[at]) tryText(*tag, fieldAt(at), wanted.texts[at]);
    }
    if (ID3V230* changeable = changeableIn(*tag)) {
        if (wanted.cover) cli::setFrontCover(*changeable, *wanted.cover);
        if (wanted.picture) cli::setShownPicture(*changeable, *wanted.picture);
    }
    return tag;
}

// A tag that can only be read keeps one picture.
std::shared_ptr<Picture> OpenedFile::pictureOf(ID3V2Tag& tag) {
    const ID3V230* changeable = changeableIn(tag);
    return changeable ? cli::shownPicture(*changeable).value_or(nullptr) : tag.Picture();
}

// The file has nothing in front of its audio that could be read, so the tag that reads it is empty.
std::shared_ptr<ID3V2Tag> OpenedFile::draft() const {
    auto tag = std::make_shared<ID3V2Tag>();
    ID3V2Header header;
    header.Version = {3, 0};
    Internals<ID3V2Tag>::setHeader(*tag, handler_.FileName(), header);
    return tag;
}

} // namespace corvane::editor
