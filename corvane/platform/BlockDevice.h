// What the system tells everybody about a block device.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace corvane {

// The name under which a folder of links to devices knows a device: the label or the UUID of its file system in
// "/dev/disk/by-label" or "/dev/disk/by-uuid". "" when it has none.
std::string diskName(const std::string& folder, dev_t device);

// Whether the medium of the device, or of the disk that it is a part of, can be taken out. devices: the folder that
// describes the devices by their numbers.
bool isRemovable(dev_t device, const std::string& devices = "/sys/dev/block");

// A name of a link that udev has made: bytes that are not harmless in names stand there as "\x" and two hexadecimal
// digits.
std::string udevDecoded(std::string_view name);

} // namespace corvane
