#include "apps/cli/FrontCover.h"

#include "corvane/id3v230/ID3V230FrameInternals.h"

#include "apps/cli/PictureText.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvane::cli {

namespace {

using Record = Internals<ID3V230Frame>;
using RecordPointer = std::shared_ptr<ID3V230Frame>;

constexpr std::uint8_t kNoType = 0, kFrontCover = 3; // ID3v2.3.0 section 4.15
constexpr auto kPictureNumber = static_cast<std::int16_t>(ID3_FrameID::ID3FID_PICTURE);

std::uint8_t typeOf(const ID3V230Frame& record) { return Record::content(record).pictureHead.type; }

template <class Wanted>
RecordPointer findPicture(const ID3V230& tag, Wanted&& isWanted) {
    for (const auto& record : *tag.Frames()) {
        const bool isPicture = record->eType() == kPictureNumber && !record->Deleted();
        if (isPicture && !Record::content(*record).isHidden && isWanted(*record)) return record;
    }
    return nullptr;
}

RecordPointer findFrontCover(const ID3V230& tag) {
    const auto isPlain = [](std::uint8_t type) {
        return [type](const ID3V230Frame& record) { return typeOf(record) == type && record.sDescription().empty(); };
    };
    if (auto plain = findPicture(tag, isPlain(kFrontCover))) return plain;
    const auto isCover = [](const ID3V230Frame& record) { return typeOf(record) == kFrontCover; };
    if (auto described = findPicture(tag, isCover)) return described;
    return findPicture(tag, isPlain(kNoType));
}

// A tag holds one picture of each description (ID3v2.3.0 section 4.15).
std::string freeDescription(const ID3V230& tag) {
    constexpr std::string_view kName = "Front cover";
    std::string description;
    const auto isTaken = [&](const ID3V230Frame& record) { return record.sDescription() == description; };
    for (int number = 1; findPicture(tag, isTaken); ++number) {
        description = number == 1 ? std::string(kName) : std::string(kName).append(" ").append(std::to_string(number));
    }
    return description;
}

void addFrontCover(ID3V230& tag, const std::shared_ptr<Picture>& picture) {
    auto record = Record::make();
    record->eType(kPictureNumber);
    record->sDescription(freeDescription(tag));
    record->Picture(picture);
    record->Position(tag.Frames()->Count() + 1);
    record->IsNew(true);
    record->bChanged(true);
    Internals<ID3V230Frames>::add(*tag.Frames(), std::move(record));
}

// A picture that is there keeps its place and description; one without a type gives way to one that has it.
void replace(ID3V230& tag, ID3V230Frame& record, const std::shared_ptr<Picture>& picture) {
    const bool hasNoType = typeOf(record) == kNoType && record.sDescription().empty();
    if (picture && !hasNoType) {
        record.Picture(picture);
        record.bChanged(true);
        return;
    }
    record.Delete();
    if (picture) addFrontCover(tag, picture);
}

std::optional<FieldChange> setPicture(ID3V230& tag, const RecordPointer& record,
                                      const std::shared_ptr<Picture>& picture) {
    if (!record && !picture) return std::nullopt;
    const ByteArray before = record ? record->PictureRAW() : ByteArray();
    if (picture && std::ranges::equal(picture->bytes(), before)) return std::nullopt;
    if (record) {
        replace(tag, *record, picture);
    } else {
        addFrontCover(tag, picture);
    }
    return FieldChange{"picture", record ? imageText(before) : std::string(),
                       picture ? imageText(picture->bytes()) : std::string()};
}

std::optional<std::shared_ptr<Picture>> pictureOf(const RecordPointer& record) {
    if (!record) return std::shared_ptr<Picture>();
    auto picture = record->Picture();
    return picture ? std::optional(std::move(picture)) : std::nullopt;
}

RecordPointer findShownPicture(const ID3V230& tag) {
    if (auto cover = findFrontCover(tag)) return cover;
    return findPicture(tag, [](const ID3V230Frame&) { return true; });
}

} // namespace

std::optional<std::shared_ptr<Picture>> frontCover(const ID3V230& tag) { return pictureOf(findFrontCover(tag)); }

std::optional<FieldChange> setFrontCover(ID3V230& tag, const std::shared_ptr<Picture>& picture) {
    return setPicture(tag, findFrontCover(tag), picture);
}

std::optional<std::shared_ptr<Picture>> shownPicture(const ID3V230& tag) { return pictureOf(findShownPicture(tag)); }

std::optional<FieldChange> setShownPicture(ID3V230& tag, const std::shared_ptr<Picture>& picture) {
    return setPicture(tag, findShownPicture(tag), picture);
}

} // namespace corvane::cli
