// What a tag's image knows of the large frames that it has not gathered: of those that somebody has read, enough to
// find out later whether they are still the same; and the data of those that have left the file since.
#pragma once

#include "corvane/id3v230/KeptFrames.h"
#include "corvane/platform/Bytes.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>

namespace corvane {

// Objects that share an image may be used by different threads, hence the lock.
class LargeFrames {
public:
    // Of the data of each frame that was read, by its place in the tag.
    using Fingerprints = std::map<std::size_t, std::size_t>;

    static std::size_t fingerprintOf(Bytes data) {
        return std::hash<std::string_view>()({reinterpret_cast<const char*>(data.data()), data.size()});
    }
    void wasRead(std::size_t index, std::size_t fingerprint) {
        const std::lock_guard lock(guard_);
        fingerprints_[index] = fingerprint;
    }
    Fingerprints fingerprints() const {
        const std::lock_guard lock(guard_);
        return fingerprints_;
    }

    void keep(std::shared_ptr<const KeptFrames> kept) noexcept {
        const std::lock_guard lock(guard_);
        kept_ = std::move(kept);
    }
    std::optional<ByteArray> keptData(std::size_t index) const {
        const auto kept = keptFrames();
        return kept ? kept->data(index) : std::nullopt;
    }

private:
    std::shared_ptr<const KeptFrames> keptFrames() const {
        const std::lock_guard lock(guard_);
        return kept_;
    }

    mutable std::mutex guard_;
    Fingerprints fingerprints_;
    std::shared_ptr<const KeptFrames> kept_; // nothing as long as all are in the file
};

} // namespace corvane
