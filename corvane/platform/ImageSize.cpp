#include "corvane/platform/ImageSize.h"

#include <climits>
#include <cstdlib>

// Only the functions that look at headers are reached, the compiler drops the decoders. The failure strings are left
// out because one of them is a buffer that all threads would share.
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_ONLY_GIF
#define STBI_ONLY_BMP
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_NO_HDR
#define STBI_NO_SIMD
#define STBI_NO_FAILURE_STRINGS
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb_image.h>
#pragma GCC diagnostic pop

namespace corvane {

std::optional<ImageSize> imageSizeOf(Bytes header) {
    if (header.size() > INT_MAX) return std::nullopt;
    int width = 0;
    int height = 0;
    if (stbi_info_from_memory(header.data(), static_cast<int>(header.size()), &width, &height, nullptr) == 0)
        return std::nullopt;
    if (width < 1 || height == 0 || height == INT_MIN) return std::nullopt;
    // The rows of a BMP may go from top to bottom, which its header writes as a negative height.
    return ImageSize{width, std::abs(height)};
}

} // namespace corvane
