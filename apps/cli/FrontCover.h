// The picture among those of an ID3v2.3 tag that people mean: the front cover, or the one that an editor shows.
#pragma once

#include "corvane/id3v230/ID3V230.h"
#include "corvane/platform/Picture.h"

#include "apps/cli/TagOutcome.h"

#include <memory>
#include <optional>

namespace corvane::cli {

// The front cover, see below; nullptr where there is none, nothing where it is no image that the library knows.
std::optional<std::shared_ptr<Picture>> frontCover(const ID3V230& tag);

// Puts the picture in the place of the front cover, or takes that out where there is no picture. Nothing when the tag
// has these very bytes there already.
//
// The front cover is the first picture of that type, one without a description before others. Where there is none, it
// is the picture without a type and a description: programs that know no types write the cover like that. All other
// pictures stay.
std::optional<FieldChange> setFrontCover(ID3V230& tag, const std::shared_ptr<Picture>& picture);

// The picture that an editor shows of the tag: the front cover, else the first picture, whatever their descriptions
// are. nullptr where there is none, nothing where it is no image that the library knows.
std::optional<std::shared_ptr<Picture>> shownPicture(const ID3V230& tag);
// Puts the picture in the place of the one that is shown, which keeps its type and description, or takes that out where
// there is no picture. A tag without pictures gets a front cover. Nothing when the tag has these very bytes there
// already.
std::optional<FieldChange> setShownPicture(ID3V230& tag, const std::shared_ptr<Picture>& picture);

} // namespace corvane::cli
