#include "corvane/platform/Picture.h"

#include "corvane/platform/ImageHeader.h"
#include "corvane/platform/ImageSize.h"

#include <atomic>
#include <utility>

namespace corvane {

namespace {

std::int32_t nextHandle() {
    static std::atomic<std::uint32_t> count{0};
    constexpr std::uint32_t kHandleCount = INT32_MAX; // handles are 1 to this, then from 1 again
    return static_cast<std::int32_t>(count.fetch_add(1, std::memory_order_relaxed) % kHandleCount + 1);
}

} // namespace

Picture::Picture(ByteArray bytes, std::string_view mimeType, std::int32_t width, std::int32_t height)
    : bytes_(std::move(bytes)), mimeType_(mimeType), width_(width), height_(height), handle_(nextHandle()) {}

std::shared_ptr<Picture> Picture::fromBytes(ByteArray bytes) {
    const auto header = imageHeader(bytes);
    if (!header) return nullptr;
    const auto size = imageSizeOf(header->bytes);
    if (!size) return nullptr;
    return std::shared_ptr<Picture>(new Picture(std::move(bytes), header->mimeType, size->width, size->height));
}

} // namespace corvane
