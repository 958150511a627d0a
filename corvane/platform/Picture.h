// A picture out of a tag or an image file: the encoded bytes exactly as they were found, and what their header says.
// Nothing is decoded and nothing is encoded again, so the bytes that go in come out.
#pragma once

#include "corvane/platform/Bytes.h"
#include "corvane/platform/Export.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace corvane {

class CORVANE_EXPORT Picture {
public:
    // Loads a picture from the bytes of a JPEG, PNG, GIF or BMP image, which it takes over. Nothing when the bytes
    // begin with no header of such an image. The pixels behind the header are not looked at.
    static std::shared_ptr<Picture> fromBytes(ByteArray bytes);

    // The encoded image. The view is good as long as the picture lives.
    Bytes bytes() const { return bytes_; }
    // What the image's header says.
    const std::string& mimeType() const { return mimeType_; } // "image/jpeg", "image/png", "image/gif" or "image/bmp"
    std::int32_t width() const { return width_; }             // pixels, at least 1
    std::int32_t height() const { return height_; }           // pixels, at least 1
    // A number that is never 0 and that no other picture of this process has while the first 2^31 - 1 of them are
    // made. Two pictures with different handles are different objects; their bytes may be equal.
    std::int32_t handle() const { return handle_; }

private:
    Picture(ByteArray bytes, std::string_view mimeType, std::int32_t width, std::int32_t height);

    ByteArray bytes_;
    std::string mimeType_;
    std::int32_t width_;
    std::int32_t height_;
    std::int32_t handle_;
};

} // namespace corvane
