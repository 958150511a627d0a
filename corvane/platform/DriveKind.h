// What kind of drive a mount is.
#pragma once

#include <cstdint>

namespace corvane {

struct Mount;

// By the numbers that automation hosts know.
enum class DriveKind : std::int32_t { Unknown = 0, Removable = 1, Fixed = 2, Network = 3, Optical = 4, Memory = 5 };

// isRemovable: whether the device says that its medium can be taken out (BlockDevice.h).
DriveKind driveKindOf(const Mount& mount, bool isRemovable);

} // namespace corvane
