#include "apps/cli/Id3v2Section.h"

#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/id3v2/ReadableText.h"

#include "apps/cli/BinaryText.h"
#include "apps/cli/FrameNames.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/PictureText.h"
#include "apps/cli/Quantity.h"

#include <fmt/core.h>

namespace corvane::cli {

namespace {

std::string headingOf(const ID3V2Tag& tag) {
    const auto version = tag.Version();
    return fmt::format("ID3v2.{}.{} tag, {}", version->Minor(), version->Revision(),
                       byteText(static_cast<std::uint64_t>(std::get<std::int32_t>(tag.Size()))));
}

// `Comment (eng) "description"`: what tells a frame from others of its kind.
std::string labelOf(FrameId id, const std::string& language, const std::string& description) {
    std::string label(frameName(id));
    if (!language.empty()) label += fmt::format(" ({})", language);
    if (!description.empty()) label += fmt::format(" \"{}\"", description);
    return label;
}

Row readableRow(FrameId id, Bytes payload) {
    ReadableFrame frame = readableFrame(id, payload);
    return {id.text(), labelOf(id, frame.language, frame.description), std::move(frame.text)};
}

Row rowOf(FrameId id, Bytes payload) {
    if (isPicture(id)) return {id.text(), std::string(frameName(id)), pictureText(id, payload)};
    if (isReadable(id)) return readableRow(id, payload);
    return {id.text(), labelOf(id, {}, binaryDescription(id, payload)), byteText(payload.size())};
}

Row rowOf(const TagFrames& frames, const FrameRecord& frame) {
    try {
        const Payload payload = frames.payload(frame);
        if (!frame.encrypted) return rowOf(frame.id, payload.bytes());
        return {frame.id.text(), std::string(frameName(frame.id)), byteText(payload.bytes().size()) + ", encrypted"};
    } catch (const std::exception& failure) {
        return {frame.id.text(), std::string(frameName(frame.id)), failure.what()};
    }
}

} // namespace

Section id3v2Section(ID3V2Tag& tag) {
    Section section{headingOf(tag), {}};
    const TagFrames* frames = Internals<ID3V2Tag>::parse(tag) ? Internals<ID3V2Tag>::frames(tag) : nullptr;
    if (frames == nullptr) {
        const std::string reason = reasonOf(*tag.LastError());
        section.rows.push_back({"", "Frames", reason.empty() ? "not read: the version is not known" : reason});
        return section;
    }
    for (const FrameRecord& frame : frames->all()) section.rows.push_back(rowOf(*frames, frame));
    // The walk counts one byte less than there are.
    const std::uint64_t padding = frames->paddingSize();
    section.rows.push_back({"", "Padding", byteText(padding == 0 ? 0 : padding + 1)});
    return section;
}

} // namespace corvane::cli
