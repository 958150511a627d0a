#include "apps/editor/OldTag.h"

#include "corvane/id3v230/ID3V230Internals.h"

#include "apps/cli/FrontCover.h"
#include "apps/cli/Id3v2Saving.h"

#include <algorithm>
#include <utility>

namespace corvane::editor {

OptionalPicture PictureKeeper::kept(const std::shared_ptr<Picture>& picture) {
    if (!picture) return picture;
    if (last_ && std::ranges::equal(last_->bytes(), picture->bytes())) return last_;
    if (picture->bytes().size() > kLimit - size_) return std::nullopt;
    size_ += picture->bytes().size();
    return last_ = picture;
}

OldTag PictureKeeper::oldTag(const std::string& path, const TagValues& inFile, const TagValues& wanted) {
    const bool isRemoved = inFile.present && !wanted.present;
    if (!isRemoved && !wanted.cover && !wanted.picture) return {};
    auto image = cli::readTagImage(path);
    if (!image->exists()) return {};
    if (isRemoved && !cli::obstacleToSaving(*image).empty()) return {.isLostForGood = true};
    ID3V230 tag;
    Internals<ID3V230>::bind(tag, std::move(image));
    OldTag old;
    const auto cover = cli::frontCover(tag), shown = cli::shownPicture(tag);
    if (cover && (isRemoved || wanted.cover)) old.cover = kept(*cover);
    if (shown && (isRemoved || wanted.picture)) old.picture = kept(*shown);
    // No picture is what a tag begins with.
    if (isRemoved && old.cover == nullptr) old.cover.reset();
    if (isRemoved && old.picture == nullptr) old.picture.reset();
    return old;
}

} // namespace corvane::editor
