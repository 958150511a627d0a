#include "apps/cli/Id3v2Section.h"

#include "corvane/id3v2/ID3V2TagInternals.h"
#include "corvane/id3v2/ReadableText.h"
#include "corvane/id3v2/WholeFrames.h"

#include "apps/cli/BinaryText.h"
#include "apps/cli/FrameNames.h"
#include "apps/cli/Id3v2Saving.h"
#include "apps/cli/LibraryFailure.h"
#include "apps/cli/PictureText.h"
#include "apps/cli/Quantity.h"

#include <fmt/core.h>

#include <functional>
#include <memory>

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

Row rowOf(FrameId id, bool isEncrypted, const std::function<Payload()>& read) {
    try {
        const Payload payload = read();
        if (!isEncrypted) return rowOf(id, payload.bytes());
        return {id.text(), std::string(frameName(id)), byteText(payload.bytes().size()) + ", encrypted"};
    } catch (const std::exception& failure) {
        return {id.text(), std::string(frameName(id)), failure.what()};
    }
}

void addParsedFrames(Section& section, const TagFrames& frames) {
    for (const FrameRecord& frame : frames.all()) {
        section.rows.push_back(rowOf(frame.id, frame.encrypted, [&] { return frames.payload(frame); }));
    }
    // The walk counts one byte less than there are.
    const std::uint64_t padding = frames.paddingSize();
    section.rows.push_back({"", "Padding", byteText(padding == 0 ? 0 : padding + 1)});
}

// The frames before the damage for which the parser gives up a whole tag.
void addWholeFrames(Section& section, const std::shared_ptr<const TagImage>& image) {
    for (const WholeFrame& frame : wholeFrames(image)) {
        section.rows.push_back(rowOf(frame.id, frame.isEncrypted, [&] { return Payload(frame.payload()); }));
    }
}

void addFrames(Section& section, ID3V2Tag& tag, const std::shared_ptr<const TagImage>& image) {
    if (Internals<ID3V2Tag>::parse(tag)) return addParsedFrames(section, *Internals<ID3V2Tag>::frames(tag));
    addWholeFrames(section, image);
    const std::string reason = reasonOf(*tag.LastError());
    const char* label = section.rows.empty() ? "Frames" : "More frames";
    section.rows.push_back({"", label, reason.empty() ? "not read: the version is not known" : reason});
}

} // namespace

Section id3v2Section(ID3V2Tag& tag, const std::string& path) {
    Section section{headingOf(tag), {}};
    const std::shared_ptr<const TagImage> image = readTagImage(path);
    addFrames(section, tag, image);
    const std::string obstacle = obstacleToSaving(*image);
    if (!obstacle.empty()) section.rows.push_back({"", "Saving", "not possible: " + obstacle});
    return section;
}

} // namespace corvane::cli
