#include "corvane/id3v2/TagFrames.h"

#include "corvane/platform/ByteReader.h"
#include "corvane/platform/FileReader.h"
#include "corvane/platform/Inflate.h"
#include "corvane/platform/RuntimeFailure.h"
#include "corvane/platform/Unsynchronisation.h"

#include <algorithm>
#include <bitset>
#include <cerrno>

namespace corvane {

namespace {

constexpr const char* kSource = "ID3v2 frame";

// Up to so many frames a plain search beats every index.
constexpr std::size_t kFewFrames = 64;

constexpr std::uint64_t sortKey(FrameId id, std::size_t index) { return std::uint64_t{id.code} << 32 | index; }
constexpr std::uint32_t indexOf(std::uint64_t key) { return static_cast<std::uint32_t>(key); }
constexpr std::uint32_t codeOf(std::uint64_t key) { return static_cast<std::uint32_t>(key >> 32); }

// Remembers IDs well enough to know most of the new ones without a search.
class SeenIds {
public:
    // Whether the ID is certainly none of those asked about before.
    bool isNew(FrameId id) {
        const std::size_t bit = id.code * 2654435761U >> 22;
        const bool isNew = !seen_[bit];
        seen_[bit] = true;
        return isNew;
    }

private:
    std::bitset<1024> seen_;
};

Bytes part(Bytes bytes, const FrameRecord& record) {
    return readerAt(bytes, static_cast<std::size_t>(record.offset)).take(record.size).value_or(Bytes{});
}

ByteArray readUnchanged(const std::string& path, const FileIdentity& identity, const FrameRecord& record) {
    FileReader file(path);
    ByteArray bytes = file.identity() == identity ? file.read(record.offset, record.size) : ByteArray();
    const bool isWhole = bytes.size() == record.size && file.isUnchanged();
    if (!isWhole) throw RuntimeFailure(ESTALE, kSource, "The file was changed since it was read.");
    return bytes;
}

} // namespace

ByteArray Payload::takeLast(std::size_t size) && {
    const Bytes last = view_.last(size);
    if (owned_.empty()) return {last.begin(), last.end()};
    owned_.erase(owned_.begin(), owned_.end() - static_cast<std::ptrdiff_t>(size));
    return std::move(owned_);
}

const FrameRecord* TagFrames::at(std::size_t index) const {
    return index < firsts_.size() ? &records_[firsts_[index]] : nullptr;
}

const FrameRecord* TagFrames::find(FrameId id) const {
    if (sorted_.empty()) {
        const auto found = std::find_if(records_.begin(), records_.end(), [id](const auto& r) { return r.id == id; });
        return found == records_.end() ? nullptr : &*found;
    }
    const auto found = std::lower_bound(sorted_.begin(), sorted_.end(), sortKey(id, 0));
    return found == sorted_.end() || codeOf(*found) != id.code ? nullptr : &records_[indexOf(*found)];
}

std::string TagFrames::list() const {
    std::string list;
    list.reserve(records_.size() * 5);
    for (const FrameRecord& record : records_) list.append(record.id.text()).push_back(';');
    return list;
}

Bytes TagFrames::bytesInMemory(const FrameRecord& record) const {
    return part(record.place == FramePlace::Body ? body_ : gathered_, record);
}

Payload TagFrames::payload(const FrameRecord& record) const {
    if (record.place == FramePlace::TooLarge) throw inflationFailure();
    const bool isInFile = record.place == FramePlace::File;
    if (!isInFile && record.isPlain()) return bytesInMemory(record);
    Payload raw = isInFile ? Payload(readUnchanged(path_, file_.get(), record)) : bytesInMemory(record);
    auto payload = uncompressed(synchronised(std::move(raw), record), record);
    if (!payload) throw RuntimeFailure(EBADMSG, kSource, "The frame cannot be inflated.");
    return std::move(*payload);
}

// A crafted tag may hold hundreds of thousands of IDs, so that comparing each with each, or hashing, could be made to
// take minutes; sorting cannot.
void TagFrames::buildKeys() {
    firsts_.reserve(records_.size());
    if (records_.size() <= kFewFrames) {
        SeenIds seen;
        for (std::uint32_t i = 0; i < records_.size(); ++i) {
            const bool isFirst = seen.isNew(records_[i].id) || find(records_[i].id) == &records_[i];
            if (isFirst) firsts_.push_back(i);
        }
        return;
    }
    std::vector<std::uint64_t> keys(records_.size());
    for (std::size_t i = 0; i < keys.size(); ++i) keys[i] = sortKey(records_[i].id, i);
    std::sort(keys.begin(), keys.end());
    const auto sameId = [](std::uint64_t a, std::uint64_t b) { return codeOf(a) == codeOf(b); };
    keys.erase(std::unique(keys.begin(), keys.end(), sameId), keys.end());
    for (const std::uint64_t key : keys) firsts_.push_back(indexOf(key));
    std::sort(firsts_.begin(), firsts_.end());
    sorted_ = std::move(keys);
}

std::shared_ptr<const TagFrames> noFrames() {
    static const auto none = std::make_shared<const TagFrames>();
    return none;
}

Payload synchronised(Payload raw, const FrameRecord& record) {
    if (!record.unsynchronised) return raw;
    ByteArray bytes(raw.bytes().begin(), raw.bytes().end());
    undoUnsynchronisation(bytes);
    return bytes;
}

std::optional<Payload> uncompressed(Payload stream, const FrameRecord& record) {
    if (!record.compressed) return stream;
    auto bytes = inflated(stream.bytes(), record.inflatedSize);
    return bytes ? std::optional<Payload>(std::move(*bytes)) : std::nullopt;
}

} // namespace corvane
